#!/usr/bin/env bash
# Runs a Windows program of the build under Wine, in the build tree's own prefix, with drive C:
# current so that device paths ("\Program Files\...") resolve there. CTest uses it for every test.
set -euo pipefail
source "$(dirname "$0")/common.sh"
exe=$(cd "$(dirname "$1")" && pwd)/$(basename "$1")
shift
QL_BIN=$(dirname "$exe")
prefix=${QL_TEST_PREFIX:-$(dirname "$QL_BIN")/wineprefix}
(
    flock 9
    ql_ensure_prefix "$prefix" 1024x768
    ql_install_layout "$prefix"
) 9>"$(dirname "$QL_BIN")/.wineprefix.lock"
export WINEPREFIX=$prefix
cd "$prefix/drive_c"
exec wine "$exe" "$@"
