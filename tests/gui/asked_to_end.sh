#!/usr/bin/env bash
# asked_to_end.sh PROGRAM PICTURES
# Signals end the program like its own command, whatever is open, with its settings whole; its options are answered
# without a display.
source "$(dirname "$0")/desktop.sh" "$2"

# Without a display, for the desktop is not there yet.
console() { env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM LC_ALL=C.UTF-8 "$@"; }
expect_text "the version" "Velta 1.0.0" "$(console "$1" --version)"
console "$1" --help | grep -q '^  -v, --version ' || fail "no help on the console"
code=0
console "$1" --neznama >"$scratch/out" 2>"$scratch/err" || code=$?
expect_text "the exit code of an unknown option" 1 "$code"
expect_text "the answer to an unknown option" "Neznámá volba 'neznama'." "$(head -n 1 "$scratch/err")"
[[ ! -s $scratch/out ]] || fail "an unknown option is answered on standard output"

start_desktop
ask_to_end() {
  kill -s "$1" "$program_pid"
  expect_exit "$1 $2" 0
}

start_velta "$1"
wait_until "the splash or the main window is open" shows_itself
ask_to_end TERM "at the start"

start_velta "$1"
open_main_window
settings=$(<"$XDG_CONFIG_HOME/velta/velta.ini")
open_calculation
enter_single 10.3.2005 20.6.2005 10000
ask_to_end HUP "with a calculation open"

start_velta "$1"
open_main_window
open_calculation
press Tab
fill 1.1.2005  # before the due date
press Tab
wait_until "the message box has the keyboard" is_active box
ask_to_end TERM "with a message box open"

start_velta "$1"
open_main_window
press alt+v
wait_until "a menu is open" is_open popup
ask_to_end TERM "with a menu open"

start_velta "$1"
open_main_window
open_calculation
enter_single 10.3.2005 20.6.2005 10000
press Tab Tab
fill 8,5
menu z t
wait_until "the print dialog has the keyboard" is_active box
ask_to_end TERM "with the print dialog open"
expect_text "the settings" "$settings" "$(<"$XDG_CONFIG_HOME/velta/velta.ini")"
