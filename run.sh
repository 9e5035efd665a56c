#!/bin/sh
# Builds Packwright and, with it, the example product into a setup, then opens the desktop program
# where there is a display. Works on a fresh Debian 12; run again, it only does what is new.
set -eu
cd "$(dirname "$0")"

packaging/debian-packages.sh build desktop run

configure_log=$(mktemp)
trap 'rm -f "$configure_log"' EXIT
cmake --preset release -DPACKWRIGHT_DESKTOP=ON -DBUILD_TESTING=OFF >"$configure_log" || {
  cat "$configure_log" >&2
  exit 1
}
cmake --build --preset release

setup=out/setup
echo
out/release/bin/packwright-build examples/Messprotokoll/Messprotokoll.product 1.1.0 \
  --output "$setup" --overwrite --prove
echo
echo "The setup lies in $PWD/$setup:"
ls -l "$setup"
echo
unzip -l "$setup"/*.zip

echo
if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  echo "Opening the example in out/release/bin/packwright; this ends when its window is closed."
  exec out/release/bin/packwright examples/Messprotokoll/Messprotokoll.product
fi
echo "No display here: the desktop program out/release/bin/packwright is built, but not opened."
