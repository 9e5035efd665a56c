#!/bin/sh
# Makes the pictures of the documentation from the example product; needs no display.
set -eu
cd "$(dirname "$0")/.."

packaging/debian-packages.sh build desktop docs
cmake --preset release -DPACKWRIGHT_DESKTOP=ON >/dev/null
cmake --build --preset release --target screenshots >/dev/null

# Preferences of the person who runs this have no influence, and theirs are not touched; the pictures
# show the same folder wherever this is run.
home=/tmp/Projekte
mkdir -m 700 "$home"
trap 'rm -rf "$home"' EXIT
cp -R examples/Messprotokoll "$home"
mkdir "$home/.wine" # the registry that the registry page browses
printf 'WINE REGISTRY Version 2\n\n[Software\\\\%s] 1\n\n[Software\\\\%s] 1\n\n[Software\\\\%s] 1\n' \
  Classes Microsoft 'Quillon\\Tessel' >"$home/.wine/system.reg"
HOME=$home XDG_CONFIG_HOME=$home/.config XDG_RUNTIME_DIR=$home QT_QPA_PLATFORM=offscreen \
  out/release/bin/screenshots "$home/Messprotokoll/Messprotokoll.product" docs
ls docs/*.png
