#!/bin/sh
# Tries the Windows package as somebody would who has just unpacked it. Wine has to be running with
# the environment of wine.sh.
#
#   check-package.sh PACKAGE
set -eu
cd "$(dirname "$0")/../.."
package=$1
# shellcheck source=packaging/windows/wine.sh
. packaging/windows/wine.sh
work=$(mktemp -d)
program=""
trap '[ -z "$program" ] || kill $program 2>/dev/null || true; rm -rf "$work"' EXIT
trap 'exit 130' INT # which runs the one above
trap 'exit 143' TERM HUP

fail() {
  echo "check-package: $1" >&2
  exit 1
}

# Every DLL that a file of the package wants is in the package or belongs to Windows.
for file in "$package"/*.exe "$package"/*.dll "$package"/*/*.dll; do
  libraries=$(x86_64-w64-mingw32-objdump -p "$file") || fail "$(basename "$file") cannot be read"
  libraries=$(echo "$libraries" | sed -n 's/^\tDLL Name: //p')
  [ -n "$libraries" ] || fail "$(basename "$file") wants no DLL at all"
  for library in $libraries; do
    case $library in api-ms-win-*) continue ;; esac # names that Windows itself resolves
    [ -f "$package/$library" ] ||
      [ -f "$WINEPREFIX/drive_c/windows/system32/$(echo "$library" | tr '[:upper:]' '[:lower:]')" ] ||
      fail "$(basename "$file") wants $library, which is not there"
  done
done

# Windows' own view of the programs: version, icon, manifest.
for program in packwright packwright-build packwright-setup; do
  x86_64-w64-mingw32-objdump -h "$package/$program.exe" | grep -q '\.rsrc' ||
    fail "$program.exe has no resources"
  grep -q longPathAware "$package/$program.exe" || fail "$program.exe has no manifest"
done

# The same product gives the same setup on Windows and here, to the byte.
cp -R examples/Messprotokoll "$work/product"
product=$work/product/Messprotokoll.product
$wine "$package/packwright-build.exe" "$(windows_path "$product")" 1.1.0 --json \
  --output "$(windows_path "$work/windows")" >"$work/report.json" ||
  fail "packwright-build.exe failed: $(cat "$work/report.json")"
out/windows/host/bin/packwright-build "$product" 1.1.0 --quiet --output "$work/here"
for file in Messprotokoll.zip Messprotokoll.install; do
  cmp "$work/windows/$file" "$work/here/$file" || fail "$file differs from the one built here"
done

# The program packs itself, and its setup holds the programs as they are.
packaging/windows/pack-itself.sh "$package" "$work/itself"

# The desktop program starts, with German texts and its icons.
$wine "$package/packwright.exe" "$(windows_path "$product")" >/dev/null 2>&1 &
program=$!
sleep 5
kill -0 $program 2>/dev/null || fail "packwright.exe ended at once"
kill $program
program=""
