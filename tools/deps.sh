#!/usr/bin/env bash
# Installs the Debian packages the build needs when any is missing.
set -euo pipefail
pkgs=(g++ cmake ninja-build libgtest-dev libgmock-dev libbenchmark-dev libsqlite3-dev liblapack-dev clang clang-format)
missing=()
for p in "${pkgs[@]}"; do
  dpkg -s "$p" >/dev/null 2>&1 || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  echo "Installing: ${missing[*]}" >&2
  SUDO=""; [ "$(id -u)" -ne 0 ] && SUDO="sudo"
  $SUDO apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq "${missing[@]}"
fi
