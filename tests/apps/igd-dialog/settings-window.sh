#!/usr/bin/env bash
# The settings window of igd-dialog as a person starts it on a fresh home: it opens, is resized to
# the size asked, writes its picture at that size and exits 0, and stores nothing.
#   settings-window.sh IGD_DIALOG WORK_DIR
set -euo pipefail
dialog="$1" work="$2"
rm -rf "$work"
mkdir -p "$work"
export IGD_HOME="$work/home" QT_QPA_PLATFORM=offscreen
for size in 330x600 520x600; do
    "$dialog" --settings --width "${size%x*}" --height "${size#*x}" --screenshot "$work/settings-$size.png"
    # A PNG's width and height are the big-endian words at bytes 16 and 20.
    shot=$(od -An -tu1 -j16 -N8 "$work/settings-$size.png" | awk '{ printf "%dx%d", $1*16777216+$2*65536+$3*256+$4, $5*16777216+$6*65536+$7*256+$8 }')
    [ "$shot" = "$size" ] || { echo "the window's picture is $shot, not $size" >&2; exit 1; }
done
stored=$(find "$work/home" -type f 2>/dev/null | head -1 || true)
[ -z "$stored" ] || { echo "the settings window stored $stored" >&2; exit 1; }
