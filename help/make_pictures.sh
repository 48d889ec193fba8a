#!/usr/bin/env bash
# make_pictures.sh PROGRAM
# Takes the help's pictures anew, from the real program on a virtual screen: one for each window, named after it.
# It is run by hand after a window has changed. Look at what has come out.
folder=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
# shellcheck source=tests/gui/desktop.sh
source "$folder/../tests/gui/desktop.sh" "$work"
trap 'leave_desktop; rm -rf "$work"' EXIT
program=$(realpath "$1")

# Above and below the main window's inside: menu and toolbar, status line
TOP=60
BOTTOM=30

# main_window: its left, top, width and height on the screen
main_window() {
  xwininfo -id "$(open_windows main)" |
    sed -nE 's/^ *(Absolute upper-left [XY]|Width|Height): +//p' | paste -sd ' '
}

# keep NAME LEFT TOP WIDTH HEIGHT: that part of the screen becomes the picture of that name, no wider than a
# page beside the contents and in few colours.
keep() {
  sleep 0.5  # until it is painted
  picture "$1"
  convert "$work/$1.png" -crop "$4x$5+$2+$3" +repage -filter Lanczos -resize '620x>' -dither None -colors 128 \
    -strip -define png:exclude-chunks=date,time -define png:compression-level=9 \
    "PNG8:$folder/pictures/$1.png"
  echo "kept: $1"
}

# keep_window NAME: the window that stands inside the main window now; found by what differs from no window
keep_window() {
  local left top width height box
  read -r left top width height < <(main_window)
  sleep 0.5
  picture open
  box=$(convert "$work/empty.png" "$work/open.png" \
    -crop "${width}x$((height - TOP - BOTTOM))+$left+$((top + TOP))" +repage \
    -compose difference -composite -threshold 2% -format '%@' info:)
  IFS='x+' read -r width height box_left box_top <<<"$box"
  keep "$1" $((left + box_left)) $((top + TOP + box_top)) "$width" "$height"
}

start_desktop
start_velta "$program"
open_main_window
sleep 0.5
picture empty

# The single calculation, with the example of its page
open_calculation
fill 10.3.2005
press Tab
fill 20.6.2005
press Tab
fill '10 000'
press Tab Down Down Down Tab
keep_window frmJednotlivy
press alt+k

# The main window at a size at which its menu can be read
xdotool windowsize --sync "$(open_windows main)" 760 330
press alt+v
wait_until "the menu is open" is_open popup
read -r left top width height < <(main_window)
keep frmMenu "$left" "$top" "$width" "$height"
