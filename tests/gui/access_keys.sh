#!/usr/bin/env bash
# access_keys.sh PROGRAM PICTURES
# Alt+V, Alt+K and Alt+N belong to menus and to buttons of a calculation window. The window in front wins,
# and the menus have the keys back when it is gone.
source "$(dirname "$0")/desktop.sh" "$2"
start_desktop

# Without the help, "Nápověda" is seen by the message that it is missing.
cp "$1" "$(dirname "$1")"/{cnb,repo}.dat "$scratch"
start_velta "$scratch/velta"
open_main_window
open_calculation
press Tab Tab
fill 10000

press alt+v
stays "Alt+V opens no menu" is_closed popup
type_text 7
expect "the amount after \"Nový výpočet\" and the key 7" 7 field_text

press alt+n
wait_until "Alt+N asks for the help, which is missing" is_open box
picture help-is-missing
answer_box
expect "the amount after the message" 7 field_text

press F10
wait_until "F10 leads to the menus all the same" is_open popup
press Escape Escape
wait_until "the menu is closed" is_closed popup

press alt+k
stays "Alt+K opens no menu and does not end the program" is_closed popup
wait_until "the program runs" program_runs
for letter in v n k; do
  press "alt+$letter"
  wait_until "Alt+${letter^^} is the menu's again" is_open popup
  press Escape Escape
  wait_until "the menu is closed" is_closed popup
done
press alt+F4
expect_exit "the end" 0
