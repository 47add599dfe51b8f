#!/usr/bin/env bash
# The Ingest dialog end to end under a real X server: the replay opens it from the host window,
# ticks three clips of an XAVC S card that stands beside a P2 card, sets templates, two
# destinations and MD5, answers the metadata panel; the clips land verified on both destinations,
# the project holds one item per clip under its new name, and the XMP holds every value given.
#   ingest-replay.sh IGD_DIALOG IGD MAKE_SAMPLE_MEDIA WORK_DIR
# Exits 77 (skipped) without xvfb-run.
set -euo pipefail
dialog="$1" igd="$2" make_media="$3" work="$4"
here="$(cd "$(dirname "$0")" && pwd)"
command -v xvfb-run >/dev/null || { echo "xvfb-run is missing: the dialog cannot be shown"; exit 77; }
rm -rf "$work"
mkdir -p "$work/Main" "$work/Backup" "$work/shots"
export IGD_HOME="$work/home"
unset QT_QPA_PLATFORM
"$make_media" "$work/media" xavcs p2 --clips 3 >/dev/null
# The shipped metadata panel, turned on as a user turns it on.
mkdir -p "$IGD_HOME/panels"
cp -r "$here/../../../resources/panels/minimum-metadata" "$IGD_HOME/panels/"
(cd "$work" && xvfb-run -a -s "-screen 0 1600x1000x24" "$dialog" --bin "Day 1" --replay "$here/ingest.replay" --screenshot shots)

fail() { echo "$*" >&2; exit 1; }
for shot in 01-host 02-cards 03-ticked 04-options 05-panel 06-panel-filled 07-host-after; do
    [ -s "$work/shots/$shot.png" ] || fail "no screenshot $shot.png"
done
for clip in C0001 C0002 C0003; do
    source="$work/media/XAVCS_CARD/PRIVATE/M4ROOT/CLIP/$clip.MP4"
    for destination in Main Backup; do
        copy=$(find "$work/$destination" -name "$clip.MP4")
        [ -n "$copy" ] || fail "$clip.MP4 did not land in $destination"
        [ "$(md5sum <"$copy")" = "$(md5sum <"$source")" ] || fail "$copy differs from its source"
        grep -q "$(md5sum <"$source" | cut -d' ' -f1)" "$(dirname "$copy")"/../../../ascmhl/*.mhl ||
            fail "the history of $destination holds no MD5 of $clip"
        xmp="${copy%.MP4}.xmp"
        for value in "Demo Production" "A. Director" ">12<" ">3<" "<shoot:camera>A<" "interview"; do
            grep -q "$value" "$xmp" || fail "$xmp lacks $value"
        done
    done
done
listing=$("$igd" project ls "$IGD_HOME/project.igdproj")
grep -q "^project .*: 3 items" <<<"$listing" || fail "the project does not hold three items: $listing"
# The items of the bin named "Day 1": the lines indented by two between its heading and the next.
in_bin=$(awk '/^[^ ]/ { bin = $0 } /^  [^ ]/ && bin == "bin Day 1" { print $1 }' <<<"$listing")
[ "$in_bin" = $'C0001_001\nC0002_002\nC0003_003' ] || fail "the bin Day 1 holds '$in_bin': $listing"
echo "screenshots: $work/shots"
