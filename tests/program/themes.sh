#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Switch through the themes with panels open, change the grid and a colour: all of it lasts.
source "$(dirname "$0")/session.sh" "$@"

themes_folder=$(dirname "$program")/themes

# A picture of the whole screen in the folder that PICTURES names, for whoever wants to look.
picture() { [ -z "${PICTURES:-}" ] || import -window root "$PICTURES/$1.png"; } # NAME

# The list shows the folders as the file system tells them.
pick() { # THEME
  local name
  xdotool key Home
  while read -r name && [ "$name" != "$1" ]; do xdotool key Down; done < <(ls -U "$themes_folder")
}

start_and_wait
xdotool windowmove "$main" 20 40
for panel in d:'Device Properties':40 l:Links:210 s:'Valid Subnets':420 i:'LAN Info':610; do
  IFS=: read -r key name y <<<"$panel"
  until_so main_has_keys
  shortcut alt "$key"
  wait_for "$name"
  window=$(named "$name")
  xdotool windowmove "$window" 640 "$y"
  until_so stands_at "$window" 640 "$y"
done
press "$main" 30 50 # the router

until_so main_has_keys
shortcut ctrl t
wait_for 'Themes'
themes=$(named 'Themes')
xdotool windowmove "$themes" 60 560
until_so stands_at "$themes" 60 560
for theme in light default contrast; do
  press "$themes" 100 170 # the list, below its rows
  pick "$theme"
  press "$themes" 364 17
  picture "$theme"
done
xdotool key Escape
back_from 'Themes'

shortcut ctrl p
wait_for 'Settings'
settings=$(named 'Settings')
press "$settings" 155 32
xdotool key ctrl+a type 50
point "$settings" 296 85 # the swatch of links
xdotool click 1
until_so active_is_not "$settings"
xdotool key alt+h ctrl+a type '#ff8800'
picture colour
xdotool key Return
until_so active_is "$settings"
press_ok() { shows 'Settings' && point "$settings" 41 93 && xdotool click 1; }
press_ok
back_from 'Settings'
picture changed
xdotool key alt+F4
ended

lasts() {
  local line
  for line in "Theme=$themes_folder/contrast/theme.xml" GridRes=50 Link=35071; do
    has_line "$store" "$line" || fail "the store lacks $line: $(cat "$store")"
  done
}
lasts
start_and_wait
picture again
xdotool key alt+F4
ended
lasts
