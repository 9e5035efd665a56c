#!/bin/sh
# Collects the licences of everything in the Windows package that is not Packwright's own.
#
#   licences.sh FOLDER QT      writes FOLDER/licences; QT is the folder of Qt for Windows
set -eu
cd "$(dirname "$0")/../.."
folder=$1/licences
qt=$2
mkdir -p "$folder"

# add NAME VERSION-OF-PACKAGE FILE USE    one line of the list, and the licence text itself
add() {
  cp "$3" "$folder/$1.txt"
  version=$(dpkg-query -W -f '${Version}' "$2")
  printf '%-17s %-26s %s\n' "$1" "$version" "$4" >>"$folder/README.txt"
}

doc=/usr/share/doc
sources=out/windows/sources
cat >"$folder/README.txt" <<'END'
Third-party software in this package. Each has its licence in the file of its name beside this list.
Everything was built from the source packages of Debian 12, in the versions named here; they can be
had from Debian's archive of source packages at any time.

END
add qt qt6-base-dev-tools "$qt/copyright" "Qt6*.dll, platforms, styles"
add qt-translations qt6-translations-l10n $doc/qt6-translations-l10n/copyright "translations"
add gcc-runtime gcc-mingw-w64-x86-64-posix-runtime $doc/gcc-mingw-w64-x86-64-posix-runtime/copyright \
  "libstdc++-6.dll, libgcc_s_seh-1.dll"
add mingw-w64 mingw-w64-x86-64-dev $doc/mingw-w64-x86-64-dev/copyright \
  "libwinpthread-1.dll, start-up code"
add libdeflate libdeflate-dev "$(echo $sources/libdeflate-[0-9]*/debian/copyright)" "in the programs"
add utf8proc libutf8proc-dev "$(echo $sources/utf8proc-[0-9]*/debian/copyright)" "in the programs"
add libzip libzip-dev "$(echo $sources/libzip-[0-9]*/debian/copyright)" "in packwright-setup.exe"
add zlib libz-mingw-w64-dev $doc/libz-mingw-w64-dev/copyright "in the programs"
add cli11 libcli11-dev $doc/libcli11-dev/copyright "in packwright-build.exe"
add nlohmann-json nlohmann-json3-dev $doc/nlohmann-json3-dev/copyright "in packwright-build.exe"
for licence in LGPL-3 GPL-3 GPL-2; do
  cp /usr/share/common-licenses/$licence "$folder/$licence.txt"
done
cat >>"$folder/README.txt" <<'END'

Qt is used under the GNU Lesser General Public License, version 3 (LGPL-3.txt, which builds on
GPL-3.txt). Its DLLs are separate files: you may replace them by others of the same interface, such
as ones that you have built from Qt's source.
END
