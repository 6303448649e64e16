# SPDX-License-Identifier: MIT
# A desktop of its own for one session of the program: display, window manager, home. To be sourced
# as `source session.sh PROGRAM`. Nothing waits for a time to pass, only for something to be so.
set -eu

program=$1
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
samples=$here/../../samples
session=$(mktemp -d)
processes=()

export HOME=$session/home XDG_CONFIG_HOME=$session/config XDG_CACHE_HOME=$session/cache
export XDG_DATA_HOME=$session/data XDG_RUNTIME_DIR=$session/runtime
export QT_QPA_PLATFORM=xcb LC_ALL=C.UTF-8
unset WAYLAND_DISPLAY XAUTHORITY QT_STYLE_OVERRIDE QT_SCALE_FACTOR QT_QPA_PLATFORMTHEME
unset XDG_CURRENT_DESKTOP DESKTOP_SESSION DBUS_SESSION_BUS_ADDRESS
mkdir -p "$HOME" "$XDG_CONFIG_HOME" "$XDG_CACHE_HOME" "$XDG_DATA_HOME" "$XDG_RUNTIME_DIR"
chmod 700 "$XDG_RUNTIME_DIR"
store=$XDG_CONFIG_HOME/VNB.ini

clean_up() {
  local code=$?
  if [ "$code" -ne 0 ]; then
    echo "Active: $(xdotool getactivewindow getwindowname)"; echo 'Windows on the screen:'
    visible_windows | while read -r window; do xdotool getwindowname "$window"; done | grep . || true
    cat "$session"/*.log || true
  fi
  for ((i = ${#processes[@]} - 1; i >= 0; --i)); do
    kill "${processes[i]}" 2>/dev/null || true
    wait "${processes[i]}" 2>/dev/null || true
  done
  rm -rf "$session"
  exit "$code"
}
trap clean_up EXIT

fail() {
  echo "$*" >&2
  exit 1
}

# Waits until a command succeeds; its output goes nowhere.
until_so() { # COMMAND...
  local deadline=$((SECONDS + 30))
  until "$@" >/dev/null 2>&1; do
    [ $SECONDS -lt $deadline ] || fail "waited in vain for: $*"
    sleep 0.05
  done
}

# Windows.

visible_windows() { xdotool search --onlyvisible --name '' 2>/dev/null || true; }
named() { xdotool search --onlyvisible --name "^$1" | tail -n 1; }
shows() { [ -n "$(named "$1")" ]; }
hidden() { ! shows "$1"; }
# The active window is the one that the manager has told of, and the one that gets the keys.
active() {
  local window
  window=$(xdotool getactivewindow) && [ "$(xdotool getwindowfocus)" = "$window" ] && echo "$window"
}
is_active() { [ "$(active)" = "$(named "$1")" ]; }
active_is() { [ "$(active)" = "$1" ]; }
active_is_not() { ! active_is "$1" && active; }
gone() { ! kill -0 "$1"; } # PID
window_count() { [ "$(visible_windows | wc -l)" -eq "$1" ]; }

# Waits until a window of this title is the active one.
wait_for() {
  until_so shows "$1"
  until_so is_active "$1"
}

# Waits until a dialog is gone and the main window has the keys again. The window manager forgets to
# give them back when a dialog and its question go at once.
back_from() { # TITLE
  until_so hidden "$1"
  until_so main_has_keys
}
main_has_keys() { active_is "$main" || { xdotool windowactivate "$main" && false; }; }

title='Vantry Network Builder v6.2.5'

# Starts the program, `pid`, and with it a command that watches it.
start() { # WATCHER...
  "$@" "$program" >>"$session/program.log" 2>&1 &
  pid=$!
  processes+=("$pid")
}
start_and_wait() {
  start
  wait_for "$title"
  main=$(named "$title")
}
# The program must have ended by itself, and well, unless another code is due.
ended() { # CODE
  local code=0
  until_so gone "$pid"
  wait "$pid" || code=$?
  [ "$code" -eq "${1:-0}" ] || fail "the program ended with $code"
}

# The pointer and the keys.

point() { xdotool mousemove --window "$1" "$2" "$3"; } # WINDOW X Y
drag() {                                              # WINDOW X Y WINDOW X Y
  point "$1" "$2" "$3"
  xdotool mousedown 1
  point "$4" $(($5 - 3)) "$6"
  point "$4" "$5" "$6"
  xdotool mouseup 1
}
double_click() { # WINDOW X Y
  point "$@"
  xdotool click --repeat 2 --delay 10 1
}
# `xdotool key` lets go of the modifier first, and shortcuts act when the key is released.
shortcut() { # MODIFIER KEY
  xdotool keydown "$1" key "$2" keyup "$1"
}
type_path() {
  xdotool key ctrl+a type --delay 2 "$1"
  xdotool key Return
}
# Opens a file by its path. The dialog now and then drops what is typed while it reads a folder, and
# then finds no such file: told so, the user types again.
open_path() { # PATH
  wait_for 'Open LAN'
  local dialog
  dialog=$(named 'Open LAN')
  type_path "$1"
  until_so left "$dialog"
  while shows 'Open LAN'; do
    until_so press_until "$dialog" Escape
    type_path "$1"
    until_so left "$dialog"
  done
}
left() { hidden 'Open LAN' || active_is_not "$1"; } # WINDOW
press_until() { active_is "$1" || { xdotool key "$2" && false; }; } # WINDOW KEY

# Files.

same() { cmp "$1" "$2"; } # FILE FILE
has_line() { grep -qxF "$2" "$1"; }

Xvfb -displayfd 3 -screen 0 1280x900x24 -nolisten tcp 3>"$session/display" 2>"$session/xvfb.log" &
processes+=($!)
until_so test -s "$session/display"
DISPLAY=:$(cat "$session/display")
export DISPLAY
# Its settings but for the window that tells which desktop one has come to.
sed 's,<popupTime>.*<,<popupTime>0<,' /etc/xdg/openbox/rc.xml >"$session/rc.xml"
openbox --sm-disable --config-file "$session/rc.xml" >"$session/openbox.log" 2>&1 &
processes+=($!)
until_so xdotool get_num_desktops
# The very first key changes the keyboard's mapping, and the manager may lose keys while it takes its
# shortcuts anew: no session begins before a shortcut of the manager has worked.
on_desktop() { [ "$(xdotool get_desktop)" = "$1" ]; } # NUMBER
goes_to_desktop() { on_desktop "$1" || { xdotool key "super+F$(($1 + 1))" && false; }; } # NUMBER
until_so goes_to_desktop 1
until_so goes_to_desktop 0
