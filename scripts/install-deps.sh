#!/usr/bin/env bash
# Installs the Debian packages listed in debian-packages.txt that are not installed yet.
set -euo pipefail
here="$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)"
mapfile -t wanted < <(grep -v '^\s*#' "$here/debian-packages.txt" | sed 's/\s.*//' | grep -v '^$')
missing=()
for pkg in "${wanted[@]}"; do
    if ! dpkg-query -W -f='${Status}' "$pkg" 2>/dev/null | grep -q 'install ok installed'; then
        missing+=("$pkg")
    fi
done
if [ ${#missing[@]} -eq 0 ]; then
    echo "install-deps: all ${#wanted[@]} packages present"
    exit 0
fi
echo "install-deps: installing ${missing[*]}"
SUDO=""
[ "$(id -u)" -eq 0 ] || SUDO="sudo"
export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update -qq
$SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}"
