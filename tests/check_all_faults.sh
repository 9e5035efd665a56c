#!/bin/sh
# The long form of the test group "faults": each call of a save and of both kinds of build fails with
# each error, not only one of them, and is where a build is killed. Takes some minutes.
#
#   check_all_faults.sh PROGRAM_FOLDER
set -eu
FAULTS_ALL=1 "$1/faults_tests" --gtest_brief=1
