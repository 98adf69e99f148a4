#!/usr/bin/env bash
# How much of src and platform the tests reach, file by file.
#
#   coverage.sh         prints it
#   coverage.sh check   fails below the least that is allowed
set -euo pipefail
cd "$(dirname "$0")/.."

mode=${1:-}
jobs=${JOBS:-$(nproc)}
least_lines=${LEAST_LINES:-98} # percent
least_branches=${LEAST_BRANCHES:-90}
build=build/coverage

# Counted atomically: what threads of a test lose makes branches that were taken less than never, and gcovr stops there.
flags="-O1 -fno-inline -w --coverage -fprofile-update=atomic"
cmake --preset release -B "$build" -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_COMPILER=g++ \
    -DCMAKE_CXX_FLAGS_DEBUG= -DCMAKE_CXX_FLAGS="$flags" -DZEL_BUILD_EXAMPLES=OFF -DZEL_BUILD_INSPECT=OFF >/dev/null
cmake --build "$build" --parallel "$jobs" >/dev/null
find "$build" -name '*.gcda' -delete
(cd "$build" && ctest --parallel "$jobs" --output-on-failure >tests.log) || {
    cat "$build/tests.log"
    exit 1
}

# The list of the records' fields is data, which the tests include. With a limit: a thread of gcovr that fails leaves
# the others waiting for ever.
report() {
    timeout --kill-after=10 900 \
        gcovr --root . --filter src/ --filter platform/src/ --exclude '.*\.inc' -j "$jobs" "$@" "$build"
}
if [ "$mode" = check ]; then
    report --print-summary --fail-under-line "$least_lines" --fail-under-branch "$least_branches" | tail -n 3
else
    report
    report --branches | tail -n 3
fi
