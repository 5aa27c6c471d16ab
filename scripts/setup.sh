#!/usr/bin/env bash
# Installs the Debian packages the project needs (only those missing) and builds everything.
set -euo pipefail
source "$(dirname "$0")/common.sh"
ql_install_packages
ql_build
ql_say "built into $QL_BUILD"
