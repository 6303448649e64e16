#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Be told to end at awkward moments: the settings are always whole.
source "$(dirname "$0")/session.sh" "$@"

start_and_wait
kill -TERM "$pid"
ended

# While it starts: what hasn't been read yet isn't written.
sed -i "s,^LastFile=.*,LastFile=$session/gone.txt,; s,^LoadLastFile=.*,LoadLastFile=True," "$store"
cp "$store" "$session/before.ini"
start
wait_for 'Error!'
kill -TERM "$pid"
ended $((128 + 15))
same "$store" "$session/before.ini"

# While a dialog asks.
sed -i "s,^LoadLastFile=.*,LoadLastFile=False,; s,^GridRes=.*,GridRes=33," "$store"
start_and_wait
sed -i 's,^GridRes=.*,GridRes=44,' "$store"
shortcut ctrl s
wait_for 'Save LAN'
kill -TERM "$pid"
ended
has_line "$store" 'GridRes=33' || fail 'the store was not written'
