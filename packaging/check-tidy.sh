#!/bin/sh
# Runs clang-tidy over the program's and the tests' sources, as .clang-tidy says; findings are
# errors. Sources of one target are read as one, so that Qt's and the library's headers are read
# once for all of them: names in a room's anonymous namespaces must differ.
set -eu
cd "$(dirname "$0")/.."

cmake --preset tidy >/dev/null
# What tests include of moc's, which nothing builds here.
grep -l '^#include ".*\.moc"' -r tests --include='*.cpp' | while read -r source; do
  name=$(basename "$source" .cpp)
  mkdir -p "out/tidy/tests/${name}_autogen/include"
  /usr/lib/qt6/libexec/moc "$source" -o "out/tidy/tests/${name}_autogen/include/$name.moc"
done

# The largest first, so that the processors end together. The shim of the faults is left out: it
# defines the C library's own functions. Compile commands are those of GCC, some of whose warnings
# clang does not know; names that hide one of another source are none here.
sed -n 's/^ *"file": "\(.*\)",*$/\1/p' out/tidy/compile_commands.json |
  grep -vE '/(mocs_compilation|qrc_[a-z]*)\.cpp$|/fault_shim\.dir/' | sort -u | xargs wc -c | grep -v ' total$' |
  sort -rn | sed 's/^ *[0-9]* //' >out/tidy/files.txt
status=0
xargs -d '\n' -n 1 -P "$(nproc)" clang-tidy --quiet -p out/tidy \
  --checks=-bugprone-suspicious-include --extra-arg=-Wno-unknown-warning-option \
  --extra-arg=-Wno-shadow <out/tidy/files.txt >out/tidy/findings.txt 2>&1 || status=1
grep -vE '^[0-9]+ warnings? generated\.$|^Suppressed |^Use -header-filter' out/tidy/findings.txt || true
exit $status
