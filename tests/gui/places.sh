#!/usr/bin/env bash
# places.sh PROGRAM PICTURES
# The windows come back where the user left them, start after start, and nothing of it is in the settings.
source "$(dirname "$0")/desktop.sh" "$2"
need_tools xwininfo
start_desktop
folder=$XDG_CONFIG_HOME/velta

# main_place: left edge, upper edge, width and height
main_place() {
  xwininfo -id "$(open_windows main)" | sed -nE 's/^ +(Absolute.*|Width|Height): +//p' | paste -sd ' '
}
is_maximised() { xprop -id "$(open_windows main)" _NET_WM_STATE | grep -q MAXIMIZED_VERT; }
is_not_maximised() { ! is_maximised; }
double_click_title() {
  local left top
  read -r left top _ <<<"$(main_place)"
  xdotool mousemove $((left + 200)) $((top - 8)) click --repeat 2 --delay 50 1
}
end() {
  press alt+F4
  expect_exit "the end" 0
}

start_velta "$1"
open_main_window
settings=$(<"$folder/velta.ini")
xdotool windowsize --sync "$(open_windows main)" 1130 740
xdotool windowmove --sync "$(open_windows main)" 63 47
sleep 0.5
place=$(main_place)
picture 1-moved
end

for start in second third fourth; do
  start_velta "$1"
  open_main_window
  expect "the place at the $start start" "$place" main_place
  end
done

start_velta "$1"
open_main_window
double_click_title
wait_until "the window is maximised" is_maximised
end
start_velta "$1"
open_main_window
wait_until "the window is maximised again" is_maximised
picture 2-maximised
double_click_title
wait_until "the window is not maximised" is_not_maximised
expect "the place before" "$place" main_place
end

# A window inside the main window, dragged by its title.
start_velta "$1"
open_main_window
open_calculation
read -r left top _ <<<"$(main_place)"
xdotool mousemove $((left + 150)) $((top + 80)) mousedown 1
for step in 20 40 60; do
  xdotool mousemove $((left + 150 + step)) $((top + 80 + step / 2))
  sleep 0.1
done
xdotool mouseup 1
sleep 0.3
picture 3-child-moved
end
child=$(grep '^frmJednotlivy.place=' "$folder/windows.ini")
start_velta "$1"
open_main_window
open_calculation
sleep 0.3
picture 4-child-again
end
expect_text "the place of the calculation" "$child" "$(grep '^frmJednotlivy.place=' "$folder/windows.ini")"
expect_text "the settings" "$settings" "$(<"$folder/velta.ini")"
