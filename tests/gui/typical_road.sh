#!/usr/bin/env bash
# typical_road.sh PROGRAM PICTURES
# The road that most users go: from the first start to the report on the clipboard, by keys alone.
source "$(dirname "$0")/desktop.sh" "$2"
start_desktop

start_velta "$1"
wait_until "the program shows itself" shows_itself
sleep 0.2  # until it is painted
picture 1-start
open_main_window
picture 2-main-window
# Every picture of the toolbar has some of the logo's orange, and nothing else up there has.
wait_until "the toolbar shows its pictures" shows_orange "$(open_windows main)" 2000x70+0+0 150

press alt+v
wait_until "the menu is open" is_open popup
picture 3-menu
press Escape Escape
wait_until "the menu is closed" is_closed popup
open_calculation

enter_single 10.3.2005 20.6.2005 '10 000'
press Tab Down Down Down  # from "% ročně" to "Dle Diskontní sazby ČNB"
report=$(copied_report)
# 10 000 x 2,5 % x 102 / 365 = 69,863...; the first run rounds up to whole tens of haléř.
expect_line "$report" "Úrok z prodlení ode dne:" 10.3.2005
expect_line "$report" "Úrok z prodlení ke dni:" 20.6.2005
expect_line "$report" "Počet dnů prodlení:" 102
expect_line "$report" "Úroková sazba:" "2,5 %"
expect_line "$report" "Dlužná částka:" "10 000,00 Kč"
expect_line "$report" "Úrok z prodlení" "69,90 Kč"
expect_line "$report" "Úrok z prodlení + dlužná částka" "10 069,90 Kč"
picture 4-discount-rate

# Back to the due date; Esc leaves it as it was, Enter takes the day.
press shift+Tab shift+Tab shift+Tab
expect "the due date" 10.3.2005 field_text
press F4
wait_until "the calendar is open" is_open popup
press Down
sleep 0.3
picture 5-calendar
press Escape
wait_until "the calendar is closed" is_closed popup
expect "the due date" 10.3.2005 field_text
press F4
wait_until "the calendar is open" is_open popup
press Down Return
wait_until "the calendar is closed" is_closed popup
expect "the due date, a week later" 17.3.2005 field_text

# From 28.4.2005 on the law goes by the other rate: the program says so and changes the kind.
fill 10.5.2005
press Tab
wait_until "the program tells the change of the rate" is_open box
sleep 0.3
picture 6-change-of-rate
answer_box
expect "the payment date" 20.6.2005 field_text
fill 10.5.2006
press Tab
report=$(copied_report)
# 10 000 x 9,5 % x 51 / 365, 10 000 x 8,75 % x 184 / 365 and 10 000 x 9 % x 130 / 365; the total is
# rounded up after each of them: 132,80, 573,90, 894,50.
expect_line "$report" "Úrok z prodlení" "132,74 Kč"
expect_line "$report" "Úrok z prodlení" "441,10 Kč"
expect_line "$report" "Úrok z prodlení" "320,55 Kč"
expect_line "$report" "Úrok z prodlení celkem" "894,50 Kč"
expect_line "$report" "Úrok z prodlení + dlužná částka" "10 894,50 Kč"
picture 7-repo-rate

press alt+F4
expect_exit "the end" 0
