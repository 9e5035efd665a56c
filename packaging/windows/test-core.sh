#!/bin/sh
# Cross-builds the parts below the desktop for 64-bit Windows and runs their tests under Wine.
# Everything is kept in out/windows: the libraries, the build tree, the Wine prefix; each is made
# once. Arguments go to ctest.
set -eu
cd "$(dirname "$0")/../.."

packaging/debian-packages.sh build windows
mkdir -p out/windows
if ! packaging/windows/prefix.sh >out/windows/prefix.log 2>&1; then
  tail -n 50 out/windows/prefix.log >&2
  echo "The libraries for Windows cannot be built; all output is in out/windows/prefix.log" >&2
  exit 1
fi

cmake --preset windows
cmake --build --preset windows

# shellcheck source=packaging/windows/wine.sh
. packaging/windows/wine.sh
trap end_wine EXIT
trap 'exit 130' INT # which runs the one above
trap 'exit 143' TERM HUP
use_wine ""
ctest --preset windows -j "$(nproc)" "$@"
