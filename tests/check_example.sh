#!/bin/sh
# Builds both versions of the example product and fails on any error, warning or finding, of the proof too.
#
#   check_example.sh PACKWRIGHT_BUILD WORK_FOLDER
set -eu
program=$1
work=$2
product=$(dirname "$0")/../examples/Messprotokoll/Messprotokoll.product

for version in 1.0.0 1.1.0; do
  "$program" "$product" $version --check --output "$work/$version"
  "$program" "$product" $version --zip --overwrite --prove --output "$work/$version"
  # A log without problems is its banner, its date and an empty line.
  [ "$(wc -l <"$work/$version/build.log")" = 3 ] || {
    cat "$work/$version/build.log" >&2
    exit 1
  }
done
unzip -tq "$work/1.1.0/Messprotokoll.zip"
# Every packed file reaches a target, and what is kept for the house stays at home.
[ "$(grep -c '^If Extract(' "$work/1.1.0/Messprotokoll.install")" = 15 ]
! grep -q 'intern' "$work/1.1.0/Messprotokoll.install"
