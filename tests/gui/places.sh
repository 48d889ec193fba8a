#!/usr/bin/env bash
# places.sh PROGRAM PICTURES
# The windows come back where the user left them, start after start, and nothing of it is in the settings.
source "$(dirname "$0")/desktop.sh" "$2"
start_desktop
folder=$XDG_CONFIG_HOME/velta

main_place() { xdotool getwindowgeometry "$(open_windows main)" | sed -n 's/ (screen.*//; s/^  //p' | paste -sd ' '; }
is_maximised() { xprop -id "$(open_windows main)" _NET_WM_STATE | grep -q MAXIMIZED_VERT; }
is_not_maximised() { ! is_maximised; }
end() {
  press alt+F4
  expect_exit "the end" 0
}

start_velta "$1"
open_main_window
settings=$(<"$folder/velta.ini")
xdotool windowsize --sync "$(open_windows main)" 840 610
xdotool windowmove --sync "$(open_windows main)" 123 77
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
press super+Up  # no key of the window manager's: nothing happens
wmctrl -i -r "$(open_windows main)" -b add,maximized_vert,maximized_horz
wait_until "the window is maximised" is_maximised
end
start_velta "$1"
open_main_window
wait_until "the window is maximised again" is_maximised
picture 2-maximised
wmctrl -i -r "$(open_windows main)" -b remove,maximized_vert,maximized_horz
wait_until "the window is not maximised" is_not_maximised
expect "the place before" "$place" main_place
end

# A window inside the main window: dragged by its title, then as large as there is room for.
start_velta "$1"
open_main_window
open_calculation
press alt+minus
wait_until "the window's own menu is open" is_open popup
press s  # Přesunout
press Right Right Right Down Down Return
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
