#!/usr/bin/env bash
# history.sh PROGRAM PICTURES
# The version history is read with the keys and, for want of a printer, printed to a file. Without its file
# the window says so.
source "$(dirname "$0")/desktop.sh" "$2"
need_tools pdftotext pdftoppm
start_desktop
export CUPS_SERVER=$scratch/no-printers
printout="$HOME/Historie verzí.pdf"
history=$(dirname "$1")/HISTORY.TXT

open_history() {
  menu n Up  # to the last command
  press Return
}
text_is_history() { [[ $(field_text) == "$(tr -d '\r' <"$history")" ]]; }
# The printed lines are those of the file, the blank ends of pages apart.
page_is() { diff <(tr -d '\r' <"$history" | grep -v '^$') <(printed_lines "$printout" | grep -v '^ *$'); }

start_velta "$1"
open_main_window
open_history
wait_until "the text has the keyboard" text_is_history
picture 1-history

press alt+t
wait_until "the print dialog has the keyboard" is_active box
press Escape
wait_until "the print dialog is closed" is_closed box
stays "there is no message" is_closed box
wait_until "the keyboard is back" is_active main
press alt+t
wait_until "the print dialog has the keyboard" is_active box
sleep 0.3
press alt+t
wait_until "the print dialog is closed" is_closed box
wait_until "the file holds the history" page_is
pdftoppm -r 80 -png "$printout" "$pictures/2-page"
press alt+F4
expect_exit "the end" 0

cp "$1" "$scratch"
start_velta "$scratch/velta"
open_main_window
open_history
wait_until "the program misses its history" is_open box
sleep 0.3
picture 3-no-history
answer_box
stays "there is no further message" is_closed box
press alt+F4
expect_exit "the end without a history" 0
