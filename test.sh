#!/bin/sh
# Installs what is missing, builds everything with its tests, and runs the tests. Arguments go to
# ctest: ./test.sh -R Archive
set -eu
cd "$(dirname "$0")"

packaging/debian-packages.sh build desktop test
cmake --preset release -DPACKWRIGHT_DESKTOP=ON -DBUILD_TESTING=ON
cmake --build --preset release
ctest --preset release -j "$(nproc)" "$@"
