#!/bin/sh
# Builds Packwright and, with it, the example product into a setup. Works on a fresh Debian 12;
# run again, it only does what is new.
set -eu
cd "$(dirname "$0")"

packaging/debian-packages.sh build run

configure_log=$(mktemp)
trap 'rm -f "$configure_log"' EXIT
cmake --preset release -DBUILD_TESTING=OFF >"$configure_log" || {
  cat "$configure_log" >&2
  exit 1
}
cmake --build --preset release

setup=out/setup
echo
out/release/bin/packwright-build examples/Messprotokoll/Messprotokoll.product 1.1.0 \
  --output "$setup" --overwrite
echo
echo "The setup lies in $PWD/$setup:"
ls -l "$setup"
echo
unzip -l "$setup"/*.zip
