#!/usr/bin/env bash
# Compares what programs were linked with, records and exported functions, with the last release's.
#
#   abi.sh check   fails when something was removed or changed and the major version stayed, or when something was added
#                  and the minor version stayed
#   abi.sh write   takes down what there is now, at a release
#
# The dumps in abi/ are libabigail's, named after the release that they were made of. They are compared fact by fact:
# abidiff 2.2 reads them, but doesn't see a record that changed.
set -euo pipefail
cd "$(dirname "$0")/.."
export LC_ALL=C

mode=${1:-}
if [ "$mode" != write ] && [ "$mode" != check ]; then
    echo "usage: $0 write|check" >&2
    exit 2
fi
build=build/abi
libraries=(src/libzelprotocol.so platform/libzelplatform.so)
version=$(sed -nE 's/^#define ZEL_PROTOCOL_VERSION_(MAJOR|MINOR|PATCH) ([0-9]+)$/\2/p' include/zel_protocol/version.h | paste -sd .)

CXX=g++ cmake -S . -B $build -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG='-O0 -g' -DBUILD_SHARED_LIBS=ON \
    -DZEL_BUILD_TESTS=OFF -DZEL_BUILD_INSPECT=OFF -DZEL_BUILD_EXAMPLES=OFF >/dev/null
cmake --build $build --parallel "${JOBS:-$(nproc)}" >/dev/null

dump() { # dump LIBRARY
    abidw --exported-interfaces-only --drop-private-types --headers-dir include --headers-dir platform/include \
        --no-show-locs --no-comp-dir-path --no-corpus-path "$build/$1"
}

if [ "$mode" = write ]; then
    rm -rf abi
    mkdir abi
    for library in "${libraries[@]}"; do
        dump "$library" | xz -9e >"abi/$(basename "$library" .so)-$version.abi.xz"
    done
    ls -l abi
    exit 0
fi

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
status=0
for library in "${libraries[@]}"; do
    name=$(basename "$library" .so)
    released=$(basename abi/"$name"-*.abi.xz .abi.xz)
    xz -dc "abi/$released.abi.xz" | scripts/abi-facts.py >"$scratch/released"
    dump "$library" | scripts/abi-facts.py >"$scratch/now"
    released=${released#"$name"-}
    comm -23 "$scratch/released" "$scratch/now" >"$scratch/lost"
    comm -13 "$scratch/released" "$scratch/now" >"$scratch/added"
    if [ ! -s "$scratch/released" ]; then
        echo "$name: the dump of release $released tells nothing" >&2
        status=1
    elif [ -s "$scratch/lost" ] && [ "${version%%.*}" = "${released%%.*}" ]; then
        echo "$name $version lacks what programs of release $released may need; mend that, or raise the major version:" >&2
        cat "$scratch/lost" >&2
        status=1
    elif [ -s "$scratch/added" ] && [ "${version%.*}" = "${released%.*}" ]; then
        echo "$name $version has more than release $released; raise the minor version:" >&2
        cat "$scratch/added" >&2
        status=1
    fi
done
[ $status -ne 0 ] || echo "records and functions are those of release $released, or more in a higher version"
exit $status
