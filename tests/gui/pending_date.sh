#!/usr/bin/env bash
# pending_date.sh PROGRAM PICTURES
# A date is typed and the keyboard still in its field when the user prints, copies or invoices, by mouse or by keys:
# what he gets is computed with that date. With a date that is refused he gets nothing.
source "$(dirname "$0")/desktop.sh" "$2"
need_tools pdftotext
start_desktop
start_accessibility
export CUPS_SERVER=$scratch/no-printers
start_velta "$1"
open_main_window
open_calculation

enter_single 1.5.2005 20.6.2005 '10 000'
press Tab Down Down Down
answer_box  # the bank's other rate
press shift+Tab shift+Tab

click() {
  point_at "$1"
  xdotool click 1
}
copied() { clipboard | grep -qxF -- $'\t'"$1"$'\t'"$2"$'\r'; }

# 10 000 x 9,5 % x 60 / 365 and 10 000 x 8,75 % x 173 / 365, rounded up after each of them.
fill 20.12.2005
empty_clipboard
click "Kopírovat výpočet do schránky"
wait_until "the copy by the toolbar is that of the date" copied "Úrok z prodlení celkem" "571,00 Kč"

# 10 000 x 9,5 % x 50 / 365
fill 20.6.2005
report=$(copied_report)
expect_line "$report" "Úrok z prodlení celkem" "130,20 Kč"

fill 21.6.2005
press alt+t
wait_until "the print dialog has the keyboard" is_active box
press alt+s ctrl+a
type_text "$HOME/uroky.pdf"
sleep 0.3
press Tab
sleep 0.3
press alt+t
wait_until "the print dialog is closed" is_closed box
printed() { printed_lines "$HOME/uroky.pdf" | grep -q "$1"; }
wait_until "the page is that of the date" printed "ke dni: *21.6.2005"

wait_until "the keyboard is back" is_active main

# Paid before it was due: the program says so, and nothing is copied.
fill 1.4.2005
empty_clipboard
click "Kopírovat výpočet do schránky"
answer_box
expect "the clipboard" "(nothing)" clipboard

# Between a button's going down and up nothing may come, else it stays down and its click is lost.
press ctrl+a
type_text 31.2.2005
point_at "Tisk faktury"
xdotool mousedown 1
stays "no message comes while the button is down" is_active main
picture 1-button-down
xdotool mouseup 1
wait_until "the message comes when it is let go" is_active box
sleep 0.3
picture 2-button-up
answer_box
expect "what was typed" 31.2.2005 field_text

# Let go elsewhere it is no click, and typing goes on.
point_at "Tisk faktury"
xdotool mousedown 1 mousemove 1279 899 mouseup 1
stays "no message comes" is_active main
expect "what was typed, still" 31.2.2005 field_text

fill 20.6.2005
click "Tisk faktury"
sleep 0.5
fill 2026001
for text in Dluznik 'Kratka 3' Praha; do
  press Tab
  fill "$text"
done
press Tab Tab Tab Tab Tab Tab Tab Tab Tab Tab Tab
fill 14
press alt+t
wait_until "the print dialog has the keyboard" is_active box
press alt+s ctrl+a
type_text "$HOME/faktura.pdf"
sleep 0.3
press Tab
sleep 0.3
press alt+t
wait_until "the print dialog is closed" is_closed box
invoiced() { printed_lines "$HOME/faktura.pdf" | grep -q "$1"; }
wait_until "the invoice is that of the date" invoiced "Uhrazená dne *20.6.2005"
wait_until "so is its interest" invoiced "130,20 Kč"
press alt+F4
expect_exit "the end" 0
