#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# A LAN is drawn with the mouse alone: devices dragged from the toolbox across windows, linked,
# retyped and removed; the saved file says exactly that.
source "$(dirname "$0")/session.sh"

x=50 y=60 # the main window's client area
surface_top=29
toolbox_x=700 toolbox_y=100
preview_x=$((toolbox_x + 184)) preview_y=$((toolbox_y + 41)) # the middle of the preview

drag() { # FROM-X FROM-Y TO-X TO-Y, of the screen
  xdotool mousemove --sync "$1" "$2" mousedown 1
  xdotool mousemove --sync $((($1 + $3) / 2)) $((($2 + $4) / 2))
  xdotool mousemove --sync "$3" "$4" mouseup 1
}
at() { echo $((x + $1)) $((y + surface_top + $2)); } # a place on the surface, of the screen
double_click() { # X Y of the surface
  # shellcheck disable=SC2046
  xdotool mousemove --sync $(at "$1" "$2") click --repeat 2 --delay 40 1
}

start_program
move_window "$main_title" $x $y
shortcut alt t
await active Toolbox
move_window Toolbox $toolbox_x $toolbox_y

# shellcheck disable=SC2046
{
  drag $preview_x $preview_y $(at 200 100) # three hubs, 48 by 20, grabbed at the middle
  drag $preview_x $preview_y $(at 400 100)
  drag $preview_x $preview_y $(at 300 300)
  double_click 200 100
  double_click 400 100
  double_click 400 100
  double_click 300 300
  # The second becomes a switch: the menu's second entry opens the types, of which it is the second.
  xdotool mousemove --sync $(at 400 100) click 3
  xdotool key Down Down Right Down Return
  # The third is removed by the menu's last entry.
  xdotool mousemove --sync $(at 300 300) click 3
  xdotool key Up Return
  await active "Really remove it?"
  xdotool key Return
  await active "$main_title"
  drag $(at 24 16) $(at 124 216) # the router
}
save_as "$folder/drawn.txt"
stop_program
cmp "$(dirname "$0")/drawn.txt" "$folder/drawn.txt" || {
  cat "$folder/drawn.txt"
  exit 1
}
