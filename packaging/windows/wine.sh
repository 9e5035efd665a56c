# Sourced, in the checkout's folder, by scripts that run Windows programs: sets up a Wine of this
# checkout's own in out/windows/wine, and starts it. No other session of Wine is met, no setting of the user's used.
#
#   use_wine DISPLAY      "" keeps programs from showing windows; ":N" is the X server to use

# shellcheck shell=sh
export WINEPREFIX="$PWD/out/windows/wine" WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=d"
export LC_ALL=C.UTF-8
wine=/usr/lib/wine/wine64
wineserver=/usr/lib/wine/wineserver64

# The name of a Unix path as Windows programs see it.
windows_path() {
  printf 'Z:%s' "$1" | tr / '\\'
}

# Fonts of Wine's own package are not found by themselves, and text in input fields is invisible
# without them.
link_fonts() {
  fonts="$WINEPREFIX/drive_c/windows/Fonts"
  mkdir -p "$fonts"
  find /usr/share/wine/fonts /usr/share/fonts/truetype/liberation -name '*.ttf' \
    -exec ln -sf -t "$fonts" {} + 2>/dev/null || true
}

make_prefix() {
  $wine wineboot --init >/dev/null 2>&1 </dev/null
  $wine winecfg /v win10 >/dev/null 2>&1 </dev/null
  # Windows are shown at once: there is no window manager to wait for.
  $wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f >/dev/null 2>&1 </dev/null
  touch "$WINEPREFIX/ready"
}

use_wine() {
  if [ -n "$1" ]; then export DISPLAY="$1"; else unset DISPLAY; fi
  mkdir -p "$WINEPREFIX"
  # A server that stays: otherwise Wine's services start with the first program and hold the pipe
  # that its output goes to. One that runs already is as good.
  $wineserver -p >/dev/null 2>&1 </dev/null || true
  if [ ! -f "$WINEPREFIX/ready" ]; then make_prefix; fi
  link_fonts # each time: the fonts may have been installed meanwhile
  $wine wineboot >/dev/null 2>&1 </dev/null
}

end_wine() {
  $wineserver -k >/dev/null 2>&1 || true
}
