#!/bin/sh
# Fails when a test file is not compiled, or when a test suite in it is not run by ctest.
#
#   check_tests.sh BUILD_FOLDER
set -eu
build=$1
cd "$(dirname "$0")/.."

known=$(ctest --test-dir "$build" --show-only | sed -n 's/^ *Test *#[0-9]*: //p')
failures=0
complain() {
  echo "$1" >&2
  failures=$((failures + 1))
}

desktop=$(sed -n 's/^PACKWRIGHT_DESKTOP:BOOL=//p' "$build/CMakeCache.txt")
for file in $(find tests -name '*Test*.cpp' ! -name '*_win.cpp' | sort); do
  qt_class=$(sed -nE 's/^QTEST_[A-Z_]*MAIN\((tests::)?([A-Za-z0-9_]+)\)$/\2/p' "$file")
  if [ -n "$qt_class" ] && [ "$desktop" = OFF ]; then continue; fi
  grep -qF "\"file\": \"$PWD/$file\"" "$build/compile_commands.json" ||
    complain "$file: is in no test program"
  folder=$(dirname "${file#tests/}")
  if [ -n "$qt_class" ]; then
    [ "$qt_class" = "$(basename "$file" .cpp)" ] || complain "$file: is not named like its class"
    echo "$known" | grep -qx "$folder/$qt_class" || complain "$file: ctest does not run it"
    continue
  fi
  suites=$(sed -nE 's/^ *(TYPED_)?TEST(_F|_P)?\( *([A-Za-z0-9_]+) *,.*/\3/p' "$file" | sort -u)
  [ -n "$suites" ] || complain "$file: holds no test"
  for suite in $suites; do
    # Cases with parameters are listed as Instance/Suite.Case/Parameter.
    echo "$known" | grep -qE "^${folder%%/*}/([A-Za-z0-9_]+/)?${suite}[./]" ||
      complain "$file: ctest does not run the suite $suite"
  done
  if grep -nE '\bDISABLED_' "$file"; then complain "$file: holds disabled tests"; fi
done
[ "$failures" = 0 ]
