#!/usr/bin/env bash
# missing_files.sh PROGRAM PICTURES
# Without the rate tables the program says so, and computes by a rate that is typed.
source "$(dirname "$0")/desktop.sh" "$2"
start_desktop

cp "$1" "$scratch"
start_velta "$scratch/velta"
open_main_window
menu v j
for table in discount repo; do
  wait_until "the program misses the $table rates" is_open box
  sleep 0.3
  picture "no-$table-rates"
  answer_box
done
stays "there is no further message" is_closed box
fill 10.3.2005
press Tab
fill 10.3.2006
press Tab
fill 10000
press Tab Tab
fill 10
report=$(copied_report)
# A whole year at 10 %
expect_line "$report" "Úrok z prodlení" "1 000,00 Kč"
expect_line "$report" "Úrok z prodlení + dlužná částka" "11 000,00 Kč"
picture typed-rate

# The bank's kind has nothing to go by, and says so; the last figures stay.
press ctrl+a Delete
press shift+Tab Down Down Down  # from "% ročně" to "Dle Diskontní sazby ČNB"
wait_until "the program has no rate" is_open box
sleep 0.3
picture no-rate
answer_box
stays "there is no further message" is_closed box
report=$(copied_report)
expect_line "$report" "Úroková sazba:" "10 % ročně"
expect_line "$report" "Úrok z prodlení" "1 000,00 Kč"
press alt+F4
expect_exit "the end" 0
