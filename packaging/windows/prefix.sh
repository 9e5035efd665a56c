#!/bin/sh
# Makes out/windows/prefix: the libraries that Debian does not package for Windows, cross-built from
# Debian's source packages, and the header-only ones. What is there already is kept.
set -eu
cd "$(dirname "$0")/../.."
root=$PWD
sources=$root/out/windows/sources
prefix=$root/out/windows/prefix
toolchain=$root/cmake/toolchain/mingw-w64.cmake
host=x86_64-w64-mingw32
mkdir -p "$sources" "$prefix/include" "$prefix/lib"

# build_with_cmake SOURCE NAME [option...]
build_with_cmake() {
  source=$1 name=$2
  shift 2
  cmake -G Ninja -S "$source" -B "$sources/build-$name" -DCMAKE_TOOLCHAIN_FILE="$toolchain" \
    -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX="$prefix" -DBUILD_SHARED_LIBS=OFF "$@"
  cmake --build "$sources/build-$name"
  cmake --install "$sources/build-$name"
}

# Debian 12's libdeflate has no CMake files, and its makefile is for other names of the tools.
build_libdeflate() {
  cd "$1"
  mkdir -p objects
  find lib -name '*.c' ! -path '*/arm/*' | while read -r file; do
    $host-gcc-posix -O2 -DNDEBUG -I. -c "$file" -o "objects/$(echo "$file" | tr / _).o"
  done
  rm -f "$prefix/lib/libdeflate.a"
  $host-ar rcs "$prefix/lib/libdeflate.a" objects/*.o
  cp libdeflate.h "$prefix/include/"
  cd "$root"
}

for source in libdeflate utf8proc libzip; do
  if [ ! -f "$sources/fetched-$source" ]; then
    packaging/windows/debian-source.sh "$sources" $source
    touch "$sources/fetched-$source"
  fi
done
if [ ! -f "$prefix/lib/libdeflate.a" ]; then
  build_libdeflate "$(echo "$sources"/libdeflate-[0-9]*/)"
fi
if [ ! -f "$prefix/lib/libutf8proc.a" ]; then
  build_with_cmake "$(echo "$sources"/utf8proc-[0-9]*/)" utf8proc -DUTF8PROC_ENABLE_TESTING=OFF
fi
if [ ! -f "$prefix/lib/libzip.a" ]; then
  build_with_cmake "$(echo "$sources"/libzip-[0-9]*/)" libzip -DENABLE_BZIP2=OFF \
    -DENABLE_COMMONCRYPTO=OFF -DENABLE_GNUTLS=OFF -DENABLE_LZMA=OFF -DENABLE_MBEDTLS=OFF \
    -DENABLE_OPENSSL=OFF -DENABLE_WINDOWS_CRYPTO=OFF -DENABLE_ZSTD=OFF -DBUILD_DOC=OFF \
    -DBUILD_EXAMPLES=OFF -DBUILD_REGRESS=OFF -DBUILD_TOOLS=OFF
fi
if [ ! -f "$prefix/lib/libgtest.a" ]; then
  build_with_cmake /usr/src/googletest googletest -DBUILD_GMOCK=ON
fi
if [ ! -d "$prefix/share/cmake/nlohmann_json" ]; then
  cp -r /usr/include/CLI /usr/include/nlohmann "$prefix/include/"
  mkdir -p "$prefix/share/cmake"
  cp -r /usr/share/cmake/nlohmann_json "$prefix/share/cmake/"
fi
