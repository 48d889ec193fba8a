#!/usr/bin/env bash
# accessibility.sh PROGRAM PICTURES
# The single calculation as somebody does it who does not see the screen: through the accessibility bus alone,
# with the names that a screen reader says.
source "$(dirname "$0")/desktop.sh" "$2"
python=/usr/bin/python3  # Debian's own, which has the library
need_tools dbus-daemon dbus-send "$python"
if ! "$python" -c 'import gi; gi.require_version("Atspi", "2.0")' 2>/dev/null; then
  echo "Skipped: python3-gi and gir1.2-atspi-2.0 are not installed (./dev test installs them)."
  exit 77
fi
start_desktop

# A message bus of its own, and on it the one for accessibility, which has to be there before the program is.
dbus-daemon --session --nofork --print-address >"$scratch/bus" 2>"$scratch/bus.log" &
desktop_pids=($! "${desktop_pids[@]}")
wait_until "the message bus listens" test -s "$scratch/bus"
DBUS_SESSION_BUS_ADDRESS=$(<"$scratch/bus")
export DBUS_SESSION_BUS_ADDRESS
if ! dbus-send --session --print-reply --dest=org.a11y.Bus /org/a11y/bus org.a11y.Bus.GetAddress \
  >"$scratch/a11y" 2>&1; then
  echo "Skipped: there is no accessibility bus to be had (at-spi2-core): $(<"$scratch/a11y")"
  exit 77
fi

export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
start_velta "$1"
open_main_window
empty_clipboard
"$python" "$(dirname "$0")/accessibility.py" || fail "the road through the accessibility bus"
picture calculated
wait_until "the report is on the clipboard" report_is_copied
expect_line "$(clipboard)" "Úrok z prodlení" "69,90 Kč"
press alt+F4
expect_exit "the end" 0
