#!/bin/sh
# Makes the Windows package on Debian: cross-builds Packwright and runs all of its tests under Wine,
# those of the windows too, then packs and tries the package.
#
#   build.sh      gives the folder out/windows/packwright and out/windows/packwright-VERSION-win64.zip of it
#
# Everything is kept in out/windows, and Qt for Windows in a cache folder (see qt.sh); what is there
# already is not made again. On two processors the first run takes 20 to 30 minutes, most of them for
# Qt, one with Qt in the cache four, and one after a small change one.
set -eu
cd "$(dirname "$0")/../.."

packaging/debian-packages.sh build desktop windows windows-desktop
mkdir -p out/windows
if ! packaging/windows/prefix.sh >out/windows/prefix.log 2>&1; then
  tail -n 50 out/windows/prefix.log >&2
  echo "The libraries for Windows cannot be built; all output is in out/windows/prefix.log" >&2
  exit 1
fi
qt=$(packaging/windows/qt.sh)

cmake --preset windows-desktop -DPACKWRIGHT_QT="$qt"
cmake --build --preset windows-desktop
# The setups that the two builds make are compared.
cmake --preset release -B out/windows/host -DBUILD_TESTING=OFF
cmake --build out/windows/host --target packwright-build

# The package first: the tests use its programs, and Windows finds DLLs beside the program only.
version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' out/windows/desktop/CMakeCache.txt)
archive=packwright-$version-win64.zip
package=$PWD/out/windows/packwright
rm -rf "$package" "out/windows/$archive"
cmake --install out/windows/desktop --strip --prefix "$package" >/dev/null
packaging/windows/licences.sh "$package" "$qt"
ln -sf -t out/windows/desktop/bin "$package"/*.dll "$qt/bin/Qt6Test.dll"
ln -sfn "$qt/plugins/platforms" out/windows/desktop/bin/platforms

packaging/windows/test-desktop.sh "$package"

(cd out/windows && cmake -E tar cf "$archive" --format=zip packwright)
echo "The package: out/windows/$archive ($(du -h "out/windows/$archive" | cut -f1))"
