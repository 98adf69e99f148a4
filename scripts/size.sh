#!/usr/bin/env bash
# How large the library is: the shared one at -O2 and -Os, and what a static program takes of it.
#
#   size.sh         prints it
#   size.sh check   fails when the code of the shared library is larger than it may be, or when a program that doesn't ask
#                   the catalogue pays for it
set -euo pipefail
cd "$(dirname "$0")/.."

mode=${1:-}
jobs=${JOBS:-$(nproc)}
most_fast=${MOST_FAST:-194560} # bytes of .text at -O2
most_small=${MOST_SMALL:-163840} # at -Os
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# build NAME FLAGS SHARED: the libraries alone
build() {
    cmake -S . -B "build/size-$1" -DCMAKE_BUILD_TYPE=Release -DCMAKE_CXX_FLAGS_RELEASE="$2 -DNDEBUG" \
        -DBUILD_SHARED_LIBS="$3" -DZEL_BUILD_TESTS=OFF -DZEL_BUILD_INSPECT=OFF -DZEL_BUILD_EXAMPLES=OFF >/dev/null
    cmake --build "build/size-$1" --parallel "$jobs" >/dev/null
}

# section FILE NAME: bytes of a section
section() { size -A "$1" | awk -v name="$2" '$1 == name { print $2 }'; }

row() { # row LABEL FILE
    printf '%-34s %8s %8s %8s %8s\n' "$1" "$(section "$2" .text)" "$(section "$2" .rodata)" \
        "$(section "$2" .data.rel.ro)" "$(section "$2" .rela.dyn)"
}

# A program that composes and analyses, alone or asking the catalogue too.
cat >"$scratch/alone.cpp" <<'END'
#include "zel_protocol/zel_protocol.h"
int main()
{
    ZEL_PROTOCOL_HEADER header;
    ZEL_PROTOCOL_HEADER_init(&header);
    char frame[1024];
    void* record = nullptr;
    const int size = ZelProtocolXMLCompose(&header, nullptr, 0, -1, nullptr, frame, sizeof frame);
    ZelProtocolMSGAnalysisStart(frame + 8, size - 8, -1, nullptr, &header, &record);
    return ZelProtocolMSGAnalysisStop(&record) EXTRA;
}
END

link() { # link NAME EXTRA
    g++ -std=c++17 -O2 -DEXTRA="$2" -Iinclude "$scratch/alone.cpp" -o "$scratch/$1" build/size-static/src/libzelprotocol.a \
        build/size-static/platform/libzelplatform.a -lsodium -Wl,--gc-sections
}

build shared-O2 -O2 ON
build shared-Os -Os ON
build static -O2 OFF
link alone ""
link asking "+ ZelProtocolCatalogueCount() + ZelProtocolCatalogueDescribe(0, 0, nullptr, nullptr)"

printf '%-34s %8s %8s %8s %8s\n' "bytes" .text .rodata .relro .rela
row "shared library, -O2" build/size-shared-O2/src/libzelprotocol.so
row "shared library, -Os" build/size-shared-Os/src/libzelprotocol.so
row "shared platform layer, -O2" build/size-shared-O2/platform/libzelplatform.so
row "static program" "$scratch/alone"
row "static program with the catalogue" "$scratch/asking"

[ "$mode" = check ] || exit 0
fast=$(section build/size-shared-O2/src/libzelprotocol.so .text)
small=$(section build/size-shared-Os/src/libzelprotocol.so .text)
status=0
if [ "$fast" -gt "$most_fast" ] || [ "$small" -gt "$most_small" ]; then
    echo "the library's code is larger than $most_fast bytes at -O2 or $most_small at -Os" >&2
    status=1
fi
if nm -C "$scratch/alone" | grep -qE 'ZelProtocolCatalogue|kRecordNames'; then
    echo "a program that doesn't ask the catalogue carries it" >&2
    status=1
fi
exit $status
