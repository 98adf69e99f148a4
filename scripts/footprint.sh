#!/usr/bin/env bash
# What the library takes of a device: flash and memory, for 64-bit x86 and 32-bit ARM, made to be fast and to be small.
#
#   footprint.sh write   measures and writes docs/footprint.md
#   footprint.sh check   measures and compares: fails when a figure is a twentieth above what docs/footprint.md says
#
# What leaving families out saves is measured by `write` alone: it takes a build for each.
set -euo pipefail
cd "$(dirname "$0")/.."

mode=${1:-}
if [ "$mode" != write ] && [ "$mode" != check ]; then
    echo "usage: $0 write|check" >&2
    exit 2
fi
page=docs/footprint.md
jobs=${JOBS:-$(nproc)}
families=(session discovery live playback ptz events control config analytics network channels iot factory)

scripts/cross-sysroot.sh armhf >/dev/null
# The one header of valgrind's that the measuring program wants, without this machine's others.
mkdir -p build/footprint/include
ln -sfn /usr/include/valgrind build/footprint/include/valgrind

# build NAME MACHINE LEVEL [CMAKE_ARGUMENT...]: shared libraries, into build/footprint/NAME
build() {
    local toolchain=()
    [ "$2" = x86-64 ] || toolchain=("-DCMAKE_TOOLCHAIN_FILE=$PWD/cmake/cross-$2.cmake")
    CC=gcc CXX=g++ cmake -S . -B "build/footprint/$1" "${toolchain[@]}" -DCMAKE_BUILD_TYPE=Release \
        -DCMAKE_CXX_FLAGS_RELEASE="$3 -DNDEBUG" -DBUILD_SHARED_LIBS=ON \
        -DZEL_BUILD_TESTS=OFF -DZEL_BUILD_INSPECT=OFF -DZEL_BUILD_EXAMPLES=OFF \
        "${@:4}" >/dev/null
    cmake --build "build/footprint/$1" --parallel "$jobs" >/dev/null
}

# sections FILE NAME...: bytes of these sections together
sections() {
    size -A "$1" | awk -v names=" ${*:2} " 'index(names, " " $1 " ") { sum += $2 } END { print sum + 0 }'
}

flash() { # flash FILE: code, constants, relocations, unwind tables
    printf '%s\t%s\t%s\t%s' "$(sections "$1" .text .plt .plt.got .plt.sec .init .fini)" \
        "$(sections "$1" .rodata .dynsym .dynstr .gnu.hash .gnu.version .gnu.version_r)" \
        "$(sections "$1" .data.rel.ro .rela.dyn .rel.dyn .rela.plt .rel.plt .got .got.plt)" \
        "$(sections "$1" .eh_frame .eh_frame_hdr .ARM.exidx .ARM.extab)"
}

# memory PROGRAM...: deepest stack, largest record, most blocks' bytes of one message, of a measuring program's rows
memory() {
    "$@" 2>/dev/null | awk -F '\t' '$1 == "row" {
            if ($10 > stack) stack = $10
            if ($5 > record) record = $5
            if ($7 + $9 > heap) heap = $7 + $9
        } END { if (!stack) exit 1; printf "%d\t%d\t%d", stack, record, heap }'
}

measure() {
    local machine level dir run
    for machine in x86-64 armhf; do
        for level in -O2 -Os; do
            dir=build/footprint/$machine$level
            run=()
            [ $machine = x86-64 ] || run=(qemu-arm-static -L /usr/arm-linux-gnueabihf)
            build "$machine$level" $machine $level -DZEL_BUILD_BENCH=ON -DZEL_BENCH_PEERS=OFF \
                -DVALGRIND_INCLUDE_DIR="$PWD/build/footprint/include"
            printf '%s %s, codec\t%s\t%s\n' $machine $level "$(flash "$dir/src/libzelprotocol.so")" \
                "$(memory "${run[@]}" "$dir/bench/zel_costs")"
            printf '%s %s, platform\t%s\t\t\t\n' $machine $level "$(flash "$dir/platform/libzelplatform.so")"
        done
    done
}

total() { # total FILE: all that is in flash
    flash "$1" | awk '{ print $1 + $2 + $3 + $4 }'
}

# family, bytes of the codec library without it
measure_families() {
    local family rest all
    all=$(total build/footprint/armhf-Os/src/libzelprotocol.so)
    for family in "${families[@]}"; do
        rest=$(printf '%s\n' "${families[@]}" | grep -vx "$family")
        [ "$family" != config ] || rest=$(grep -vxE 'analytics|network|channels' <<<"$rest")
        build parts armhf -Os "-DZEL_FAMILIES=$(paste -sd ';' <<<"$rest")"
        printf '%s\t%d\n' "$family" $((all - $(total build/footprint/parts/src/libzelprotocol.so)))
    done
}

write_page() {
    cat <<END
# What it takes of a device

Written by \`make footprint\`; \`.ci/run\` compares. Bytes of the two shared libraries, with the whole catalogue.

- code: what runs. constants: tables, texts and the names of the exported functions. relocations: what the loader fills
  in, and its list. unwind tables: for debuggers; a firmware may strip them.
- stack: the deepest of any call with a plain message. With a cipher, and for texts that are repaired, it is up to 24 KiB.
- record: the largest that an application holds. heap: the most that one call takes for a message of the catalogue, the
  record that it hands over and what the XML reader needs until it returns. Composing takes none.

Neither library needs a C++ runtime: they take libc, and the platform layer libsodium.

| build | code | constants | relocations | unwind tables | stack | record | heap |
|---|---:|---:|---:|---:|---:|---:|---:|
END
    awk -F '\t' '{ printf "|"; for (i = 1; i <= NF; ++i) printf " %s |", $i; print "" }' <<<"$figures"
    cat <<END

Made with $(g++ --version | sed -n 1p) and $(arm-linux-gnueabihf-g++ --version | sed -n 1p).

## What leaving a family out saves

\`-DZEL_FAMILIES="session;live;ptz"\` builds these alone: the others' code, rows and catalogue entries aren't there. In
bytes of flash on 32-bit ARM at \`-Os\`, each left out by itself; \`config\` takes its parts, the next three, with it.

| family | bytes |
|---|---:|
END
    measure_families | awk -F '\t' '{ print "| " $1 " | " $2 " |" }'
}

# Prints what is wrong, and fails if anything is.
compare() {
    awk -F '\t' -v page=$page '
        NR == FNR {
            count = split($0, cell, / *\| */)
            for (i = 3; i < count; ++i)
                committed[cell[2] "\t" i - 1] = cell[i]
            next
        }
        {
            for (i = 2; i <= NF; ++i) {
                key = $1 "\t" i
                if (!(key in committed)) {
                    print $1 ": not in " page ": make footprint"
                    bad = 1
                    break
                }
                if ($i > committed[key] * 1.05) {
                    print $1 ": " $i " in column " i ", and " committed[key] " in " page
                    bad = 1
                }
            }
        }
        END { exit bad }' $page <(echo "$figures") >&2
}

figures=$(measure)
if [ "$mode" = write ]; then
    write_page >"$page.new"
    mv "$page.new" $page
    echo "$page: written"
else
    compare
    echo "the libraries are as large as $page says"
fi
