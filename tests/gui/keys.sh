#!/usr/bin/env bash
# keys.sh PROGRAM PICTURES
# The commands' own keys, dates as people type them, pasted amounts, and windows that close or are restored.
source "$(dirname "$0")/desktop.sh" "$2"
start_desktop
need_tools xwininfo
start_velta "$1"
open_main_window
press F10
wait_until "the menu is open" is_open popup
sleep 0.3
picture 1-menu
press Escape Escape
wait_until "the menu is closed" is_closed popup

# On a Czech keyboard the key of 1 writes "+", that of 2 "ě".
this_year=$(date +%Y)
due=$(date -d '12:00 15 days ago' +%-d.%-m.%Y)
press ctrl+plus
expect "the due date of a single calculation" "$due" field_text
press ctrl+ecaron
expect "the total of a progressive calculation" "(nothing)" field_text
press ctrl+shift+1
expect "the due date of a single calculation" "$due" field_text

# take TYPED DATE: the field makes the date of what is typed
take() {
  press ctrl+a
  type_text "$1"
  press Return
  expect "$1" "$2" field_text
}
press Tab  # to the payment date, which may be any day after the due date
for typed in 10.3.35 100335 10032035 2035-03-10 '10. 3. 2035' 10,3,35; do
  take 1.2.2035 1.2.2035
  take "$typed" 10.3.2035
done
press shift+Tab
take 10.3. "10.3.$this_year"
take 10.3.05 10.3.2005
press Home Up Up
expect "two days later" 12.3.2005 field_text
press Home Right Right Right Down
expect "a month earlier" 12.2.2005 field_text
press End Up
expect "a year later" 12.2.2006 field_text
press Escape
expect "the date before the arrow keys" 10.3.2005 field_text
press Tab
take 20.6.05 20.6.2005

# paste TEXT: in place of what the field holds
paste() {
  printf '%s' "$1" | xclip -i -selection clipboard >/dev/null 2>&1
  press ctrl+a ctrl+v
}
press Tab Tab Tab
fill 10
press shift+Tab shift+Tab
paste '12.345,50 Kč'
press ctrl+shift+c
wait_until "the report is on the clipboard" report_is_copied
# 12 345,50 x 10 % x 102 / 365 = 344,997..., rounded up.
expect_line "$(clipboard)" "Dlužná částka:" "12 345,50 Kč"
expect_line "$(clipboard)" "Úrok z prodlení" "345,00 Kč"
paste 1.000
answer_box
expect "the amount that may be one or a thousand" "(nothing)" field_text
fill 123

# A maximised window fills the main window; its restore button stands at the end of the menu bar.
title() { xdotool getactivewindow getwindowname; }
geometry=$(xwininfo -id "$(xdotool getactivewindow)")
x=$(awk '/Absolute upper-left X/ { print $NF }' <<<"$geometry")
y=$(awk '/Absolute upper-left Y/ { print $NF }' <<<"$geometry")
width=$(awk '/Width:/ { print $NF }' <<<"$geometry")
xdotool mousemove $((x + 200)) $((y + 82)) click --repeat 2 --delay 60 1 mousemove 1279 899
expect "the title of the maximised window" "Velta - [Jednotlivý výpočet]" title
picture 2-maximised
expect "the amount" 123 field_text
xdotool mousemove $((x + width - 24)) $((y + 10)) click 1 mousemove 1279 899
expect "the title of the restored window" "Velta" title
expect "the amount, the window being restored" 123 field_text
picture 3-restored

press ctrl+p
wait_until "Ctrl+P asks where to print" is_open box
press Escape
wait_until "the dialog is closed" is_closed box
press F1
wait_until "the help is open" is_active help
press Escape
wait_until "the help is closed" is_closed help

press F10
wait_until "the menu is open" is_open popup
press n
expect "the settings' text" "Fakturujeme Vám úroky z prodlení dle výpočtu" field_text
press ctrl+F6
expect "the amount in the next window" 123 field_text
press ctrl+F6
expect "the settings' text" "Fakturujeme Vám úroky z prodlení dle výpočtu" field_text
press Escape
expect "the settings, which Esc does not close" "Fakturujeme Vám úroky z prodlení dle výpočtu" field_text
# The page that is shown already.
press shift+Tab shift+Tab
press space
expect "the settings' first box" "Fakturujeme Vám úroky z prodlení dle výpočtu" field_text
press ctrl+F4
expect "the amount, the settings being closed" 123 field_text

# history, about: Esc closes them, and the keyboard is back.
for item in o p; do
  press F10
  wait_until "the menu is open" is_open popup
  press Right Right Right
  if [[ $item == p ]]; then press p; else press Up Return; fi
  sleep 0.5
  picture "4-$item"
  press Escape
  sleep 0.3
  expect "the amount after Esc" 123 field_text
done
press alt+F4
expect_exit "the end" 0
