#!/bin/sh
# Cross-builds the parts below the desktop for 64-bit Windows and runs their tests under Wine.
# Everything is kept in out/windows: the libraries, the build tree, the Wine prefix; each is made
# once. Arguments go to ctest.
set -eu
cd "$(dirname "$0")/../.."
root=$PWD

packaging/debian-packages.sh build windows
mkdir -p out/windows/wine
if ! packaging/windows/prefix.sh >out/windows/prefix.log 2>&1; then
  tail -n 50 out/windows/prefix.log >&2
  echo "The libraries for Windows cannot be built; all output is in out/windows/prefix.log" >&2
  exit 1
fi

cmake --preset windows
cmake --build --preset windows

# The tests meet a Windows 10 of their own, with no window and no other session of Wine.
export WINEPREFIX="$root/out/windows/wine" WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=d"
export LC_ALL=C.UTF-8
unset DISPLAY
wine=/usr/lib/wine/wine64
wineserver=/usr/lib/wine/wineserver64

# A server that stays: otherwise Wine's services start with the first test and hold ctest's pipe.
$wineserver -p >/dev/null 2>&1 </dev/null
trap '$wineserver -k >/dev/null 2>&1 || true' EXIT
if [ ! -f "$WINEPREFIX/ready" ]; then
  $wine wineboot --init >/dev/null 2>&1 </dev/null
  $wine winecfg /v win10 >/dev/null 2>&1 </dev/null
  touch "$WINEPREFIX/ready"
else
  $wine wineboot >/dev/null 2>&1 </dev/null
fi

ctest --preset windows -j "$(nproc)" "$@"
