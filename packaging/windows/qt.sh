#!/bin/sh
# Cross-builds Qt for Windows as DLLs from Debian's source packages, once, into a cache folder that
# checkouts share, and says on standard output where it lies. On two processors this takes 15 to 25
# minutes, and 3 GB while it builds; 70 MB stay.
#
#   qt.sh      ~/.cache/packwright/qt-VERSION is used, or $PACKWRIGHT_CACHE/qt-VERSION
#
# The version is that of the host's Qt tools (moc, rcc, lrelease): the two must be the same.
set -eu
cd "$(dirname "$0")/../.."
root=$PWD
cache=${PACKWRIGHT_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/packwright}
version=$(dpkg-query -W -f '${source:Upstream-Version}' qt6-base-dev-tools | sed 's/+.*//')
qt=$cache/qt-$version-mingw
mkdir -p "$cache"
exec 9>"$cache/lock" # checkouts share the cache
flock 9
if [ -f "$qt/complete" ]; then
  echo "$qt"
  exit 0
fi

sources=$cache/qt-$version-sources
build=$cache/qt-$version-build
log=$cache/qt-$version.log
mkdir -p "$sources" "$build"

# configure_and_install SOURCE NAME [option...]
configure_and_install() {
  source=$1 name=$2
  shift 2
  cmake -G Ninja -S "$source" -B "$build/$name" -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_INSTALL_PREFIX="$qt" -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF "$@"
  cmake --build "$build/$name"
  cmake --install "$build/$name" --strip
}

# Only what the program needs, and Qt's own copies of the libraries below it: Windows has none.
build_base() {
  configure_and_install "$1" base -DCMAKE_TOOLCHAIN_FILE="$root/cmake/toolchain/mingw-w64.cmake" \
    -DBUILD_SHARED_LIBS=ON -DQT_QMAKE_TARGET_MKSPEC=win32-g++ \
    -DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR=/usr/lib/x86_64-linux-gnu/cmake \
    -DFEATURE_system_zlib=OFF -DFEATURE_system_pcre2=OFF -DFEATURE_system_harfbuzz=OFF \
    -DFEATURE_system_freetype=OFF -DFEATURE_system_png=OFF -DFEATURE_system_jpeg=OFF \
    -DFEATURE_system_doubleconversion=OFF \
    -DFEATURE_network=OFF -DFEATURE_sql=OFF -DFEATURE_dbus=OFF -DFEATURE_concurrent=OFF \
    -DFEATURE_printsupport=OFF -DFEATURE_vulkan=OFF -DFEATURE_icu=OFF -DFEATURE_zstd=OFF \
    -DFEATURE_glib=OFF -DINPUT_opengl=no -DFEATURE_tabletevent=OFF -DFEATURE_direct2d=ON \
    -DFEATURE_direct2d1_1=OFF
}

echo "Building Qt $version for Windows, once (15 to 25 minutes)" >&2
exec 3>&1 4>&2 >"$log" 2>&1
trap 'tail -n 50 "$log" >&4; echo "Qt cannot be built; all output is in $log" >&4' EXIT
[ -f "$sources/fetched" ] || packaging/windows/debian-source.sh "$sources" qt6-base
touch "$sources/fetched"
source=$(echo "$sources"/qt6-base-[0-9]*/)
build_base "$source"
cp "$source/debian/copyright" "$qt/copyright"
trap - EXIT
touch "$qt/complete"
rm -rf "$build" "$sources"
echo "$qt" >&3
