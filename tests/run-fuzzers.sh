#!/bin/sh
# Fuzzes everything that reads files of others, each target for SECONDS, two at
# a time for each processor:
#
#   run-fuzzers.sh SECONDS [TARGET...]
#
# What a run finds out stays in out/fuzz/corpus for the next one; an input that breaks something is
# kept in out/fuzz/findings. .ci/run gives each target 60 seconds, .ci/release 90.
set -eu
cd "$(dirname "$0")/.."
seconds=$1
shift
packaging/debian-packages.sh build test fuzz
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz
[ $# -gt 0 ] || set -- $(ls tests/fuzz/seeds)

# A target that writes files does so in memory.
[ -d /dev/shm ] && export TMPDIR=/dev/shm
mkdir -p out/fuzz/findings
fuzz() {
  corpus=out/fuzz/corpus/$1
  mkdir -p "$corpus"
  "out/fuzz/bin/$1Fuzz" -max_total_time="$seconds" -timeout=10 -use_value_profile=1 \
    -artifact_prefix="out/fuzz/findings/$1-" "$corpus" "tests/fuzz/seeds/$1" \
    >"out/fuzz/$1.log" 2>&1 && tail -n 1 "out/fuzz/$1.log" | sed "s/^/$1: /"
}

together=$(($(nproc) * 2))
failed=""
while [ $# -gt 0 ]; do
  started=""
  for _ in $(seq "$together"); do
    [ $# -gt 0 ] || break
    fuzz "$1" &
    started="$started $1:$!"
    shift
  done
  for each in $started; do
    wait "${each#*:}" || failed="$failed ${each%:*}"
  done
done
for target in $failed; do
  echo "$target found something:" >&2
  tail -n 40 "out/fuzz/$target.log" >&2
done
[ -z "$failed" ]
