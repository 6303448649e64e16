#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Be told to end at awkward moments, and run twice at once: the settings are always whole.
source "$(dirname "$0")/session.sh" "$@"

printf '%s\r\n' 'NAME n' 'COMPANY c' 'IP i' 'XPOS 1' 'YPOS 2' '0 ROUTER 20 20' '1 HUB 150 20 1 -1 -1 -1' \
  . 'LINK 0 .5 .5 1 .5 .5 1' . . . >"$session/lan.txt"

start_and_wait
first=$pid
start
second=$pid
until_so window_of "$second"
kill -TERM "$second"
ended
pid=$first
kill -TERM "$pid"
ended

# While it starts: what hasn't been read yet isn't written.
sed -i "s,^LastFile=.*,LastFile=$session/gone.txt,; s,^LoadLastFile=.*,LoadLastFile=True," "$store"
cp "$store" "$session/before.ini"
start
wait_for 'Error!'
kill -TERM "$pid"
ended
same "$store" "$session/before.ini"

# While a panel asks.
sed -i "s,^LastFile=.*,LastFile=$session/lan.txt,; s,^GridRes=.*,GridRes=33," "$store"
start_and_wait
xdotool windowmove "$main" 20 40
shortcut alt l
wait_for 'Links'
links=$(named 'Links')
xdotool windowmove "$links" 640 200
until_so stands_at "$links" 640 200
press "$main" 30 60
point "$links" 60 119
xdotool click 1
wait_for 'Really remove?'
kill -TERM "$pid"
ended
has_line "$store" 'GridRes=33' || fail 'the store was not written'
