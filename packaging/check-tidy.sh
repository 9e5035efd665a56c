#!/bin/sh
# Runs clang-tidy over the program's sources, as .clang-tidy says; findings are errors. Tests are
# left out, and so is what Qt's tools generate: the run is the longest part of CI as it is.
set -eu
cd "$(dirname "$0")/.."

# Compile commands are those of GCC, some of whose warnings clang does not know.
cmake --preset tidy >/dev/null
sed -n 's/^ *"file": "\(.*\)",*$/\1/p' out/tidy/compile_commands.json |
  grep -vE '/(tests|out)/' | sort -u >out/tidy/files.txt
status=0
xargs -d '\n' -n 1 -P "$(nproc)" clang-tidy --quiet -p out/tidy \
  --extra-arg=-Wno-unknown-warning-option <out/tidy/files.txt >out/tidy/findings.txt 2>&1 || status=1
grep -vE '^[0-9]+ warnings? generated\.$|^Suppressed |^Use -header-filter' out/tidy/findings.txt || true
exit $status
