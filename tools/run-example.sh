#!/usr/bin/env bash
# Builds kelo and runs a command file of examples/ (default: the quick-start example).
set -euo pipefail
cd "$(dirname "$0")/.."
tools/deps.sh
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build build --target kelo
file="${1:-examples/three_span_bridge.inp}"
build/apps/kelo/kelo run "$file"
