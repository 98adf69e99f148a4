#!/usr/bin/env bash
# read-speed.sh [MEGABYTES]: how fast `zel read` goes through a capture (1024 MB), beside libtins alone, and the most
# memory that it takes. Once with media in 48 KB messages, as most of a recorder's traffic is; once with small messages
# alone.
set -euo pipefail
cd "$(dirname "$0")/.."
megabytes=${1:-1024}
build=build/read-speed
cmake --preset release -B $build -DZEL_BUILD_TESTS=OFF -DZEL_BUILD_EXAMPLES=OFF -DZEL_BUILD_BENCH=ON \
    -DZEL_BENCH_PEERS=OFF -DZEL_BENCH_COSTS=OFF >/dev/null
cmake --build $build --parallel "$(nproc)" --target zel zel_captures >/dev/null

measured() { # measured WHAT COMMAND...: the shortest of three runs
    local what=$1 best=
    shift
    for _ in 1 2 3; do
        local run
        run=$( { TIMEFORMAT='%R'; time "$@" >/dev/null 2>&1 || true; } 2>&1)
        best=$(printf '%s\n' "$run" "${best:-$run}" | sort -g | head -n 1)
    done
    printf '%-40s %6.2f s\n' "$what" "$best"
}

peak_memory() { # of the command's process, in KB
    "$@" >/dev/null 2>&1 &
    local pid=$! peak=0 now
    while now=$(sed -n 's/^VmHWM:[^0-9]*\([0-9]*\).*/\1/p' /proc/$pid/status 2>/dev/null) && [ -n "$now" ]; do
        peak=$now
        sleep 0.05
    done
    wait $pid || true
    echo "$peak"
}

for kind in media small; do
    capture=$build/$kind.pcap
    [ "$kind" = small ] && form=small || form=
    # shellcheck disable=SC2086
    $build/bench/zel_captures make $capture "$megabytes" $form
    cat $capture >/dev/null
    echo "$kind, $(stat -c %s $capture) bytes"
    measured 'libtins alone' $build/bench/zel_captures walk $capture
    measured 'zel read' $build/inspect/zel read $capture
    measured 'zel read --json' $build/inspect/zel read --json $capture
    measured 'zel read --type USER_AUTH_MESSAGE' $build/inspect/zel read --type USER_AUTH_MESSAGE $capture
    echo "zel read takes at most $(peak_memory $build/inspect/zel read $capture) KB"
    rm -f $capture
done
