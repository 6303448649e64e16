#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Draw a LAN from nothing across two windows and save it.
source "$(dirname "$0")/session.sh" "$@"

# Places of the surface, which starts below the tool bar.
toolbar=29
at() { echo "$main $1 $(($2 + toolbar))"; } # X Y

start_and_wait
xdotool windowmove "$main" 40 60
shortcut alt t
wait_for 'Toolbox'
toolbox=$(named 'Toolbox')
xdotool windowmove "$toolbox" 800 60
apart() { eval "$(xdotool getwindowgeometry --shell "$toolbox")" && [ "$X" -ge 800 ]; }
until_so apart

# The preview is centred about this point, by which it is dragged.
preview="$toolbox 184 41"
# shellcheck disable=SC2046,SC2086 # places are two or three words
{
  drag $preview $(at 120 60) # a hub
  until_so is_active 'Toolbox'
  xdotool key Down Down
  drag $preview $(at 300 100) # a terminal
  xdotool key Down
  drag $preview $(at 150 250) # a main server
  double_click $(at 120 60)
  double_click $(at 300 100)
  double_click $(at 150 250)
  double_click $(at 300 100)
  double_click $(at 20 20)
  double_click $(at 120 60)
  wait_for "$title"

  # The terminal becomes a modem, nine rows below the first.
  before=$(visible_windows | wc -l)
  point $(at 300 100)
  xdotool click 3
  until_so window_count $((before + 1))
  xdotool key Down Down Right
  until_so window_count $((before + 2))
  xdotool key Down Down Down Down Down Down Down Down Down Return
  until_so window_count "$before"

  # The main server goes, with its link.
  point $(at 150 250)
  xdotool click 3
  until_so window_count $((before + 1))
  xdotool key Up Return
  wait_for 'Really remove it?'
  xdotool key alt+y
  back_from 'Really remove it?'
}

shortcut ctrl s
wait_for 'Save LAN'
type_path "$session/drawn.txt"
until_so test -s "$session/drawn.txt"
back_from 'Save LAN'
cmp "$session/drawn.txt" "$here/drawn.txt" || { diff "$session/drawn.txt" "$here/drawn.txt"; false; }
xdotool key alt+F4
ended
