#!/usr/bin/env bash
# mistyped_date.sh PROGRAM PICTURES
# A date that there is not: the program says so, keeps what was typed and the keyboard with it, and computes, prints,
# copies and invoices nothing before the date is corrected or taken back. For help and for closing it is not asked.
source "$(dirname "$0")/desktop.sh" "$2"
start_desktop
start_velta "$1"
open_main_window
menu v n
open_calculation

press ctrl+a
type_text 31.2.2004
press Tab
wait_until "the message box has the keyboard" is_active box
sleep 0.3
picture 1-message
answer_box
expect "what was typed" 31.2.2004 field_text
for command in alt+t alt+f alt+v; do
  press $command
  answer_box
  expect "what was typed, after $command" 31.2.2004 field_text
done
menu z k
answer_box
press F1
wait_until "the help is open" is_active help
press Escape
wait_until "the help is closed" is_closed help
wait_until "the keyboard is back" is_active main
expect "what was typed, still" 31.2.2004 field_text
press ctrl+Tab
answer_box
expect "what was typed, and not the other window's text" 31.2.2004 field_text
press Escape
expect "the former date" "$(date -d '12:00 15 days ago' +%-d.%-m.%Y)" field_text
fill 28.2.2004
press Tab
expect "the next field" "$(date +%-d.%-m.%Y)" field_text
stays "no message comes" is_active main
press shift+Tab ctrl+a
type_text 31.2.2004
press alt+k
stays "no message comes" is_active main
press alt+k  # the settings
press alt+k
wait_until "both windows are closed, for the menu has its key again" is_open popup
press Escape Escape
wait_until "the menu is closed" is_closed popup
press alt+F4
expect_exit "the end" 0
