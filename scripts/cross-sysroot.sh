#!/usr/bin/env bash
# Puts the third-party libraries of another machine into build/sysroot/MACHINE: pugixml and libsodium from Debian's
# packages, GoogleTest built from Debian's source package. The system itself stays as it is: no architecture is
# added to it and nothing is installed. Does nothing when all is there. For arm64 clang's sanitizer and fuzzer runtime
# comes too, beside clang's own headers. For libcxx, which is this machine with another C++ library, it is GoogleTest alone.
#
#   cross-sysroot.sh i386|arm64|armhf|s390x|libcxx
set -euo pipefail
cd "$(dirname "$0")/.."

machine=${1:-}
case "$machine" in
i386) triplet=i386-linux-gnu ;;
arm64) triplet=aarch64-linux-gnu ;;
armhf) triplet=arm-linux-gnueabihf ;;
s390x) triplet=s390x-linux-gnu ;;
libcxx) triplet= ;;
*)
    echo "usage: $0 i386|arm64|armhf|s390x|libcxx" >&2
    exit 2
    ;;
esac

sysroot=$PWD/build/sysroot/$machine
[ ! -e "$sysroot/complete" ] || exit 0

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

rm -rf "$sysroot"
mkdir -p "$sysroot"

download_packages() {
    # APT with lists and a state of its own, as on a machine of the other kind on which nothing is installed.
    mkdir -p "$scratch/lists/partial" "$scratch/cache/archives/partial" "$scratch/packages"
    touch "$scratch/status"
    apt=(apt-get -q -o "APT::Architecture=$machine" -o "APT::Architectures::=$machine" -o APT::Sandbox::User=root
        -o "Dir::State::Lists=$scratch/lists" -o "Dir::State::status=$scratch/status" -o "Dir::Cache=$scratch/cache")
    packages=(libpugixml-dev libpugixml1v5 libsodium-dev libsodium23)
    [ "$machine" != arm64 ] || packages+=(libclang-rt-14-dev)
    # A source without this architecture, or in the midst of a change, doesn't matter as long as the others have it all.
    "${apt[@]}" update || echo "$0: not every package list could be read" >&2
    (cd "$scratch/packages" && "${apt[@]}" download "${packages[@]}")

    for package in "$scratch"/packages/*.deb; do
        dpkg-deb -x "$package" "$sysroot"
    done
}
[ "$machine" = libcxx ] || download_packages

if [ "$machine" = arm64 ]; then
    mkdir "$sysroot/clang"
    mv "$sysroot"/usr/lib/llvm-14/lib/clang/*/lib "$sysroot/clang/lib"
    ln -s "$(clang++ -print-resource-dir)/include" "$sysroot/clang/include"
fi

cmake -S /usr/src/googletest -B "$scratch/googletest" -DCMAKE_TOOLCHAIN_FILE="$PWD/cmake/cross-$machine.cmake" \
    -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX=/usr -DCMAKE_INSTALL_LIBDIR="lib/$triplet" -DBUILD_GMOCK=OFF
cmake --build "$scratch/googletest" --parallel "${JOBS:-$(nproc)}"
DESTDIR=$sysroot cmake --install "$scratch/googletest" >/dev/null
touch "$sysroot/complete"
