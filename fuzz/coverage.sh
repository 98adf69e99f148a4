#!/usr/bin/env bash
# coverage.sh BUILD SECONDS: which lines of src, platform and inspect the committed corpus reaches, and which a run of that
# many seconds for each fuzzer.
set -euo pipefail
cd "$(dirname "$0")/.."
build=$1
seconds=$2
fuzzers='analysis messages compose xml codec read'
flags='-O1 -fsanitize=address,fuzzer-no-link -fprofile-instr-generate -fcoverage-mapping'

cmake --preset fuzz -B "$build" -DCMAKE_CXX_FLAGS="$flags"
cmake --build "$build" --parallel "${JOBS:-$(nproc)}"

report() { # report TITLE PROFILE...
    local title=$1 name objects=()
    shift
    llvm-profdata-14 merge -o "$build/all.profdata" "$@"
    for name in $fuzzers; do
        objects+=(-object "$build/fuzz/${name}_fuzzer")
    done
    echo "=== $title"
    llvm-cov-14 report "${objects[@]:1}" -instr-profile="$build/all.profdata" "$PWD/src" "$PWD/platform" "$PWD/inspect" |
        awk '/^Filename/ { print "lines   missed  cover  file"; next }
             NF > 9 { printf "%6s %7s %7s  %s\n", $(8), $(9), $(10), $1 }'
}

rm -rf "$build/profiles"
mkdir -p "$build/profiles"
for name in $fuzzers; do
    LLVM_PROFILE_FILE=$build/profiles/corpus-$name.profraw "$build/fuzz/${name}_fuzzer" -runs=0 \
        "fuzz/corpus/$name" >/dev/null 2>&1
done
report 'the committed corpus' "$build"/profiles/corpus-*.profraw
for name in $fuzzers; do
    mkdir -p "$build/found/$name"
    LLVM_PROFILE_FILE=$build/profiles/run-$name.profraw "$build/fuzz/${name}_fuzzer" \
        -max_total_time="$seconds" -max_len=65536 -dict=fuzz/zel.dict \
        -artifact_prefix="$build/$name-" "$build/found/$name" "fuzz/corpus/$name" \
        >"$build/$name.log" 2>&1
done
report "the corpus and $seconds seconds of each fuzzer" "$build"/profiles/*.profraw
