#!/bin/sh
# Makes the pictures of the documentation from the example product; needs no display.
set -eu
cd "$(dirname "$0")/.."

packaging/debian-packages.sh build desktop docs
cmake --preset release -DPACKWRIGHT_DESKTOP=ON >/dev/null
cmake --build --preset release --target screenshots >/dev/null

# Preferences of the person who runs this have no influence, and theirs are not touched.
home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
HOME=$home XDG_CONFIG_HOME=$home/.config XDG_RUNTIME_DIR=$home QT_QPA_PLATFORM=offscreen \
  out/release/bin/screenshots examples/Messprotokoll/Messprotokoll.product docs
echo "docs/main-window.png"
