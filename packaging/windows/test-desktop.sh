#!/bin/sh
# Runs the tests of the cross-build with the desktop program under Wine, with real windows on an X
# server of their own, and tries the finished package. build.sh calls it.
#
#   test-desktop.sh PACKAGE [ctest options...]
set -eu
cd "$(dirname "$0")/../.."
package=$1
shift

# shellcheck source=packaging/windows/wine.sh
. packaging/windows/wine.sh

display_file=$(mktemp)
Xvfb -displayfd 3 -screen 0 1600x1200x24 -nolisten tcp 3>"$display_file" >/dev/null 2>&1 &
xvfb=$!
trap 'end_wine; kill $xvfb 2>/dev/null || true; rm -f "$display_file"' EXIT
trap 'exit 130' INT # which runs the one above
trap 'exit 143' TERM HUP
for _ in $(seq 100); do
  [ ! -s "$display_file" ] || break
  sleep 0.1
done
use_wine ":$(cat "$display_file")"

# A window without focus gets no keys, so that programs with windows run one at a time.
ctest --preset windows-desktop "$@"
packaging/windows/check-package.sh "$package"
