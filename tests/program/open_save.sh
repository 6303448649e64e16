#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# A file is opened and saved under another name with the same bytes; the settings last.
source "$(dirname "$0")/session.sh"

start_program
shortcut ctrl o
answer_dialog "Open LAN" "$samples/company.txt"
save_as "$folder/copy.txt"
cmp "$samples/company.txt" "$folder/copy.txt"

# An existing file is asked for; No keeps it.
shortcut ctrl n
shortcut ctrl s
await active "Save LAN"
xdotool key ctrl+a
xdotool type --delay 5 "$folder/copy.txt"
xdotool key Return
await xdotool search --onlyvisible --name "^Save LAN\$" # the question stands over the dialog
xdotool key Escape Escape
await active "$main_title"
cmp "$samples/company.txt" "$folder/copy.txt"

stop_program
grep -qx "LastFile=$folder/copy.txt" "$XDG_CONFIG_HOME/VNB.ini"
grep -qx "Theme=.*/themes/default/theme.xml" "$XDG_CONFIG_HOME/VNB.ini"
