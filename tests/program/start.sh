#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The first start, a start whose last file is gone, and what a whole session writes.
source "$(dirname "$0")/session.sh" "$@"

[ ! -e "$store" ] || fail 'the store is not empty'
start_and_wait
xdotool key alt+F4
ended
theme=$(dirname "$program")/themes/default/theme.xml
for line in '[Main]' '[Settings]' '[Colors]' "Theme=$theme" 'LastFile=' 'LoadLastFile=False' \
  'ShowGrid=True' 'GridRes=20' 'Grid=4210752' 'Link=14975575' 'LinkSel=255' 'Lock=65535' \
  'Selected=16777215' 'Subnet=32768' 'SubnetSel=65280'; do
  has_line "$store" "$line" || fail "the store lacks $line: $(cat "$store")"
done
for key in PosX PosY; do
  grep -qx "$key=-\?[0-9]\+" "$store" || fail "the store lacks $key"
done

# Nothing is written but the store; devices and what libraries share among processes don't count.
watcher=()
if command -v strace >/dev/null && strace -o "$session/none" true 2>/dev/null; then
  watcher=(strace -f -qq -e 'trace=open,openat,creat,mkdir,mkdirat' -o "$session/trace")
  export ASAN_OPTIONS=detect_leaks=0
fi
sed -i "s,^LastFile=.*,LastFile=$session/gone.txt,; s,^LoadLastFile=.*,LoadLastFile=True," "$store"
start "${watcher[@]}"
wait_for 'Error!'
xdotool key Escape
wait_for "$title"
main=$(named "$title")
shortcut ctrl s
wait_for 'Save LAN'
xdotool key Escape
back_from 'Save LAN'
xdotool key alt+F4
ended
if [ "${#watcher[@]}" -gt 0 ]; then
  grep -q "$store" "$session/trace" || fail 'the trace is empty'
  grep -E 'O_WRONLY|O_RDWR|O_CREAT|O_TMPFILE|creat\(|mkdir' "$session/trace" | grep -v ' = -1 ' |
    grep -vE "\"(/dev/|/proc/|$XDG_RUNTIME_DIR/|$XDG_CONFIG_HOME\"|$store)" >"$session/written" ||
    true
  [ ! -s "$session/written" ] || fail "written besides the store: $(cat "$session/written")"
fi
