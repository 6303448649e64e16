#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Edit one property of each kind in the panels, and save: the file says exactly that.
source "$(dirname "$0")/session.sh" "$@"

cat >"$session/plain.txt" <<'END'
NAME n
COMPANY c
IP i
XPOS 1
YPOS 2
0 ROUTER 20 20
1 HUB 150 20 1 -1 -1 -1
2 LOCK 300 20 1 1 -1 -1
3 MAINSERVER 20 150 1 -1 -1 -1
4 MODEM 150 150 1 -1 -1 -1
5 RADIORECEIVER 300 150 1 0 0 -1
.
LINK 0 .5 .5 1 .5 .5 1
.
.
.
END
sed -i 's/$/\r/' "$session/plain.txt"

start_and_wait
xdotool windowmove "$main" 20 40
shortcut ctrl o
open_path "$session/plain.txt"
back_from 'Open LAN'

# Shows a panel and puts it beside the main window, out of the others' way.
panel() { # MODIFIER KEY TITLE Y
  until_so main_has_keys
  shortcut "$1" "$2"
  wait_for "$3"
  window=$(named "$3")
  xdotool windowmove "$window" 640 "$4"
  until_so stands_at "$window" 640 "$4"
}
# Selects a device by a point of the surface, which starts below the tool bar.
device() { press "$main" "$1" $(($2 + 29)); } # X Y
fill() { # WINDOW X Y TEXT
  press "$1" "$2" "$3"
  xdotool key ctrl+a type --delay 2 "$4"
}

panel alt d 'Device Properties' 40
properties=$window
panel alt l 'Links' 210
links=$window
panel alt s 'Valid Subnets' 420
subnets=$window
panel alt i 'LAN Info' 610
information=$window

device 40 170 # the server
fill "$properties" 200 12 'Staff records & pay'
press "$properties" 174 33 # level 3
before=$(visible_windows | wc -l)
point "$properties" 40 76 # its first lock box
xdotool click 1
until_so window_count $((before + 1))
xdotool key End Return
until_so window_count "$before"
press "$subnets" 272 23 # the router, the first of the others
press "$subnets" 248 24
device 165 165 # the modem
fill "$properties" 200 57 '555-0199'
device 315 165 # the receiver
fill "$properties" 91 57 '101'
fill "$properties" 127 57 '25'
device 315 35 # the lock, which gets unlocked
press "$properties" 15 57
device 30 30               # the router: its link's first end goes to the upper left corner
press "$links" 259 72      # by the picker,
device 165 30              # the hub: the second end goes
fill "$links" 378 94 '.3'  # to a place of its own
fill "$links" 378 116 '.7'
press "$links" 334 72
press "$links" 374 29 # level 2
point "$links" 60 118 # Remove link: no, and the keys are the panel's again
xdotool click 1
wait_for 'Really remove?'
xdotool key Escape
wait_for 'Links'
fill "$information" 180 13 'Headquarters'
fill "$information" 180 37 'Acme & Sons'
fill "$information" 180 61 '10.0.0.1'
fill "$information" 172 85 '12'
fill "$information" 256 85 '345'

until_so main_has_keys
shortcut ctrl s
wait_for 'Save LAN'
type_path "$session/edited.txt"
until_so test -s "$session/edited.txt"
back_from 'Save LAN'
cmp "$session/edited.txt" "$here/edited.txt" || { diff "$session/edited.txt" "$here/edited.txt"; false; }
xdotool key alt+F4
ended
