#!/usr/bin/env bash
# Compares what programs were linked with, records and exported functions, with the last release's.
#
#   abi.sh check   fails when something was removed or changed and the major version stayed, or when something was added
#                  and the minor version stayed
#   abi.sh write   takes down what there is now, at a release
#
# The dumps in abi/ are libabigail's, named after the release that they were made of. They are compared by their lines:
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
    -DZEL_BUILD_TESTS=OFF -DZEL_BUILD_EXAMPLES=OFF >/dev/null
cmake --build $build --parallel "${JOBS:-$(nproc)}" >/dev/null

dump() { # dump LIBRARY
    abidw --no-show-locs --no-comp-dir-path --no-corpus-path --type-id-style hash "$build/$1"
}

# One line for each exported name, each function's types, each record's size, and each field's place and type. The types
# are hashes of their names, so a line is the same wherever it stands.
facts() {
    sed -nE "s/&(lt|gt|amp|apos|quot);//g; /<(elf-symbol|function-decl|parameter|return|class-decl|enum-decl|enumerator|data-member|var-decl|typedef-decl|array-type-def|subrange|pointer-type-def|qualified-type-def|type-decl) /p" |
        awk '
            function value(name) {
                return match($0, " " name "=\x27[^\x27]*\x27") ? substr($0, RSTART + length(name) + 3, RLENGTH - length(name) - 4) : ""
            }
            /<elf-symbol /      { print "exports " value("name") }
            /<function-decl /   { owner = value("name"); at = 0 }
            /<parameter /       { print owner " takes " ++at ": " value("type-id") }
            /<return /          { print owner " returns " value("type-id") }
            /<class-decl /      { owner = value("name"); print owner " has " value("size-in-bits") " bits" }
            /<enum-decl /       { owner = value("name") }
            /<enumerator /      { print owner "::" value("name") " = " value("value") }
            /<data-member /     { offset = value("layout-offset-in-bits") }
            /<var-decl /        { print owner "." value("name") " at bit " offset ": " value("type-id") }
            /<typedef-decl /    { print value("name") " is " value("type-id") }
            /<array-type-def /  { print value("id") " has " value("size-in-bits") " bits of " value("type-id") }
            /<type-decl /       { print value("name") " has " value("size-in-bits") " bits" }' | sort -u
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
    xz -dc "abi/$released.abi.xz" | facts >"$scratch/released"
    dump "$library" | facts >"$scratch/now"
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
