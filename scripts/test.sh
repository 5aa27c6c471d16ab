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

ql_test_environment

cd "$QL_BUILD"
ctest --output-on-failure "$@"
