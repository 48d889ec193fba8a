#!/usr/bin/env bash
# print_to_pdf.sh PROGRAM PICTURES
# A user without a printer prints his calculation to a file, by keys alone.
source "$(dirname "$0")/desktop.sh" "$2"
need_tools pdftotext pdftoppm
start_desktop
export CUPS_SERVER=$scratch/no-printers
printout="$HOME/Výpočet úroku z prodlení 10 000 Kč 10.3.2005.pdf"

# page_is: what is on the printed page is what was wanted
page_is() { diff "$scratch/wanted" <(printed_lines "$printout"); }

open_print_dialog() {
  press alt+t
  wait_until "the print dialog has the keyboard" is_active box
  sleep 0.3  # until it is painted
}
two_boxes() { [[ $(open_windows box | wc -l) == 2 ]]; }

start_velta "$1"
open_main_window
open_calculation
enter_single 10.3.2005 20.6.2005 '10 000'
press Tab Tab
fill 8,5

open_print_dialog
picture 1-print-dialog
press Escape
wait_until "the print dialog is closed" is_closed box
wait_until "the keyboard is back" is_active main
[[ ! -e $printout ]] || fail "a cancelled dialog has printed"

open_print_dialog
press alt+t
wait_until "the print dialog is closed" is_closed box
# 10 000 x 8,5 % x 102 / 365 = 237,534...; the first run rounds up to whole tens of haléř.
cat >"$scratch/wanted" <<'PAGE'
    Podklady pro výpočet úroku z prodlení
    *************************************************************************
    Úrok z prodlení ode dne:                                    10.3.2005
    Úrok z prodlení ke dni:                                     20.6.2005
    Počet dnů prodlení:                                         102
    Úroková sazba:                                              8,5 % ročně
    Dlužná částka:                                              10 000,00 Kč
    Úrok z prodlení                                             237,60 Kč
    Úrok z prodlení + dlužná částka                             10 237,60 Kč
    *************************************************************************
PAGE
wait_until "the file holds the page, column by column" page_is
sleep 0.5  # the keyboard comes back to the button, whose hint must not hide where the file is
picture 2-where-it-is
pdftoppm -r 80 -png "$printout" "$pictures/2-page"

# The file is not replaced without a question, and Esc answers it with no.
wait_until "the keyboard is back" is_active main
cp -p "$printout" "$scratch/printed.pdf"
open_print_dialog
press alt+t
wait_until "the program asks before it replaces the file" two_boxes
sleep 0.3
picture 3-replace-the-file
press Escape
wait_until "the question is closed" is_active box
press Escape
wait_until "the print dialog is closed" is_closed box
cmp "$printout" "$scratch/printed.pdf" || fail "the file has been replaced"
echo "ok: the file is as it was"

# With a yes both dialogs go at one stroke: to a slow desktop the print dialog is gone before it can have the
# keyboard back. The first of the desktop's processes is the window manager.
wait_until "the keyboard is back" is_active main
open_print_dialog
press alt+t
wait_until "the program asks before it replaces the file" two_boxes
sleep 0.3
kill -STOP "${desktop_pids[0]}"
press alt+a
wait_until "both dialogs are closed" is_closed box
sleep 0.3  # until they are gone for good
kill -CONT "${desktop_pids[0]}"
wait_until "the file holds the page again" page_is

# The user names another file, in another folder and without its ending.
mkdir "$HOME/tisk"
wait_until "the keyboard is back" is_active main
open_print_dialog
press alt+s ctrl+a
type_text "$HOME/tisk/jiny"
sleep 0.3
press Tab  # away from the names that the field may offer to complete
sleep 0.3
press alt+t
wait_until "the print dialog is closed" is_closed box
printout=$HOME/tisk/jiny.pdf
wait_until "the file of that name holds the same page" page_is

# The next one is suggested beside it.
wait_until "the keyboard is back" is_active main
open_print_dialog
press alt+t
wait_until "the print dialog is closed" is_closed box
printout="$HOME/tisk/Výpočet úroku z prodlení 10 000 Kč 10.3.2005.pdf"
wait_until "the file beside it holds the same page" page_is

press alt+F4
expect_exit "the end" 0
