#!/bin/bash
# Sets packwright-build beside its peers on the same data in one run, and prints times as ratios and
# archive sizes. Each figure is the median of some runs that take turns; the data is in the page
# cache, and what one run has written is on the disk before the next begins.
#
#   bench/run.sh [binaries] [small] [large] [huge] [settings] [pages] [desktop] [start] [memory]
#
# Without arguments all of them.
#
# Data and results go to $PACKWRIGHT_BENCH_DIR (out/bench-data), about 9 GB for everything;
# a file of 5 GiB also goes through the system's temporary folder.
set -euo pipefail
cd "$(dirname "$0")/.."
runs=${PACKWRIGHT_BENCH_RUNS:-5}
data=$(realpath -m "${PACKWRIGHT_BENCH_DIR:-out/bench-data}")
export LC_ALL=C

prepare() {
  packaging/debian-packages.sh build desktop bench
  cmake --preset release -B out/bench -DPACKWRIGHT_DESKTOP=ON -DPACKWRIGHT_BENCH=ON \
    -DBUILD_TESTING=OFF >/dev/null
  cmake --build out/bench --target packwright-build deflate_limit settings_bench pages_bench \
    desktop_bench start_bench bare_window program_window >/dev/null
  builder=$PWD/out/bench/bin/packwright-build
  mkdir -p "$data"
}

# --- data ---------------------------------------------------------------------------------------

# Copies the files named on standard input, flat and numbered, until LIMIT bytes or COUNT files.
copy_files() { # FOLDER LIMIT COUNT
  mkdir -p "$1.new"
  local bytes=0 count=0 size file
  while read -r size file && [ "$count" -lt "$3" ] && [ $((bytes + size)) -le "$2" ]; do
    count=$((count + 1)) bytes=$((bytes + size))
    cp -p "$file" "$1.new/$(printf %05d $count)-${file##*/}"
  done
  cat >/dev/null # the rest of the list, so that its writers end in peace
  mv "$1.new" "$1"
}

make_binaries() {
  [ -d "$data/binaries" ] || find /usr/lib -type f -size +64k -size -40M \
    \( -name '*.so*' -o -perm -u+x \) -printf '%s %p\n' | sort -k2 |
    copy_files "$data/binaries" 350000000 100000
}

make_small() {
  [ -d "$data/small" ] || find /usr/include /usr/share /usr/lib -type f -size +0 -size -32k \
    ! -name '*.gz' -printf '%s %p\n' | sort -k2 | copy_files "$data/small" 1000000000 13000
}

