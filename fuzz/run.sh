#!/usr/bin/env bash
# run.sh BUILD SECONDS [FUZZER...]: runs the fuzzers one after the other, each for that time, from the committed
# corpus and what earlier runs in the same build found. Stops at the first input that breaks a promise; the file is
# named in its last lines and stays in BUILD/fuzz. EMULATOR, if set, is the command that runs another machine's programs.
set -euo pipefail
source_dir=$(cd "$(dirname "$0")" && pwd)
build=$1/fuzz
seconds=$2
shift 2
[ $# -gt 0 ] || set -- analysis messages compose xml codec read
read -ra emulator <<<"${EMULATOR:-}"
export ASAN_OPTIONS=detect_stack_use_after_return=1:strict_string_checks=1${ASAN_OPTIONS:+:$ASAN_OPTIONS}
export UBSAN_OPTIONS=print_stacktrace=1${UBSAN_OPTIONS:+:$UBSAN_OPTIONS}

for name; do
    echo "=== $name"
    log=$build/$name.log
    mkdir -p "$build/found/$name"
    if ! "${emulator[@]}" "$build/${name}_fuzzer" -max_total_time="$seconds" -max_len=65536 -timeout=10 -rss_limit_mb=2048 \
        -dict="$source_dir/zel.dict" -artifact_prefix="$build/$name-" -print_final_stats=1 \
        "$build/found/$name" "$source_dir/corpus/$name" >"$log" 2>&1; then
        tail -n 100 "$log" >&2
        exit 1
    fi
    grep -E 'INITED|Done|peak_rss_mb' "$log"
done
