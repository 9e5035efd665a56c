#!/bin/sh
# The one list of Debian packages that Packwright needs, and the step that installs them.
#
#   debian-packages.sh GROUP...     installs what is missing of the groups; silent when nothing is
#
# Groups: build (compile the layers without Qt), desktop (compile the desktop program too), run
# (run.sh), test (compile and run the tests), docs (docs/screenshots.sh), ci (the checks of
# .ci/run), fuzz (tests/run-fuzzers.sh), bench (bench/run.sh and the programs it compares with),
# windows (the cross-build and its tests under Wine), windows-desktop (what the package with the
# desktop program needs beside).
# Installs as root, or through sudo; asks nothing. Only a missing package causes an apt call.
set -eu

packages_build="cmake g++ ninja-build libcli11-dev libdeflate-dev libutf8proc-dev libzip-dev
  nlohmann-json3-dev zlib1g-dev"
packages_desktop="cmark-gfm librsvg2-bin qt6-base-dev qt6-translations-l10n"
packages_run="qt6-wayland unzip"
packages_test="libgmock-dev libgtest-dev unzip"
packages_bench="7zip libglib2.0-dev nsis pigz pkg-config time unzip xauth xvfb zip"
packages_docs="fonts-dejavu-core"
packages_ci="appstream clang-format clang-tidy desktop-file-utils dpkg-dev file groff-base
  libxml2-utils shared-mime-info"
packages_fuzz="clang libclang-rt-14-dev"
packages_windows="dpkg-dev g++-mingw-w64-x86-64-posix googletest icoutils librsvg2-bin
  libz-mingw-w64-dev wine wine64"
packages_windows_desktop="fonts-liberation fonts-wine unzip xvfb"

wanted=""
for group in "$@"; do
  case $group in
    build) wanted="$wanted $packages_build" ;;
    desktop) wanted="$wanted $packages_desktop" ;;
    run) wanted="$wanted $packages_run" ;;
    test) wanted="$wanted $packages_test" ;;
    bench) wanted="$wanted $packages_bench" ;;
    docs) wanted="$wanted $packages_docs" ;;
    ci) wanted="$wanted $packages_ci" ;;
    fuzz) wanted="$wanted $packages_fuzz" ;;
    windows) wanted="$wanted $packages_windows" ;;
    windows-desktop) wanted="$wanted $packages_windows_desktop" ;;
    *) echo "debian-packages.sh: unknown group '$group'" >&2; exit 2 ;;
  esac
done

if ! command -v dpkg-query >/dev/null; then
  echo "Not a Debian system: these packages' counterparts are needed:$wanted" >&2
  exit 0
fi

missing=""
for package in $wanted; do
  status=$(dpkg-query -W -f '${db:Status-Status} ' "$package" 2>/dev/null || true)
  case " $status" in
    *" installed "*) ;;
    *) missing="$missing $package" ;;
  esac
done
[ -n "$missing" ] || exit 0

if [ "$(id -u)" = 0 ]; then
  as_root=""
elif command -v sudo >/dev/null; then
  as_root="sudo"
else
  echo "Run this as root, then try again: apt-get install$missing" >&2
  exit 1
fi

log=$(mktemp)
trap 'rm -f "$log"' EXIT
# Runs an apt command; its output is shown only when it fails.
run_apt() {
  if ! $as_root env DEBIAN_FRONTEND=noninteractive apt-get -o Acquire::Retries=3 \
    -o DPkg::Lock::Timeout=300 "$@" >"$log" 2>&1 </dev/null; then
    cat "$log" >&2
    echo "apt-get $1 failed" >&2
    exit 1
  fi
}
echo "Installing Debian packages:$missing"
run_apt update
# shellcheck disable=SC2086
run_apt install -y --no-install-recommends $missing
