#!/bin/sh
# Fails when a source file includes something from a room that lies above its own. A room is a
# folder of sources; the list below says for each which rooms it uses directly, and whatever those
# use it may include too. Also fails on an include by a relative path and on Qt below the desktop.
set -eu
cd "$(dirname "$0")/.."

rooms='
tools:
tools/files: tools
tools/settings: tools/files
tools/registry: tools/settings
tools/archive: tools/files
tools/desktop: tools tools/files
tools/desktop/wizard: tools/desktop
model: tools/settings
engine: model tools/archive
setup: tools/files
console: engine setup
console/setup: console setup
grid: tools/desktop
pages: grid model tools/registry
findings: engine tools/desktop
wizards: findings tools/desktop/wizard tools/registry
shell: pages findings setup
app: shell wizards
'

git ls-files -- '*.cpp' '*.h' | grep -vE '^(tests|bench|docs|examples)/' |
  xargs grep -nE '^ *# *include' |
  awk -v rooms="$rooms" '
  # Rooms that `from` may include: those it names, and those that they may.
  function reach(from, to, i, n, direct) {
    if (from == to || (from, to) in known) return from == to || known[from, to]
    known[from, to] = 0
    n = split(uses[from], direct, " ")
    for (i = 1; i <= n; ++i) if (reach(direct[i], to)) return known[from, to] = 1
    return 0
  }
  function folder(path) { sub(/\/[^\/]*$/, "", path); return path }
  function complain(text) { print place ": " text; bad = 1 }
  BEGIN {
    count = split(rooms, lines, "\n")
    for (i = 1; i <= count; ++i) if (split(lines[i], part, ":") == 2) uses[part[1]] = part[2]
  }
  {
    split($0, field, ":")
    place = field[1] ":" field[2]
    from = folder(field[1])
    if (!(from in uses)) { complain("no room of that name; add it to tests/check_includes.sh"); next }
    below_desktop = from ~ /^(tools(\/(files|settings|registry|archive))?|model|engine|setup|console(\/setup)?)$/
    if (below_desktop && $0 ~ /<Q[A-Za-z]/) complain("Qt below the desktop")
    if ($0 !~ /"/) next
    split($0, quoted, "\"")
    target = quoted[2]
    if (target ~ /^resources\//) next
    if (target !~ /\//) { complain("includes \"" target "\" without its folder"); next }
    to = folder(target)
    if (!(to in uses)) complain("includes \"" target "\" from no known room")
    else if (!reach(from, to)) complain(from " may not include " to ": \"" target "\"")
  }
  END { exit bad }'
