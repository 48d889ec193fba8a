#!/usr/bin/env bash
# clipboard_manager.sh PROGRAM PICTURES MANAGER
# What was copied outlives the program: it is handed to the desktop's clipboard manager, whichever way it ends.
source "$(dirname "$0")/desktop.sh" "$2"
start_desktop
manager=$3

for way in "its own command" "a signal"; do
  "$manager" >"$scratch/kept" &
  desktop_pids=($! "${desktop_pids[@]}")
  wait_until "the clipboard manager runs" grep -q ready "$scratch/kept"
  start_velta "$1"
  open_main_window
  open_calculation
  enter_single 10.3.2005 20.6.2005 10000
  press Tab Tab
  fill 8,5
  report=$(copied_report)
  if [[ $way == "a signal" ]]; then kill -TERM "$program_pid"; else press alt+F4; fi
  expect_exit "the end by $way" 0
  expect_text "what the clipboard manager has kept" "ready"$'\n'"$report" "$(<"$scratch/kept")"
done
