#!/usr/bin/env bash
# close.sh PROGRAM PICTURES
# Every way out ends the program with exit code 0, also with a calculation open or unfinished.
source "$(dirname "$0")/desktop.sh" "$2"
start_desktop

# The settings cannot be written below a file: the program says so and stays at its splash, once and for all.
touch "$scratch/file"
XDG_CONFIG_HOME=$scratch/file start_velta "$1"
wait_until "the program cannot write its settings" is_active box
sleep 0.3
picture no-settings
press Return
wait_until "the message box is closed" is_closed box
wait_until "the splash has the keyboard" is_active splash
press Escape
expect_exit "Esc on the splash" 0

start_velta "$1"
open_main_window
press alt+F4
expect_exit "Alt+F4" 0

start_velta "$1"
open_main_window
menu k k
expect_exit "Konec programu" 0

start_velta "$1"
open_main_window
open_calculation
press alt+F4
expect_exit "Alt+F4 with a calculation open" 0

start_velta "$1"
open_main_window
open_calculation
press Tab
fill 1.1.2005  # before the due date
press Tab
wait_until "the program refuses the payment date" is_open box
wait_until "the message box has the keyboard" is_active box
press alt+F4
wait_until "Alt+F4 puts away the message box alone" is_active main
wait_until "the program runs" program_runs
press alt+F4
expect_exit "Alt+F4 after a refused date" 0
