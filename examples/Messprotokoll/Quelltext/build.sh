#!/bin/sh
# Rebuilds the example's two small Windows binaries with Debian's MinGW. They start without the
# compiler's run-time library, so each is a few KB; the same sources give the same bytes.
set -eu
cd "$(dirname "$0")"
target=../Quellen/Programm
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
host=x86_64-w64-mingw32

# version_resource NAME DESCRIPTION KIND
version_resource() {
  $host-windres -O coff -D "NAME=\\\"$1\\\"" -D "DESCRIPTION=\\\"$2\\\"" -D "KIND=$3" version.rc \
    "$work/$1.o"
}
# build NAME SOURCE [option...]
build() {
  name=$1 source=$2
  shift 2
  $host-gcc -Os -Wall -Wextra -s -nostdlib -Wl,--no-insert-timestamp -Wl,--file-alignment=512 \
    -fno-asynchronous-unwind-tables -fno-math-errno -D_WIN32_WINNT=0x0A00 \
    -o "$target/$name" "$source" "$work/$name.o" "$@" -lmsvcrt -lkernel32
  chmod 644 "$target/$name"
}
version_resource Messprotokoll.exe Messprotokoll VFT_APP
version_resource MessreiheTyp.dll "Dateityp Messreihe" VFT_DLL
build Messprotokoll.exe Messprotokoll.c -mwindows -Wl,-eStart -lcomdlg32 -lshell32 -luser32
build MessreiheTyp.dll MessreiheTyp.c -shared -Wl,-eDllStart -ladvapi32
