#!/usr/bin/env bash
# Configures and builds Vellox into ./build (Release with debug info, warnings as errors).
set -euo pipefail
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
launcher=()
command -v ccache >/dev/null && launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
cmake -S "$root" -B "$root/build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DVELLOX_WERROR=ON \
    "${launcher[@]}" >/dev/null
cmake --build "$root/build" --parallel "$(nproc)"
