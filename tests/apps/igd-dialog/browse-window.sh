#!/usr/bin/env bash
# The browse window of igd-dialog on a generated P2 card, as a person starts it: it lists the card,
# waits for every clip's facts and thumbnail, writes the window's picture at the pane's size, exits
# 0, and keeps the view chosen for the next start.
#   browse-window.sh IGD_DIALOG IGD MAKE_SAMPLE_MEDIA WORK_DIR
set -euo pipefail
dialog="$1" igd="$2" make_media="$3" work="$4"
rm -rf "$work"
mkdir -p "$work"
export IGD_HOME="$work/home" QT_QPA_PLATFORM=offscreen
"$make_media" "$work" p2 --clips 2 >/dev/null
"$dialog" --browse "$work/P2_CARD" --view icons --screenshot "$work/pane.png"

# A PNG's width and height are the big-endian words at bytes 16 and 20.
size=$(od -An -tu1 -j16 -N8 "$work/pane.png" | awk '{ printf "%dx%d", $1*16777216+$2*65536+$3*256+$4, $5*16777216+$6*65536+$7*256+$8 }')
[ "$size" = "1100x720" ] || { echo "the window's picture is $size, not 1100x720" >&2; exit 1; }
view=$("$igd" prefs get IGD.MediaBrowser.ViewMode)
[ "$view" = "icons" ] || { echo "the view kept is '$view', not icons" >&2; exit 1; }
