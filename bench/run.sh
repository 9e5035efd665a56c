#!/bin/bash
# Sets packwright-build beside its peers on the same data in one run, and prints times as ratios and
# archive sizes. Each figure is the median of some runs that take turns; the data is in the page
# cache (but for cold), and what one run has written is on the disk before the next begins.
#
#   bench/run.sh [binaries] [small] [large] [cold] [rebuild] [stored] [levels] [huge] [settings]
#                [pages] [desktop] [start] [memory] [entries]
#
# Without arguments all of them. PACKWRIGHT_BENCH_RUNS=1 is enough to see that it works.
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
  cmake --build out/bench --target packwright-build deflate_limit rebuild_limit settings_bench \
    pages_bench desktop_bench start_bench bare_window program_window >/dev/null
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

# What does not shrink, in files of the size of large photographs.
make_random() {
  [ -d "$data/random" ] || {
    mkdir -p "$data/random.new"
    head -c 350000000 /dev/urandom | split -b 7000000 - "$data/random.new/photo"
    mv "$data/random.new" "$data/random"
  }
}

# Files in no order, until they are a hundredth of all bytes; each gets one byte more.
change_a_hundredth() { # FOLDER
  find "$1" -type f -printf '%s %p\n' | sort -k2 | sort -R --random-source=<(yes) |
    awk '{size[NR] = $1; $1 = ""; path[NR] = substr($0, 2); all += size[NR]}
         END {for (i = 1; i <= NR; ++i) if (sum + size[i] <= all / 100) {sum += size[i]; print path[i]}}' |
    while read -r file; do
      printf x >>"$file"
      touch -d '+1 minute' "$file" # zip sees steps of two seconds
    done
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
  printf 'SetCompressor zlib\nOutFile "%s"\nInstallDir "$TEMP\\x"\nSection\nSetOutPath "$INSTDIR"\nFile /r "%s/*"\nSectionEnd\n' \
    "$data/out/nsis.exe" "$data/$1" >"$data/nsis.nsi"
}

# --- measuring ----------------------------------------------------------------------------------

# Seconds of one run of a shell command; its leftovers in out/ are removed before it, and $before runs.
before=
seconds_of() {
  rm -rf "$data/out" && mkdir -p "$data/out" && bash -c "$before" && sync
  local begun ended
  begun=$(date +%s.%N)
  bash -c "$1" >/dev/null 2>"$data/errors" || { cat "$data/errors" >&2; return 1; }
  ended=$(date +%s.%N)
  echo "$ended $begun" | awk '{printf "%.3f\n", $1 - $2}'
}

median() { sort -n | awk '{a[NR] = $1} END {printf "%.3f\n", a[int((NR + 1) / 2)]}'; }

