#!/usr/bin/env bash
# help.sh PROGRAM PICTURES
# The help opens from the menu, by F1 and by the button, each at its page; it closes by Esc and with the program.
source "$(dirname "$0")/desktop.sh" "$2"
start_desktop

help_titles() { for id in $(open_windows help); do xdotool getwindowname "$id"; done | sort; }
start_page="Nápověda programu Velta"
single_page="Jednotlivý výpočet – $start_page"
help_has_the_keyboard() { wait_until "the help has the keyboard" is_active help; }

start_velta "$1"
open_main_window
menu n o
help_has_the_keyboard
expect "the menu's page" "$start_page" help_titles
sleep 0.3
picture 1-contents
press Escape
wait_until "Esc closes the help" is_closed help
wait_until "the main window has the keyboard" is_active main

open_calculation
press F1
help_has_the_keyboard
expect "the page of F1 in the single calculation" "$single_page" help_titles
sleep 0.3
picture 2-single
press Tab Return  # the first link
expect "the page behind the link" "Zákonná sazba podle data splatnosti – $start_page" help_titles
sleep 0.3
picture 3-lawful-rate
press ctrl+f
type_text 2013
press Return Return
sleep 0.3
picture 4-found
press alt+Left
expect "the page before" "$single_page" help_titles
press ctrl+f
type_text danovy
sleep 0.3
picture 5-pages-with-the-word
press Return
expect "the next page with the word" "Penalizační faktura – $start_page" help_titles
sleep 0.3
picture 6-found-without-accents
press Escape
wait_until "the help is closed" is_closed help

wait_until "the main window has the keyboard" is_active main
press alt+n
help_has_the_keyboard
expect "the page of the button" "$single_page" help_titles
xdotool windowactivate --sync "$(open_windows main)"
wait_until "the main window has the keyboard" is_active main
press alt+F4
expect_exit "the end, with the help open" 0
wait_until "the help has gone too" is_closed help

# A damaged help file is reported like a missing one.
cp "$1" "$(dirname "$1")"/{cnb,repo}.dat "$scratch"
head -c 30000 "$(dirname "$1")/VELTA.CHM" >"$scratch/VELTA.CHM"
start_velta "$scratch/velta"
open_main_window
menu n o
wait_until "the program cannot read its help" is_open box
sleep 0.3
picture 7-damaged
answer_box
stays "there is no help window" is_closed help
press alt+F4
expect_exit "the end" 0
