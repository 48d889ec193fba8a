#!/usr/bin/env bash
# progressive_road.sh PROGRAM PICTURES
# A debt paid in two parts, entered by keys alone: the payments, the report, and the switch to the other
# calculation window.
source "$(dirname "$0")/desktop.sh" "$2"
need_tools pdftotext pdftoppm
start_desktop
export CUPS_SERVER=$scratch/no-printers
printout="$HOME/Výpočet úroku z prodlení 10 000 Kč 10.3.2005.pdf"
total_is_printed() { printed_lines "$printout" | grep -qx '    Úrok z prodlení celkem : *251,60 Kč'; }

# report_has LINE: the report has this line, closed by CR LF
report_has() {
  grep -qxF -- "$1"$'\r' <<<"$report" || fail "no line \"$1\" in the report: $report"
  echo "ok: $1"
}

start_velta "$1"
open_main_window
menu v p
wait_until "the empty total has the keyboard" test "$(field_text)" = "(nothing)"
fill '10 000'
press Tab
expect "the due date" "$(date +%-d.%-m.%Y)" field_text
fill 10.3.2005
press Tab
expect "the kind of rate" "% ročně" field_text
press Tab
fill 8,5
press Tab
fill 20.6.2005
press Tab
fill 4000
picture 1-before-the-first-payment
# However long the key is held down, it is one payment.
xdotool keydown alt keydown p sleep 1.2 keyup p keyup alt
wait_until "the payment has been added" sleep 0.5
picture 2-first-payment

# The next payment begins with its date; the invoice is locked now.
expect "the payment date" 20.6.2005 field_text
fill 30.6.2005
press Tab
expect "the payment before" 4000 field_text
fill 7000
press alt+p
answer_box  # more than is owed: refused, and the field is empty
expect "the refused payment" "(nothing)" field_text
type_text 6000
press alt+p
wait_until "the payment has been added" sleep 0.5
picture 3-paid

report=$(copied_report)
# 4000 x 8,5 % x 102 / 365 = 95,013... and 6000 x 8,5 % x 112 / 365 = 156,493..., each rounded up to whole
# tens of haléř by the first run's rule.
report_has $'Úrok z prodlení ode dne:\t10.3.2005'
report_has $'Úrok z prodlení ke dni:\t20.6.2005'
report_has $'Částečná úhrada ve výši:\t4 000,00 Kč'
report_has $'Počet dnů prodlení:\t\t102'
report_has $'Úroková sazba:\t\t8,5 % ročně'
report_has $'Úrok z prodlení\t\t95,10 Kč'
report_has $'Částečná úhrada ve výši:\t6 000,00 Kč'
report_has $'Počet dnů prodlení:\t\t112'
report_has $'Úrok z prodlení\t\t156,50 Kč'
[[ $report == *$'\r\nÚrok z prodlení celkem\t251,60 Kč' ]] || fail "the report does not end with the total: $report"
echo "ok: the total"

# The last payment has led to the print button.
press space
wait_until "the print dialog has the keyboard" is_active box
sleep 0.3
press alt+t
wait_until "the print dialog is closed" is_closed box
wait_until "the file ends with the total" total_is_printed
pdftoppm -r 80 -png "$printout" "$pictures/3-page"

# The repo regime: from "% ročně" four items down.
press alt+v
wait_until "the new calculation has begun" sleep 0.5
expect "the total" "(nothing)" field_text
type_text 10000
press Tab
fill 10.5.2006
press Tab
press Down Down Down Down
press Tab  # the rate is closed
expect "the payment date" 30.6.2005 field_text
fill 15.1.2007
press Tab
fill 10000
press alt+p
wait_until "the payment has been added" sleep 0.5
picture 4-repo-rate
report=$(copied_report)
# 10 000 x 9 % x 51 / 365, x 9 % x 184 / 365 and x 9,5 % x 15 / 365: the sum is not rounded once more.
report_has $'Úrok z prodlení        :\t125,75 Kč'

# Only one calculation is open at a time. Alt+V is the button here, so the menu is reached from its
# neighbour.
menu z Left
press j
expect "the other window's due date" "$(date -d '12:00 15 days ago' +%-d.%-m.%Y)" field_text
picture 5-the-other-window

press alt+F4
expect_exit "the end" 0
