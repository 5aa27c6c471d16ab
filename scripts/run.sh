#!/usr/bin/env bash
# Builds QL Options, installs the device layout into a Wine prefix kept for the user, and starts
# the program with drive C: current. With no X display it runs under Xvfb, saves a screenshot of
# the program's window, prints the PNG's path and ends the program.
# QL_SEED_PIM=informant,fusion,agendaone (any of them) makes the registry look as if those PIM
# applications were installed; QL_SEED_PIM=none takes that back (see seed-device.sh).
set -euo pipefail
source "$(dirname "$0")/common.sh"
ql_install_packages
ql_build

# The display comes first: Wine's processes keep the display they were started with.
headless=0
if [ -z "${DISPLAY:-}" ] || ! xdpyinfo >/dev/null 2>&1; then
    headless=1
    ql_start_xvfb 800x600x24
fi

prefix=${QL_RUN_PREFIX:-${XDG_DATA_HOME:-$HOME/.local/share}/ql-options/wineprefix}
export WINEPREFIX=$prefix
ql_ensure_prefix "$prefix"
ql_install_layout "$prefix"
"$QL_ROOT/scripts/seed-device.sh" ${QL_SEED_PIM:+--pim "$QL_SEED_PIM"} "$prefix"
wineserver -w

cd "$prefix/drive_c"
program='C:\Program Files\Orvane\Quillory\ql_options.exe'
if [ $headless -eq 0 ]; then
    exec wine "$program" "$@"
fi

# Headless: Wine's own desktop window frames the program so the title bar is drawn.
wine explorer /desktop=QLOptions,480x600 "$program" "$@" >/dev/null 2>&1 &
shot=$QL_BUILD/run/ql_options.png
mkdir -p "$(dirname "$shot")"
found=
for _ in $(seq 1 120); do
    if xwininfo -root -tree 2>/dev/null | grep -q '"QL Options"'; then found=1; break; fi
    sleep 0.5
done
stop() { wineserver -k >/dev/null 2>&1 || true; kill "$QL_XVFB_PID" 2>/dev/null || true; }
if [ -z "$found" ]; then stop; ql_die "the QL Options window did not appear"; fi
sleep 2
# The program's window, with its frame, cut out of the screen (its menu bar is a window of its own
# inside that rectangle).
window=$(xwininfo -root -tree | grep '"QL Options"' | head -n 1 | awk '{print $1}')
geometry=$(xwininfo -id "$window" | awk '/Absolute upper-left X/ {x=$NF} /Absolute upper-left Y/ {y=$NF}
    /Width:/ {w=$NF} /Height:/ {h=$NF} END {printf "%dx%d+%d+%d", w, h, x, y}')
import -window root -crop "$geometry" +repage "$shot" || { stop; ql_die "screenshot failed"; }
stop
echo "$shot"
