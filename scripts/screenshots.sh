#!/usr/bin/env bash
# Saves PNG pictures of the page grid, of every page section and of the dialogs, taken by
# ql_screenshots (tests/screenshots/), at 96 and at 192 pixels per inch, into
# docs/screenshots/. Each resolution gets a Wine prefix of its own inside the build tree.
set -euo pipefail
source "$(dirname "$0")/common.sh"
ql_install_packages
ql_build

out=$QL_ROOT/docs/screenshots
mkdir -p "$out"
ql_start_xvfb 1024x768x24
trap 'kill "$QL_XVFB_PID" 2>/dev/null || true' EXIT
for dpi in ${QL_SHOT_DPIS:-96 192}; do
    prefix=$QL_BUILD/shots-$dpi
    ql_ensure_prefix "$prefix" 1024x768
    ql_install_layout "$prefix"
    [ -x "$QL_ROOT/scripts/seed-device.sh" ] && "$QL_ROOT/scripts/seed-device.sh" "$prefix"
    export WINEPREFIX=$prefix
    wine reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d $dpi /f >/dev/null 2>&1
    wine reg add 'HKCC\Software\Fonts' /v LogPixels /t REG_DWORD /d $dpi /f >/dev/null 2>&1
    wineserver -k >/dev/null 2>&1 || true
    shots=$(mktemp -d)
    (cd "$prefix/drive_c" && wine "$QL_BIN/ql_screenshots.exe" "$(winepath -w "$shots")" "${dpi}dpi") \
        || ql_die "ql_screenshots failed at $dpi dpi"
    wineserver -k >/dev/null 2>&1 || true
    for bmp in "$shots"/*.bmp; do
        name=$(basename "${bmp%.bmp}")
        case $name in [0-9]*dpi_*) ;; *) name=${dpi}dpi_$name ;; esac
        convert "$bmp" "$out/$name.png"
    done
    rm -rf "$shots"
done
ls "$out"
