#!/usr/bin/env bash
# What every message costs: bytes, instructions, allocations, stack.
#
#   costs.sh write   measures and writes docs/costs.md
#   costs.sh check   measures and compares: fails when a message takes more blocks or stack than the library promises,
#                    or a tenth more instructions than docs/costs.md says
#
# The sheet in use is SHEET, if set. Instructions are counted in a build of fixed flags, with the plain string functions
# of the C library instead of those that it picks for the processor, so that they are the same on every machine.
set -euo pipefail
cd "$(dirname "$0")/.."

mode=${1:-}
if [ "$mode" != write ] && [ "$mode" != check ]; then
    echo "usage: $0 write|check" >&2
    exit 2
fi
sheet=${SHEET:-docs/costs.md}
jobs=${JOBS:-$(nproc)}
build=build/costs
most_stack=24576

cmake -S . -B $build -DCMAKE_CXX_COMPILER=g++ -DCMAKE_BUILD_TYPE=Release -DCMAKE_CXX_FLAGS= \
    -DCMAKE_CXX_FLAGS_RELEASE='-O2 -DNDEBUG' -DZEL_FAST_READER=ON -DBUILD_SHARED_LIBS=OFF -DZEL_BUILD_BENCH=ON \
    -DZEL_BENCH_PEERS=OFF -DZEL_BUILD_TESTS=OFF -DZEL_BUILD_INSPECT=OFF -DZEL_BUILD_EXAMPLES=OFF >/dev/null
cmake --build $build --parallel "$jobs" --target zel_costs >/dev/null

dumps=$(mktemp -d)
trap 'rm -rf "$dumps"' EXIT
plain=
for feature in AVX512VL AVX512BW AVX2 AVX ERMS FSRM BMI2 MOVBE SSE4_2 SSE4_1 SSSE3 AVX_Fast_Unaligned_Load; do
    plain+=${plain:+,}-$feature
done
GLIBC_TUNABLES=glibc.cpu.hwcaps=$plain valgrind -q --tool=callgrind --collect-atstart=no \
    --callgrind-out-file="$dumps/dump" $build/bench/zel_costs >"$dumps/rows"

# One line for each dump: direction, message, instructions.
awk -v OFS='\t' '
    /^desc: Trigger: Client Request: / { sub(/^desc: Trigger: Client Request: /, ""); name = $0 }
    /^totals: / && name != "" { print name, $2; name = "" }' "$dumps"/dump.* >"$dumps/instructions"

# direction, message, text, record, instructions, blocks, bytes, reader blocks, reader bytes, stack
awk -v FS='\t' -v OFS='\t' '
    NR == FNR { count[$1 FS $2] = $3; next }
    $1 == "row" {
        if (!(($2 FS $3) in count)) { print "no instructions for " $2 " " $3 > "/dev/stderr"; exit 1 }
        print $2, $3, $4, $5, count[$2 FS $3], $6, $7, $8, $9, $10
    }' "$dumps/instructions" "$dumps/rows" >"$dumps/all"

write_sheet() {
    cat <<END
# What every message costs

Written by \`make costs\`; \`.ci/run\` compares. One row for each message and direction, measured on a record whose
numbers are all set and whose texts fill their fields to the last byte. An analysis includes the release of its record.

- text: bytes of the XML text, without the frame's head and without raw data behind it.
- record: bytes of the record, without what it points at.
- instructions: counted by callgrind, in one call after another that made everything warm.
- blocks, bytes: taken with \`ZelProtocolMalloc\`. A plain message is composed without any, and analysed with one.
- reader: blocks and bytes that the XML reader takes beside them with \`ZelXMLMalloc\`, and gives back before the call
  ends.
- stack: the deepest, in bytes; at most $most_stack.

Made with $(g++ --version | sed -n 1p), $(uname -m), \`-O2 -DNDEBUG\`, static library.

| direction | message | text | record | instructions | blocks | bytes | reader blocks | reader bytes | stack |
|---|---|---:|---:|---:|---:|---:|---:|---:|---:|
END
    awk -v FS='\t' '{ printf "|"; for (i = 1; i <= NF; ++i) printf " %s |", $i; print "" }' "$dumps/all"
    if grep -q '^none' "$dumps/rows"; then
        printf '\nComposed only; a received text of these is refused:\n\n'
        sed -n 's/^none\t/- /p' "$dumps/rows"
    fi
}

# Prints what is wrong, and fails if anything is.
compare() {
    awk -v most_stack=$most_stack -v sheet="$sheet" '
        function wrong(text) { print name ": " text; bad = 1 }
        NR == FNR {
            if (split($0, cell, / *\| */) > 10 && (cell[2] == "compose" || cell[2] == "analyse"))
                committed[cell[2] "\t" cell[3]] = cell[6]
            next
        }
        {
            split($0, cell, "\t")
            key = cell[1] "\t" cell[2]
            name = cell[1] " " cell[2]
            seen[key] = 1
            blocks = cell[1] == "compose" ? 0 : 1
            if (cell[6] > blocks)
                wrong(cell[6] " blocks, and " blocks " promised")
            if (cell[10] > most_stack)
                wrong(cell[10] " bytes of stack, and " most_stack " promised")
            if (!(key in committed))
                wrong("not in " sheet ": make costs")
            else if (cell[5] > committed[key] * 1.1)
                wrong(cell[5] " instructions, and " committed[key] " in " sheet)
        }
        END {
            for (name in committed)
                if (!(name in seen))
                    wrong("in " sheet ", but no message any more: make costs")
            exit bad
        }' "$sheet" "$dumps/all" >&2
}

if [ "$mode" = write ]; then
    write_sheet >"$sheet"
    echo "$sheet: $(wc -l <"$dumps/all") rows"
else
    compare
    echo "$(wc -l <"$dumps/all") rows agree with $sheet"
fi
