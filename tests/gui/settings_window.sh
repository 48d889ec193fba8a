#!/usr/bin/env bash
# settings_window.sh PROGRAM PICTURES
# The settings by keys alone: the rounding is stored at once, the texts on request, and both are there at
# the next start.
source "$(dirname "$0")/desktop.sh" "$2"
start_desktop
store=$XDG_CONFIG_HOME/velta/velta.ini

stored() { sed -n "s/^$1=//p" "$store"; }
open_settings() {
  menu v n
  expect "the invoice's text" "$1" field_text
}

start_velta "$1"
open_main_window
open_settings "Fakturujeme Vám úroky z prodlení dle výpočtu"
picture 1-invoice
fill "Fakturujeme uroky"
press Return
expect "the first closing line" "Zde můžete zadat libovolný text" field_text
fill "Dekujeme"

# Before the text stand the options, of which Tab stops at the chosen one.
press shift+Tab shift+Tab Down
expect "the stored rounding" koruny stored Zaokrouhlit
expect_text "the text is not stored yet" "Fakturujeme Vám úroky z prodlení dle výpočtu" "$(stored TextRadku)"

# From the options back to the pages, and on to the next page. The arrow keys stay on the pages' buttons.
press shift+Tab Right Tab
expect "the firm's name" "Název vaší firmy" field_text
picture 2-firm
fill "Pekarna U Dubu"
press alt+p
wait_until "the program says when the change counts" is_open box
sleep 0.3
picture 3-applied
expect "the stored name" "Pekarna U Dubu" stored Nazev
answer_box
expect_text "the stored text" "Fakturujeme uroky" "$(stored TextRadku)"
expect_text "the stored closing line" "Dekujeme" "$(stored Dovetek0)"

press shift+Tab
for page in 4-discount-rates 5-repo-rates; do
  press Right
  sleep 0.3
  picture $page
done

press alt+F4
expect_exit "the first run" 0

start_velta "$1"
open_main_window
open_settings "Fakturujeme uroky"
press alt+F4
expect_exit "the second run" 0
expect_text "the rounding after the second run" koruny "$(stored Zaokrouhlit)"
