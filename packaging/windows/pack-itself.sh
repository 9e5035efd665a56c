#!/bin/sh
# Has the Windows program make the setup of its own package, as examples/packwright describes it, and
# checks that the setup holds the package's files and nothing else. Wine has to be running with the
# environment of wine.sh.
#
#   pack-itself.sh PACKAGE FOLDER      the setup is written to FOLDER
set -eu
cd "$(dirname "$0")/../.."
package=$1
setup=$2
# shellcheck source=packaging/windows/wine.sh
. packaging/windows/wine.sh

product=$PWD/examples/packwright/Packwright.product
version=$(sed -n 's/^Ver1=//p' "$product")
built=$($wine "$package/packwright-build.exe" --version | tr -d '\r')
[ "$built" = "packwright-build $version" ] || {
  echo "pack-itself: examples/packwright describes $version, the program is $built" >&2
  exit 1
}
$wine "$package/packwright-build.exe" "$(windows_path "$product")" "$version" --json --overwrite \
  --output "$(windows_path "$setup")" | tee "$setup.json" | tail -n 1
grep -q '"errors":0' "$setup.json" && grep -q '"warnings":0' "$setup.json" || {
  echo "pack-itself: the build reports errors or warnings" >&2
  exit 1
}

# Members are numbered in the setup: content decides, whatever the order.
sums() { xargs -0 sha256sum | cut -d' ' -f1 | sort; }
unpacked=$(mktemp -d)
trap 'rm -rf "$unpacked"' EXIT
unzip -q "$setup/Packwright.zip" -d "$unpacked"
find "$unpacked" -type f -print0 | sums >"$setup.members"
find "$package" -type f -print0 | sums >"$setup.files"
cmp "$setup.members" "$setup.files" || {
  echo "pack-itself: the setup's files are not those of the package" >&2
  exit 1
}