# compare TITLE NAME@COMMAND...     the first is ours; prints its time and the others' over it.
# The time of "limit" is what limit.sh prints; it makes no archive.
compare() {
  local title=$1 run i
  shift
  echo "## $title"
  rm -f "$data"/times.* "$data"/size.* # of a run that was broken off
  for ((run = 1; run <= runs; run++)); do
    for ((i = 1; i <= $#; i++)); do
      seconds_of "${!i#*@}" >>"$data/times.$i"
      if [ "$run" = 1 ]; then
        # The one written last: what $before has put there is older.
        find "$data/out" -type f \( -name '*.zip' -o -name '*.exe' \) -printf '%T@ %s\n' |
          sort -n | tail -1 | cut -d ' ' -f 2 >"$data/size.$i"
      fi
    done
  done
  local ours time
  ours=$(median <"$data/times.1")
  for ((i = 1; i <= $#; i++)); do
    if [ "${!i%%@*}" = limit ]; then
      time=$("$data/limit.sh")
      : >"$data/size.$i" # not that of what $before has put there
    else
      time=$(median <"$data/times.$i")
    fi
    awk -v name="${!i%%@*}" -v time="$time" -v ours="$ours" -v size="$(cat "$data/size.$i")" \
      'BEGIN {printf "%-12s %8.3f s  x %6.2f", name, time, time / ours
              if (size != "") printf "  %12d bytes", size
              print ""}'
  done
  rm -f "$data"/times.* "$data"/size.*
}

# The time that the work alone needs is printed by the program itself.
limit_of() { # PROGRAM ARGUMENTS
  printf '#!/bin/sh\nfor i in $(seq %s); do %s; done | sort -n | awk "{a[NR]=\\$1} END {print a[int((NR+1)/2)]}"\n' \
    "$runs" "$PWD/out/bench/bin/$*" >"$data/limit.sh"
  chmod +x "$data/limit.sh"
}

ours() { # NAME OPTIONS
  echo "$builder $data/product-$1/bench.product 1.0.0 --quiet --output $data/out/setup ${2:-}"
}

# --- what is compared ---------------------------------------------------------------------------

folder_bench() { # NAME TITLE
  make_product "$1"
  make_nsis "$1"
  limit_of deflate_limit "$data/$1"
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

# Builds on top of a setup of the same files, all of them as they were or a hundredth changed. The
# peer goes by time stamps; what comes out of ours is compared with a fresh build.
rebuild_bench() { # NAME TITLE
  local again="$data/again" changed
  rm -rf "$again" "$data/product-again" && mkdir -p "$again"
  cp -r --preserve=timestamps "$data/$1" "$data/again/files"
  make_product again/files
  rm -rf "$data/out" && bash -c "$(ours again/files)" && mv "$data/out/setup" "$again/setup"
  (cd "$again" && zip -6 -q -r zip.zip files)
  limit_of rebuild_limit "$data/$1" "$again/setup/Bench.zip"
  before="cp -r --preserve=timestamps $again/setup $again/zip.zip $data/out"
  for changed in "nothing" "a hundredth"; do
    if [ "$changed" != nothing ]; then change_a_hundredth "$again/files"; fi
    # zip ends with 12 when it finds nothing to do.
    compare "$2, built again with $changed changed" \
      "packwright@$(ours again/files --overwrite)" \
      "--fresh@$(ours again/files '--overwrite --fresh')" \
      "zip -u@cd $again && { zip -6 -u -q -r ../out/zip.zip files || [ \$? = 12 ]; }" \
      "limit@true"
    bash -c "$(ours again/files '--overwrite --fresh')"
    cp "$data/out/setup/Bench.zip" "$again/fresh.zip"
    rm -rf "$data/out/setup" && cp -r "$again/setup" "$data/out"
    bash -c "$(ours again/files --overwrite)"
    cmp "$data/out/setup/Bench.zip" "$again/fresh.zip" && echo "same bytes as fresh"
  done
  before=
  rm -rf "$again"
}

# From a disk whose files are in no cache, as at the first build of a day. Only root can clear them.
cold_bench() {
  [ -w /proc/sys/vm/drop_caches ] || { echo "cold: only root can clear the system's caches"; return; }
  make_small
  make_product small
  before="sync; echo 3 >/proc/sys/vm/drop_caches"
  compare "13,000 small files, in no cache" "packwright@$(ours small)" \
    "zip -6@cd $data && zip -6 -q -r out/zip.zip small" \
    "7zz -mx=3@cd $data && 7zz a -tzip -mx=3 out/7z.zip small" \
    "cp@cp -r $data/small $data/out/copy"
  before=
}

stored_bench() {
  make_random
  make_product random
  compare "350 MB that do not shrink" "packwright@$(ours random)" \
    "zip -6@cd $data && zip -6 -q -r out/zip.zip random" \
    "cp@cp -r $data/random $data/out/copy"
}

levels_bench() {
  make_binaries
  make_product binaries
  compare "350 MB of binaries, levels" "normal@$(ours binaries)" \
    "fast@$(ours binaries '--compression fast')" \
    "small@$(ours binaries '--compression small')" \
    "7zz -mx=5@cd $data && 7zz a -tzip -mx=5 out/7z.zip binaries"
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

# Peak memory in KB of a call of ours.
memory_of() { # NAME OPTIONS
  rm -rf "$data/out"
  /usr/bin/time -f %M bash -c "exec $(ours "$1" "${2:-}")" 2>&1
}

memory_bench() {
  echo "## Peak memory of packwright-build (KB)"
  local name threads
  for name in binaries small large random; do
    [ -d "$data/product-$name" ] || continue
    for threads in 1 4 8; do
      printf '%-10s %s threads, --fresh and again: ' "$name" "$threads"
      echo "$(memory_of "$name" "--threads $threads")" \
        "$(/usr/bin/time -f %M bash -c "exec $(ours "$name" "--threads $threads --overwrite")" 2>&1)"
    done
  done
}

# What an entry of its own takes: the difference between many and more.
entries_bench() {
  echo "## Memory for each entry of its own (bytes)"
  local count peak few
  for count in 70000 200000; do
    mkdir -p "$data/entries-$count"
    (cd "$data/entries-$count" && seq "$count" | split -a 6 -l 1 -d - file)
    make_product "entries-$count"
    awk -v count="$count" -v folder="$data/entries-$count" 'BEGIN {
      printf "[Component]\nTitle=All\n[Files]\nCount=%d\n", count
      for (i = 1; i <= count; ++i)
        printf "[File%d]\nID={%08X-1234-4321-ABCD-0123456789AB}\nType=1\nSourcePath=%s\nSourceName=file%06d\nTargetFolder=2001\nOverwrite=1\nVital=1\n",
               i, i, folder, i - 1}' >"$data/product-entries-$count/Version 1.0.0/component1.component"
    peak=$(memory_of "entries-$count")
    echo "$count entries: $peak KB"
    if [ "$count" = 70000 ]; then few=$peak; else echo "$(((peak - few) * 1024 / 130000)) for each"; fi
  done
}

prepare
for what in ${*:-binaries small large cold rebuild stored levels huge settings pages desktop start memory \
  entries}; do
  case $what in
    binaries) make_binaries; folder_bench binaries "350 MB of binaries" ;;
    small) make_small; folder_bench small "13,000 small files" ;;
    large) large_bench ;;
    cold) cold_bench ;;
    rebuild)
      make_binaries
      rebuild_bench binaries "350 MB of binaries"
      make_small
      rebuild_bench small "13,000 small files"
      ;;
    stored) stored_bench ;;
    levels) levels_bench ;;
    huge) huge_check ;;
    settings) settings_bench ;;
    pages) pages_bench ;;
    desktop) desktop_bench ;;
    start) start_bench ;;
    memory) memory_bench ;;
    entries) entries_bench ;;
    *) echo "unknown: $what" >&2; exit 2 ;;
  esac
done
