#!/usr/bin/env bash
# Captures the splash, every setup tab, the menu and every screen to PNG, and the printed
# pages to PDF and PNG, under a virtual X server at 1280x800 and at 1920x1080, for a look
# at legibility and layout.
#   tools/screenshots.sh [build folder] [output folder]
set -euo pipefail
here="$(cd "$(dirname "$0")/.." && pwd)"
build="${1:-$here/build}"
out="${2:-$here/screenshots}"
[ -f "$build/build.ninja" ] || cmake -S "$here" -B "$build" -G Ninja >/dev/null
cmake --build "$build" --target dispatch_screenshots
for size in 1280x800 1920x1080; do
    mkdir -p "$out/$size"
    xvfb-run -a -s "-screen 0 ${size}x24" "$build/tools/dispatch_screenshots" "$out/$size"
    # The printed pages as the preview shows them.
    for pdf in "$out/$size"/*.pdf; do
        [ -f "$pdf" ] && pdftoppm -r 60 -png "$pdf" "${pdf%.pdf}"
    done
    echo "$out/$size: $(ls "$out/$size"/*.png | wc -l) pictures"
done
