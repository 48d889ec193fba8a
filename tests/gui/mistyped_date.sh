#!/usr/bin/env bash
# mistyped_date.sh PROGRAM PICTURES
# A date that there is not: the program says so, keeps what was typed and the keyboard with it, and does nothing
# else before the date is corrected or taken back.
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
press alt+k
answer_box
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
press alt+F4
expect_exit "the end" 0
