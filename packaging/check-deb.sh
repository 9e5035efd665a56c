#!/bin/sh
# Builds the Debian package, unpacks it into an empty root and starts the programs from there.
set -eu
cd "$(dirname "$0")/.."
source_folder=$PWD

fail() {
  echo "check-deb.sh: $1" >&2
  exit 1
}

cmake --preset release -DPACKWRIGHT_DESKTOP=ON
cmake --build --preset release --target packwright packwright-build packwright-setup

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cpack -G DEB --config out/release/CPackConfig.cmake -B "$work"
package=$(ls "$work"/packwright_*.deb)
dpkg-deb --info "$package"

# What the programs link must be named as dependencies.
depends=$(dpkg-deb --field "$package" Depends)
for library in libc6 libdeflate0 libqt6widgets6 libutf8proc2 libzip4; do
  case $depends in
    *"$library"*) ;;
    *) fail "the package does not depend on $library: $depends" ;;
  esac
done

root=$work/root
dpkg-deb --extract "$package" "$root"
for file in applications/packwright.desktop doc/packwright/handbuch.html \
  doc/packwright/kapitel/dateien.html \
  icons/hicolor/scalable/apps/packwright.svg man/man1/packwright.1 man/man1/packwright-build.1 \
  man/man1/packwright-setup.1 \
  bash-completion/completions/packwright-build bash-completion/completions/packwright-setup \
  doc/packwright/checking-setups.md \
  metainfo/org.packwright.Packwright.metainfo.xml mime/packages/packwright.xml; do
  [ -s "$root/usr/share/$file" ] || fail "the package has no usr/share/$file"
done
"$root/usr/bin/packwright-build" --version
"$root/usr/bin/packwright-build" "$source_folder/examples/Messprotokoll/Messprotokoll.product" \
  1.1.0 --output "$work/setup" --quiet
[ -s "$work/setup/Messprotokoll.zip" ] || fail "the unpacked builder made no archive"
"$root/usr/bin/packwright-setup" list --quiet "$work/setup"

# The program runs until its window is closed: only the end of the time is a good end.
status=0
HOME=$work XDG_CONFIG_HOME=$work/config QT_QPA_PLATFORM=offscreen timeout 5 \
  "$root/usr/bin/packwright" "$source_folder/examples/Messprotokoll/Messprotokoll.product" ||
  status=$?
[ "$status" = 124 ] || fail "the unpacked program ended by itself with $status"
echo "The package is good: $(basename "$package"), $(stat -c %s "$package") bytes"
