#!/usr/bin/env bash
# Configures and builds into ./build (Release with debug info) and prints nothing on success but the build lines.
set -euo pipefail
cd "$(dirname "$0")/.."
build_dir=${ORVENNA_BUILD_DIR:-build}
if [ ! -f "$build_dir/build.ninja" ]; then
    cmake -S . -B "$build_dir" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo "$@"
fi
cmake --build "$build_dir" --parallel "$(nproc)"
