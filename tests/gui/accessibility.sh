#!/usr/bin/env bash
# accessibility.sh PROGRAM PICTURES
# The single calculation as somebody does it who does not see the screen: through the accessibility bus alone,
# with the names that a screen reader says.
source "$(dirname "$0")/desktop.sh" "$2"
start_desktop
start_accessibility

start_velta "$1"
open_main_window
empty_clipboard
"$debian_python" "$(dirname "$0")/accessibility.py" || fail "the road through the accessibility bus"
picture calculated
wait_until "the report is on the clipboard" report_is_copied
expect_line "$(clipboard)" "Úrok z prodlení" "69,90 Kč"
press alt+F4
expect_exit "the end" 0
