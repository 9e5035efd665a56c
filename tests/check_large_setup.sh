#!/bin/sh
# Fails when a setup with a file of more than 4 GiB is not listed, proven, compared and installed
# rightly, and one whose archive has its last member behind 4 GiB. Takes about 14 GiB of the disk,
# and some minutes.
#
#   check_large_setup.sh PROGRAM_FOLDER WORK_FOLDER
set -eu
programs=$(realpath "$1")
mkdir -p "$2"
work=$(mktemp -d "$(realpath "$2")/large.XXXXXX")
trap 'rm -rf "$work"' EXIT

fail() {
  echo "check_large_setup.sh: $1" >&2
  exit 1
}

product=$work/product
mkdir -p "$work/sources" "$product/Version 1.0.0"
printf '[General]\nVersion=1.0\n[Product]\nTitle=Large\n[Versions]\nCount=1\nVer1=1.0.0\n' \
  >"$product/Large.product"
printf '[Components]\nCount=1\n' >"$product/Version 1.0.0/product.version"
{
  printf '[Component]\nTitle=All\n[Files]\nCount=1\n[File1]\nType=2\nID={1}\nTargetFolder=2001\n'
  printf 'SourceName=*.*\nSourcePath=%s\n' "$work/sources"
} >"$product/Version 1.0.0/component1.component"

# check NAME OPTION   builds, and goes through all that reads a setup
check() {
  "$programs/packwright-build" "$product/Large.product" 1.0.0 "$2" --quiet --output "$work/$1"
  rows=$("$programs/packwright-setup" list --quiet "$work/$1" | cut -f 2,3)
  [ "$rows" = "$(printf '%%InstallPath%%\\a.bin\t%s\n%%InstallPath%%\\b.txt\t4' "$size")" ] ||
    fail "$1 is listed as $rows"
  "$programs/packwright-setup" prove "$work/$1" --product "$product/Large.product" --version 1.0.0
  "$programs/packwright-setup" unpack "$work/$1" --into "$work/probe" --quiet
  for file in a.bin b.txt; do cmp "$work/sources/$file" "$work/probe/InstallPath/$file"; done
  rm -r "$work/probe"
}

printf 'last' >"$work/sources/b.txt"
truncate -s 4300M "$work/sources/a.bin"
printf 'end' >>"$work/sources/a.bin"
size=$(stat -c %s "$work/sources/a.bin")
check zeros --zip
check tree --no-zip
"$programs/packwright-setup" compare "$work/zeros" "$work/tree"
rm -r "$work/tree"

# A byte in the last of the 4 GiB is found. The archive's copies are the ones before it.
printf 'End' | dd of="$work/sources/a.bin" bs=1 seek=$((size - 3)) conv=notrunc status=none
status=0
found=$("$programs/packwright-setup" prove "$work/zeros" --product "$product/Large.product" \
  --version 1.0.0 2>&1) || status=$?
[ "$status" = 1 ] || fail "a changed byte was not found: $found"
case $found in
  *"weicht ab Byte $((size - 3)) von der Quelle ab"*) ;;
  *) fail "the changed byte is not named: $found" ;;
esac
rm -r "$work/zeros"

head -c 4300M /dev/urandom >"$work/sources/a.bin"
size=$(stat -c %s "$work/sources/a.bin")
check random --zip
[ "$(stat -c %s "$work/random/Large.zip")" -gt "$size" ] || fail "the random bytes were packed"
echo "Setups of more than 4 GiB are read rightly."
