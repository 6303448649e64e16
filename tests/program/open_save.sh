#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Open a file by its path, save it under other names, be told to end.
source "$(dirname "$0")/session.sh" "$@"

start_and_wait
shortcut ctrl o
open_path "$samples/company.txt"
back_from 'Open LAN'
shortcut ctrl s
wait_for 'Save LAN'
type_path "$session/copy.txt"
until_so same "$session/copy.txt" "$samples/company.txt"
back_from 'Save LAN'

# A file that is there is overwritten only on Yes.
printf 'old' >"$session/old.txt"
shortcut ctrl s
wait_for 'Save LAN'
dialog=$(named 'Save LAN')
type_path "$session/old.txt"
until_so active_is_not "$dialog"
xdotool key Escape
until_so active_is "$dialog"
[ "$(cat "$session/old.txt")" = old ] || fail 'overwritten in spite of No'
xdotool key Return
until_so active_is_not "$dialog"
xdotool key alt+y
until_so same "$session/old.txt" "$samples/company.txt"
until_so hidden 'Save LAN'

kill -TERM "$pid"
ended
has_line "$store" "LastFile=$session/old.txt" || fail "LastFile isn't in the store"
