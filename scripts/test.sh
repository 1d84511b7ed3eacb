#!/usr/bin/env bash
# Installs what is missing, builds and runs the whole test suite without a display.
set -euo pipefail
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
"$root/scripts/install-deps.sh"
"$root/scripts/check.sh"
"$root/scripts/build.sh"
cd "$root/build"
export QT_QPA_PLATFORM=offscreen
export QT_LOGGING_RULES="qt.webenginecontext.info=false"
ctest --output-on-failure --timeout 300
