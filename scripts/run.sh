#!/usr/bin/env bash
# Installs what is missing, builds and launches Vellox.
set -euo pipefail
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
"$root/scripts/install-deps.sh"
"$root/scripts/build.sh"
exec "$root/build/src/app/vellox" "$@"
