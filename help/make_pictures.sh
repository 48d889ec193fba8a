#!/usr/bin/env bash
# make_pictures.sh PROGRAM
# Takes the help's pictures anew, from the real program on a virtual screen: one for each window, named after it. And
# the README's, of the main window. It is run by hand after a window has changed. Look at what has come out.
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

# framed LEFT TOP WIDTH HEIGHT: those of the main window become those of its frame
framed() {
  local left right top bottom
  IFS=', ' read -r left right top bottom < <(xprop -id "$(open_windows main)" _NET_FRAME_EXTENTS | sed 's/.*= //')
  echo $(($1 - left)) $(($2 - top)) $(($3 + left + right)) $(($4 + top + bottom))
}

# keep FILE SIZE LEFT TOP WIDTH HEIGHT: that part of the screen becomes the picture, in few colours.
keep() {
  sleep 0.5  # until it is painted
  picture kept
  convert "$work/kept.png" -crop "$5x$6+$3+$4" +repage -filter Lanczos -resize "$2" -dither None -colors 128 \
    -strip -define png:exclude-chunks=date,time -define png:compression-level=9 "PNG8:$1"
  echo "kept: $1"
}

# keep_page NAME LEFT TOP WIDTH HEIGHT: as the help's picture of that name, no wider than a page beside the contents
keep_page() { keep "$folder/pictures/$1.png" '620x>' "${@:2}"; }

# keep_window NAME: the window that stands inside the main window now; found by what differs from no window
keep_window() {
  local main_left main_top main_width main_height box
  read -r main_left main_top main_width main_height < <(main_window)
  sleep 0.5
  picture open
  box=$(convert "$work/empty.png" "$work/open.png" \
    -crop "${main_width}x$((main_height - TOP - BOTTOM))+$main_left+$((main_top + TOP))" +repage \
    -compose difference -composite -threshold 2% -format '%@' info:)
  IFS='x+' read -r width height left top <<<"$box"
  left=$((main_left + left))
  top=$((main_top + TOP + top))
  keep_page "$1" "$left" "$top" "$width" "$height"
}

# close_window: by its button; until the menus have the keys
close_window() {
  press alt+k
  sleep 0.5
}

# put_aside: minimises the window that was kept last, by the first of the three buttons in its corner
put_aside() {
  xdotool mousemove $((left + width - 54)) $((top + 12)) click 1 mousemove 1279 899
  BOTTOM=70  # there it stands now
}

start_desktop
start_velta "$program"
open_main_window
sleep 0.5
picture empty

# The settings, as the first run makes them
menu v n
wait_until "the settings are open" sleep 1
keep_window frmNastaveni
close_window

# The single calculation, with the example of its page
open_calculation
fill 15.3.2026
press Tab
fill 20.11.2026
press Tab
fill '100 000'
press Tab Tab
fill 11,5
press End
keep_window frmJednotlivy
read -r left top width height < <(main_window)
read -r left top width height < <(framed "$left" "$top" "$width" "$height")
keep "$folder/../docs/velta.png" '100%' "$left" "$top" "$width" "$height"
close_window

# The progressive calculation, with the first example of its page
menu v p
wait_until "the progressive calculation is open" sleep 1
fill '60 000'
press Tab
fill 31.1.2025
press Tab Tab
fill 12
press Tab
fill 28.2.2025
press Tab
fill '20 000'
press alt+p
wait_until "the first payment is added" sleep 0.5
fill 30.4.2025
press Tab
fill '40 000'
press alt+p
wait_until "the second payment is added" sleep 0.5
keep_window frmPostupny

# The invoice for it
put_aside
menu z v
expect "the invoice's number" "(nothing)" field_text
keep_window frmFaktura
close_window

# The main window at a size at which its menu can be read
xdotool windowsize --sync "$(open_windows main)" 760 330
press alt+v
wait_until "the menu is open" is_open popup
read -r left top width height < <(main_window)
keep_page frmMenu "$left" "$top" "$width" "$height"
