#!/usr/bin/env bash
# Builds everything and runs every test, first in the normal build, then under the address and
# undefined-behaviour sanitizers.
set -euo pipefail
cd "$(dirname "$0")/.."
tools/deps.sh
jobs=$(nproc)
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build -j "$jobs"
ctest --test-dir build --output-on-failure -j "$jobs"
cmake -S . -B build-asan -G Ninja -DCMAKE_BUILD_TYPE=Debug -DKELO_SANITIZE=ON -DKELO_BENCH=OFF \
  -DCMAKE_CXX_COMPILER=clang++ >/dev/null
cmake --build build-asan -j "$jobs"
ctest --test-dir build-asan --output-on-failure -j "$jobs" -E '^format$'
