#!/usr/bin/env bash
# Builds and runs the benchmarks under Wine: a prefix kept inside the build tree (made once, with
# the device layout installed like the tests'), drive C: current, and an Xvfb display of its own
# for the cases that open windows. An argument keeps only the cases whose name contains it.
set -euo pipefail
source "$(dirname "$0")/common.sh"
ql_install_packages
ql_build

prefix=$QL_BUILD/bench-prefix
export WINEPREFIX=$prefix
ql_start_xvfb 1024x768x24
cleanup() {
    wineserver -k >/dev/null 2>&1 || true
    kill "$QL_XVFB_PID" 2>/dev/null || true
}
trap cleanup EXIT
wineserver -k >/dev/null 2>&1 || true
ql_ensure_prefix "$prefix" 1024x768
ql_install_layout "$prefix"
# A server started while the prefix was made has no Wine desktop: without one (and with no window
# manager under Xvfb) every window shown waits about two seconds, on both sides of a case alike.
wineserver -k >/dev/null 2>&1 || true
wineserver -p >/dev/null 2>&1 || true
wine cmd /c exit >/dev/null 2>&1 </dev/null
wine explorer /desktop=Default,1024x768 >/dev/null 2>&1 </dev/null &
sleep 1

cd "$prefix/drive_c"
wine "$QL_BIN/ql_bench.exe" "$@"
