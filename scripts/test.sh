#!/usr/bin/env bash
# Builds the program for 64 and 32 bits and runs the whole test suite under Wine on the 64-bit
# build: one throwaway prefix inside the build tree for the run, one wineserver kept alive for
# it, and an Xvfb display of its own for the window tests.
# Extra arguments go to ctest (for example -R settings).
set -euo pipefail
source "$(dirname "$0")/common.sh"
ql_install_packages
ql_build
ql_build_32

prefix=$QL_BUILD/wineprefix
export WINEPREFIX=$prefix QL_TEST_PREFIX=$prefix
# The display comes first: Wine's desktop process, started while the prefix is made, keeps the
# display it was started with.
ql_start_xvfb 1024x768x24
cleanup() {
    wineserver -k >/dev/null 2>&1 || true
    kill "$QL_XVFB_PID" 2>/dev/null || true
}
trap cleanup EXIT

wineserver -k >/dev/null 2>&1 || true
rm -rf "$prefix" "$QL_BUILD/.wineprefix.lock"
ql_ensure_prefix "$prefix" 1024x768
ql_install_layout "$prefix"
wineserver -w
wineserver -p >/dev/null 2>&1 || true
# Wine's services and its desktop window stay alive as long as the server does. Started here, they
# do not hold on to the output pipes ctest waits on; started by the first test, they would.
wine cmd /c exit >/dev/null 2>&1 </dev/null
wine explorer /desktop=Default,1024x768 >/dev/null 2>&1 </dev/null &
sleep 1

cd "$QL_BUILD"
ctest --output-on-failure "$@"