make_large() {
  make_binaries
  [ -d "$data/large" ] || {
    mkdir -p "$data/large.new"
    set +o pipefail
    while :; do cat "$data"/binaries/* || break; done 2>/dev/null |
      head -c 2000000000 >"$data/large.new/large.bin"
    set -o pipefail
    mv "$data/large.new" "$data/large"
  }
}

# A product whose only entry is a scan of one of the folders above.
make_product() { # NAME
  local folder="$data/product-$1"
  mkdir -p "$folder/Version 1.0.0"
  printf '[General]\nVersion=1.0\n[Product]\nTitle=Bench\n[Versions]\nCount=1\nVer1=1.0.0\n' \
    >"$folder/bench.product"
  printf '[Components]\nCount=1\n' >"$folder/Version 1.0.0/product.version"
  {
    printf '[Component]\nTitle=All\n[Files]\nCount=1\n[File1]\nType=2\nID={1}\n'
    printf 'SourcePath=%s\nSourceName=*.*\nIncludeChildren=1\nTargetFolder=2001\n' "$data/$1"
  } >"$folder/Version 1.0.0/component1.component"
}

make_nsis() { # NAME
  printf 'SetCompressor zlib\nOutFile "%s"\nInstallDir "$TEMP\\x"\nSection\nSetOutPath "$INSTDIR"\nFile /r "%s"\nSectionEnd\n' \
    "$data/out/nsis.exe" "$data/$1" >"$data/nsis.nsi"
}

# --- measuring ----------------------------------------------------------------------------------

# Seconds of one run of a shell command; its leftovers in out/ are removed before it.
seconds_of() {
  rm -rf "$data/out" && mkdir -p "$data/out" && sync
  local begun ended
  begun=$(date +%s.%N)
  bash -c "$1" >/dev/null 2>"$data/errors" || { cat "$data/errors" >&2; return 1; }
  ended=$(date +%s.%N)
  echo "$ended $begun" | awk '{printf "%.3f\n", $1 - $2}'
}

median() { sort -n | awk '{a[NR] = $1} END {printf "%.3f\n", a[int((NR + 1) / 2)]}'; }

# compare TITLE NAME@COMMAND...     the first is ours; prints its time and the others' over it
compare() {
  local title=$1 run i
  shift
  echo "## $title"
  rm -f "$data"/times.* "$data"/size.* # of a run that was broken off
  for ((run = 1; run <= runs; run++)); do
    for ((i = 1; i <= $#; i++)); do
      seconds_of "${!i#*@}" >>"$data/times.$i"
      if [ "$run" = 1 ]; then
        find "$data/out" -type f \( -name '*.zip' -o -name '*.exe' \) -printf '%s\n' |
          sort -n | tail -1 >"$data/size.$i"
      fi
    done
  done
  local ours time
  ours=$(median <"$data/times.1")
  for ((i = 1; i <= $#; i++)); do
    if [ "${!i%%@*}" = limit ]; then time=$("$data/limit.sh"); else time=$(median <"$data/times.$i"); fi
    awk -v name="${!i%%@*}" -v time="$time" -v ours="$ours" -v size="$(cat "$data/size.$i")" \
      'BEGIN {printf "%-12s %8.3f s  x %6.2f", name, time, time / ours
              if (size != "") printf "  %12d bytes", size
              print ""}'
  done
  rm -f "$data"/times.* "$data"/size.*
}

# The time that libdeflate needs in memory is printed by the program itself.
limit_of() { # NAME
  printf '#!/bin/sh\nfor i in $(seq %s); do %s %s; done | sort -n | awk "{a[NR]=\\$1} END {print a[int((NR+1)/2)]}"\n' \
    "$runs" "$PWD/out/bench/bin/deflate_limit" "$data/$1" >"$data/limit.sh"
  chmod +x "$data/limit.sh"
}

ours() { # NAME OPTIONS
  echo "$builder $data/product-$1/bench.product 1.0.0 --quiet --output $data/out/setup ${2:-}"
}

# --- what is compared ---------------------------------------------------------------------------

folder_bench() { # NAME TITLE
  make_product "$1"
  make_nsis "$1"
  limit_of "$1"
  compare "$2, packaged" "packwright@$(ours "$1")" \
    "zip -6@cd $data && zip -6 -q -r out/zip.zip $1" \
    "7zz -mx=3@cd $data && 7zz a -tzip -mx=3 out/7z.zip $1" \
    "makensis@makensis -V1 $data/nsis.nsi" \
    "limit@true"
  compare "$2, not packaged" "packwright@$(ours "$1" --no-zip)" \
    "cp@cp -r --preserve=timestamps $data/$1 $data/out/copy"
}

large_bench() {
  make_large
  make_product large
  compare "One file of 2 GB" "packwright@$(ours large)" \
    "pigz -K -6@pigz -K -6 -c $data/large/large.bin >$data/out/pigz.zip"
}

settings_bench() {
  echo "## Settings, 50,000 entries"
  out/bench/bin/settings_bench "$data/settings"
}

pages_bench() {
  echo "## Editor pages, 50,000 files and 100,000 registry keys"
  QT_QPA_PLATFORM=offscreen out/bench/bin/pages_bench "$data/pages"
}

desktop_bench() {
  echo "## The main window, 100 versions of 100 components"
  mkdir -p "$data/desktop"
  QT_QPA_PLATFORM=offscreen out/bench/bin/desktop_bench "$data/desktop"
}

# On a real window system: without one a window without text needs no fonts, which takes most of the
# difference.
start_bench() {
  echo "## From the start to the window"
  env -u QT_QPA_PLATFORM xvfb-run -a out/bench/bin/start_bench
}

# No comparison: a member of more than 4 GiB, which needs the Zip64 form, read by another program.
huge_check() {
  echo "## One file of 5 GiB"
  mkdir -p "$data/huge"
  truncate -s 5G "$data/huge/huge.bin"
  make_product huge
  rm -rf "$data/out"
  /usr/bin/time -f '%e s' bash -c "exec $(ours huge)" 2>&1
  unzip -tqq "$data/out/setup/Bench.zip" && unzip -Zt "$data/out/setup/Bench.zip"
}

memory_bench() {
  echo "## Peak memory of packwright-build (KB)"
  local name
  for name in binaries small large; do
    [ -d "$data/product-$name" ] || continue
    rm -rf "$data/out"
    printf '%-10s ' "$name"
    /usr/bin/time -f %M bash -c "exec $(ours "$name")" 2>&1
  done
}

prepare
for what in ${*:-binaries small large huge settings pages desktop start memory}; do
  case $what in
    binaries) make_binaries; folder_bench binaries "350 MB of binaries" ;;
    small) make_small; folder_bench small "13,000 small files" ;;
    large) large_bench ;;
    huge) huge_check ;;
    settings) settings_bench ;;
    pages) pages_bench ;;
    desktop) desktop_bench ;;
    start) start_bench ;;
    memory) memory_bench ;;
    *) echo "unknown: $what" >&2; exit 2 ;;
  esac
done
