#!/usr/bin/env bash
# Seeded mutation sampler: builds the tree, prepares Wine and a display as the test command does,
# then applies one small fault at a time to the program's logic and runs the tests of its area.
# Arguments go to scripts/mutate.py (--seed, --count per area, --areas, --list).
# Example: ./scripts/mutate.sh --seed 19 --count 8
set -euo pipefail
source "$(dirname "$0")/common.sh"
QL_PACKAGES+=(python3)
ql_install_packages
# The program and its libraries are installed into the test prefix; each area's tests are built
# by the sampler itself.
ql_build ql_options resource_libraries
ql_test_environment
python3 "$QL_ROOT/scripts/mutate.py" --build "$QL_BUILD" "$@"
