#!/bin/sh
# Fails and shows the places when a source file is not formatted as .clang-format says.
set -eu
cd "$(dirname "$0")/.."
find . -path ./out -prune -o \( -name '*.cpp' -o -name '*.h' \) -print0 |
  xargs -0 clang-format --dry-run --Werror
