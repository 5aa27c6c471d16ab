#!/usr/bin/env bash
# Builds and runs the whole test suite under Wine: one throwaway prefix inside the build tree for
# the run, one wineserver kept alive for it, and an Xvfb display of its own for the window tests.
# Extra arguments go to ctest (for example -R settings).
set -euo pipefail
source "$(dirname "$0")/common.sh"
ql_install_packages
ql_build

prefix=$QL_BUILD/wineprefix
rm -rf "$prefix" "$QL_BUILD/.wineprefix.lock"
ql_ensure_prefix "$prefix"
ql_install_layout "$prefix"
export WINEPREFIX=$prefix QL_TEST_PREFIX=$prefix

ql_start_xvfb 1024x768x24
cleanup() {
    WINEPREFIX=$prefix wineserver -k >/dev/null 2>&1 || true
    kill "$QL_XVFB_PID" 2>/dev/null || true
}
trap cleanup EXIT
wineserver -p >/dev/null 2>&1 || true

cd "$QL_BUILD"
ctest --output-on-failure "$@"
