# shellcheck shell=bash
# A desktop of its own for one script, and words to drive the real program on it with real keys.
# Sourced as: source desktop.sh PICTURES
#
# The desktop has a window manager, a Czech keyboard and an empty home; all of it goes when the script
# ends. What a user reads in a field is read as he would take it elsewhere, through the clipboard.
# A check that fails ends the script with a picture of the screen. Exit code 77: no desktop to be had.

set -euo pipefail

pictures=$(mkdir -p "$1" && cd "$1" && pwd)
rm -f "$pictures"/*.png
program_pid=""
scratch=$(mktemp -d)
desktop_pids=()

leave_desktop() {
  local pid
  for pid in $program_pid ${desktop_pids[@]+"${desktop_pids[@]}"}; do
    kill "$pid" 2>/dev/null || true
    wait "$pid" 2>/dev/null || true
  done
  rm -rf "$scratch"
}
trap leave_desktop EXIT

# fail TEXT
fail() {
  echo "FAILED: $1" >&2
  cat "$scratch/program_errors" >&2 2>/dev/null || true
  if import -window root "$pictures/failed.png" 2>/dev/null; then
    echo "The screen: $pictures/failed.png" >&2
  fi
  exit 1
}

# wait_until WHAT COMMAND...: until the command succeeds; the machine may be slow, the program may not.
wait_until() {
  local what=$1 end=$((SECONDS + 20))
  shift
  until "$@" >/dev/null 2>&1; do
    ((SECONDS < end)) || fail "waited in vain until $what"
    sleep 0.05
  done
  echo "ok: $what"
}

# expect WHAT WANTED COMMAND...: the command's output becomes the wanted text.
expect() {
  local what=$1 wanted=$2 got="" end=$((SECONDS + 20))
  shift 2
  while :; do
    got=$("$@") || true
    [[ $got != "$wanted" ]] || break
    ((SECONDS < end)) || fail "$what: wanted \"$wanted\", got \"$got\""
    sleep 0.1
  done
  echo "ok: $what is \"$wanted\""
}

# expect_text WHAT WANTED GOT
expect_text() {
  [[ $3 == "$2" ]] || fail "$1: wanted \"$2\", got \"$3\""
  echo "ok: $1"
}

# stays WHAT COMMAND...: the command goes on succeeding for a while: something did not happen.
stays() {
  local what=$1 turn
  shift
  for turn in {1..10}; do
    "$@" >/dev/null 2>&1 || fail "$what: not so any more at turn $turn"
    sleep 0.05
  done
  echo "ok: $what"
}

# need_tools TOOL...: without them the script is skipped
need_tools() {
  local tool
  for tool in "$@"; do
    if ! command -v "$tool" >/dev/null; then
      echo "Skipped: $tool is not installed (./dev test installs it)."
      exit 77
    fi
  done
}

start_desktop() {
  export LC_ALL=C.UTF-8  # of the tools; where none is set, they know no Czech letters
  need_tools Xvfb openbox xdotool xclip xprop setxkbmap import
  # The program's own Czech locale: a bare Debian has none, and Qt complains where the one asked for is missing.
  if [[ ! -e /usr/share/i18n/locales/cs_CZ ]]; then
    echo "Skipped: the package locales is not installed (./dev test installs it)."
    exit 77
  fi
  mkdir "$scratch/locale"
  localedef -i cs_CZ -f UTF-8 "$scratch/locale/cs_CZ.UTF-8"
  # The C library keeps the path of its locales to the end, which the sanitizers take for a leak.
  echo "leak:__argz_add_sep" >"$scratch/no_leaks"
  export HOME=$scratch/home
  export XDG_CONFIG_HOME=$HOME/.config XDG_RUNTIME_DIR=$scratch/runtime
  mkdir -p "$XDG_CONFIG_HOME"
  mkdir -m 700 "$XDG_RUNTIME_DIR"
  # No message bus: the user's own is none of ours, and where there is none, looking for one leaks memory.
  export DBUS_SESSION_BUS_ADDRESS=unix:path=$scratch/no-bus
  # Without -noreset the keyboard turns back to the English one when its last user goes.
  Xvfb -displayfd 3 -screen 0 1280x900x24 -dpi 96 -nolisten tcp -noreset \
    3>"$scratch/display" 2>"$scratch/xvfb.log" &
  desktop_pids=($!)
  wait_until "the X server listens" test -s "$scratch/display"
  DISPLAY=:$(<"$scratch/display")
  export DISPLAY
  openbox >"$scratch/openbox.log" 2>&1 &
  desktop_pids=($! "${desktop_pids[@]}")
  wait_until "the window manager runs" window_manager_runs
  setxkbmap cz
  xdotool mousemove 1279 899  # a resting pointer would change the hints
}

# start_accessibility: a message bus of its own, and on it the one for accessibility, which has to be there before
# the program is
debian_python=/usr/bin/python3  # Debian's own, which has the library
start_accessibility() {
  need_tools dbus-daemon dbus-send "$debian_python"
  if ! "$debian_python" -c 'import gi; gi.require_version("Atspi", "2.0")' 2>/dev/null; then
    echo "Skipped: python3-gi and gir1.2-atspi-2.0 are not installed (./dev test installs them)."
    exit 77
  fi
  dbus-daemon --session --nofork --print-address >"$scratch/bus" 2>"$scratch/bus.log" &
  desktop_pids=($! "${desktop_pids[@]}")
  wait_until "the message bus listens" test -s "$scratch/bus"
  DBUS_SESSION_BUS_ADDRESS=$(<"$scratch/bus")
  export DBUS_SESSION_BUS_ADDRESS QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
  if ! dbus-send --session --print-reply --dest=org.a11y.Bus /org/a11y/bus org.a11y.Bus.GetAddress \
    >"$scratch/a11y" 2>&1; then
    echo "Skipped: there is no accessibility bus to be had (at-spi2-core): $(<"$scratch/a11y")"
    exit 77
  fi
}

# point_at BUTTON: the pointer onto the middle of the button of that name, wherever the window has it
point_at() {
  local place
  place=$("$debian_python" "$(dirname "${BASH_SOURCE[0]}")/where.py" "$1") || fail "no button \"$1\" to point at"
  # shellcheck disable=SC2086  # two numbers
  xdotool mousemove $place
  sleep 0.1
}

window_manager_runs() { xprop -root _NET_SUPPORTING_WM_CHECK | grep -q 0x; }

# start_velta PROGRAM: up to its splash at least. What it writes to standard error is kept for expect_exit.
start_velta() {
  env -u LANGUAGE -u WAYLAND_DISPLAY LOCPATH="$scratch/locale" LC_ALL=cs_CZ.UTF-8 QT_QPA_PLATFORM=xcb \
    LSAN_OPTIONS="suppressions=$scratch/no_leaks:print_suppressions=0" \
    "$1" 2>"$scratch/program_errors" &
  program_pid=$!
}

# expect_exit WHAT CODE: the program ends by itself, with this exit code, and has written nothing to standard error.
expect_exit() {
  local code=0
  wait_until "$1: the program has ended" program_has_ended
  wait "$program_pid" || code=$?
  program_pid=""
  [[ $code == "$2" ]] || fail "$1: exit code $code instead of $2"
  [[ ! -s $scratch/program_errors ]] || fail "$1: the program has written to standard error"
}

program_runs() { kill -0 "$program_pid"; }
# A child that has ended stays in the list of processes, as a zombie, until somebody waits for it.
program_has_ended() { [[ ! -e /proc/$program_pid ]] || grep -q '^State:.Z' "/proc/$program_pid/status"; }

# kind_of WINDOW: main, splash, help, box (a message box) or popup (a menu, the calendar)
kind_of() {
  local types name
  types=$(xprop -id "$1" _NET_WM_WINDOW_TYPE 2>/dev/null) || return 0
  name=$(xdotool getwindowname "$1" 2>/dev/null) || return 0
  case $types in
    *"= _NET_WM_WINDOW_TYPE_SPLASH"*) echo splash ;;
    *"= _NET_WM_WINDOW_TYPE_DIALOG"*) echo box ;;
    *)
      case $name in
        velta) echo popup ;;  # Qt names a window without a title after the program's file.
        *"Nápověda programu Velta") echo help ;;
        *) echo main ;;
      esac
      ;;
  esac
}

# open_windows KIND: the ids of all of the program's windows of this kind
open_windows() {
  local id
  for id in $(xdotool search --onlyvisible --class '^velta$' 2>/dev/null); do
    [[ $(kind_of "$id") != "$1" ]] || echo "$id"
  done
}
is_open() { [[ -n $(open_windows "$1") ]]; }
is_closed() { [[ -z $(open_windows "$1") ]]; }
is_active() { open_windows "$1" | grep -qx "$(xdotool getactivewindow 2>/dev/null)"; }

press() { xdotool key --delay 20 -- "$@"; }
type_text() { xdotool type --delay 20 -- "$1"; }
picture() { import -window root "$pictures/$1.png"; }

# shows_orange WINDOW AREA PIXELS: so many pixels at least of the pictures' orange are on this part of it
shows_orange() {
  local pixels
  pixels=$(import -window "$1" -crop "$2" png:- |
    convert - +repage -fuzz 10% -fill black +opaque '#e08a1e' -fill white -opaque '#e08a1e' \
      -format '%[fx:round(mean*w*h)]' info:)
  ((pixels >= $3))
}

# menu ALT_LETTER LETTER: a command of the main menu by its access keys
menu() {
  press "alt+$1"
  wait_until "the menu of Alt+${1^^} is open" is_open popup
  press "$2"
}

# answer_box: presses OK
answer_box() {
  wait_until "the message box has the keyboard" is_active box
  local box
  box=$(open_windows box)
  press Return
  wait_until "the message box is closed" is_gone "$box"
  wait_until "the keyboard is back" is_active_any
}
is_gone() { ! open_windows box | grep -qx "$1"; }
is_active_any() { is_active main || is_active box; }

open_main_window() {
  wait_until "the main window is open" is_active main
  wait_until "the splash is gone" is_closed splash
}

shows_itself() { is_open splash || is_open main; }

# Puts aside what the clipboard holds, so that only a fresh copy can be read from it.
empty_clipboard() { printf '(nothing)' | xclip -i -selection clipboard >/dev/null 2>&1; }
clipboard() { xclip -o -selection clipboard; }

# field_text: what the field with the keyboard holds, "(nothing)" if it is empty
field_text() {
  empty_clipboard
  press ctrl+a ctrl+c
  sleep 0.2
  clipboard
}

# fill TEXT: in place of what the field holds
fill() {
  press ctrl+a
  type_text "$1"
  expect "the field" "$1" field_text
}

# open_calculation: the single calculation, up to the keyboard's being in its first field
open_calculation() {
  menu v j
  expect "the due date" "$(date -d '12:00 15 days ago' +%-d.%-m.%Y)" field_text
}

# enter_single DUE PAID AMOUNT: into the single calculation; the keyboard stays in the amount. The due date goes
# first: it is before the payment date at every step.
enter_single() {
  fill "$1"
  press Tab
  expect "the payment date" "$(date +%-d.%-m.%Y)" field_text
  fill "$2"
  press Tab
  fill "$3"
}

# printed_lines PDF: what is printed, line by line from the first column on: without the margin of 27 points, which is
# no whole number of columns.
printed_lines() {
  pdftotext -layout -fixed 6 -r 72 -x 26 -y 0 -W 569 -H 842 "$1" - | tr -d '\f' | sed '/^ *$/d'
}

# copied_report: the report as "Kopírovat výpočet do schránky" gives it
copied_report() {
  empty_clipboard
  menu z k >&2
  wait_until "the report is on the clipboard" report_is_copied >&2
  clipboard
}
report_is_copied() { clipboard | grep -q 'Podklady pro výpočet'; }

# expect_line REPORT LABEL VALUE: the report's line of that label, closed by CR LF
expect_line() {
  grep -qxF -- $'\t'"$2"$'\t'"$3"$'\r' <<<"$1" || fail "no line \"$2\" \"$3\" in the report: $1"
  echo "ok: $2 $3"
}
