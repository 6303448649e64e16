# SPDX-License-Identifier: MIT
# A session of the whole program on an X display of its own, for the scripts beside this one. Nothing
# sleeps to win a race: every step waits until what it needs is there, or fails at a deadline.
set -euo pipefail

program=$1
samples=$2
folder=$(mktemp -d)
export HOME=$folder XDG_CONFIG_HOME=$folder/config XDG_RUNTIME_DIR=$folder/run
export QT_QPA_PLATFORM=xcb LC_ALL=C.UTF-8
mkdir -p -m 700 "$XDG_CONFIG_HOME" "$XDG_RUNTIME_DIR"

end() {
  local code=$?
  [ "$code" -eq 0 ] || cat "$folder/output" >&2 || true
  kill $(jobs -p) 2>/dev/null || true
  rm -rf "$folder"
}
trap end EXIT

# Waits for a command to succeed.
await() {
  local deadline=$((SECONDS + 20))
  until "$@" >/dev/null 2>&1; do
    if [ "$SECONDS" -ge "$deadline" ]; then
      echo "never came: $*" >&2
      return 1
    fi
    sleep 0.05
  done
}

start_display() {
  Xvfb -displayfd 3 -screen 0 1280x900x24 3>"$folder/display" >/dev/null 2>&1 &
  await test -s "$folder/display"
  DISPLAY=:$(cat "$folder/display")
  export DISPLAY
  openbox >/dev/null 2>&1 &
  await managed
}

# Whether a window manager is at work; the property's absence alone is no failure of xprop.
managed() { xprop -root _NET_SUPPORTING_WM_CHECK | grep -q "window id"; }

window() { xdotool search --onlyvisible --name "$1"; }
gone() { ! window "$1"; }
active() { [ "$(xdotool getactivewindow getwindowname)" = "$1" ]; }

activate() { # TITLE
  await window "^$1\$"
  xdotool windowactivate "$(window "^$1\$")"
  await active "$1"
}

main_title="Vantry Network Builder v6.2.5"

start_program() {
  "$program" >"$folder/output" 2>&1 &
  program_pid=$!
  activate "$main_title"
}

# The client area's corner lands at this place.
move_window() { # TITLE X Y
  local id
  id=$(window "^$1\$")
  xdotool windowmove --sync "$id" "$2" "$3"
}

# A shortcut: the modifier is let go after the key.
shortcut() { xdotool keydown "$1" key "$2" keyup "$1"; }

# Types into the dialog that has this title, and confirms.
answer_dialog() { # TITLE TEXT
  await active "$1"
  xdotool key ctrl+a
  xdotool type --delay 5 "$2"
  xdotool key Return
  await gone "^$1\$"
}

save_as() { # PATH
  activate "$main_title"
  shortcut ctrl s
  answer_dialog "Save LAN" "$1"
  await test -s "$1"
}

stop_program() {
  kill -TERM "$program_pid"
  wait "$program_pid"
}

start_display
