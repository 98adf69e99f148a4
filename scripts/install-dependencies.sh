#!/usr/bin/env bash
# Installs what the build and the tests need, and says what that is. Does nothing when all is there.
#
#   install-dependencies.sh       what `make test` and `make demo` need
#   install-dependencies.sh library the same without the inspector, for builds with -DZEL_BUILD_INSPECT=OFF
#   install-dependencies.sh ci    what .ci/run needs on top
#   install-dependencies.sh abi   what `make abi` needs on top
#   install-dependencies.sh bench what `make bench` needs on top
#   install-dependencies.sh costs what `make costs` needs on top
#   install-dependencies.sh coverage what `make coverage` needs on top
#   install-dependencies.sh docs  what `make docs` needs on top
#   install-dependencies.sh footprint what `make footprint` needs on top
#   install-dependencies.sh package what `make package` needs on top
#   install-dependencies.sh records what `make records` needs on top
#   install-dependencies.sh fuzz  what `make fuzz` needs on top
#   install-dependencies.sh cross what the presets m32, arm64, armhf and s390x need on top; a cross compiler takes the place of
#                                 the package gcc-multilib, which Debian doesn't install beside one
set -euo pipefail

has_cmake() { # 3.20 or later
    command -v cmake >/dev/null &&
        [ "$(printf '3.20\n%s\n' "$(cmake --version | sed -n '1s/[^0-9]*//p')" | sort -V | head -n 1)" = 3.20 ]
}
has_command() { command -v "$1" >/dev/null; }
has_library() { has_command pkg-config && pkg-config --exists "$1"; }
has_compiler() { has_command "${CXX:-c++}"; }
has_narrow_library() { # a 32-bit C++ library for the machine's own compiler
    has_command g++ && printf '#include <cstdio>\nint main() {}' |
        g++ -m32 -idirafter /usr/include/x86_64-linux-gnu -x c++ - -o /dev/null 2>/dev/null
}
has_clang_library() {
    has_command clang++ && printf '#include <string>\nint main() {}' | clang++ -x c++ -stdlib=libc++ - -o /dev/null 2>/dev/null
}
has_clang_runtime() {
    has_command clang++ && printf 'int main() {}' | clang++ -x c++ -fsanitize=address - -o /dev/null 2>/dev/null
}
has_fuzzer_runtime() {
    has_command clang++ && printf 'extern "C" int LLVMFuzzerTestOneInput(const char*, unsigned long) { return 0; }' |
        clang++ -x c++ -fsanitize=fuzzer,address - -o /dev/null 2>/dev/null
}
has_clang_parser() { /usr/bin/python3 -c 'from clang.cindex import Index; Index.create()' 2>/dev/null; }

packages=()
names=()
# need PACKAGE NAME CHECK...: notes what a check doesn't find.
need() {
    local package=$1 name=$2
    shift 2
    if ! "$@"; then
        packages+=("$package")
        names+=("$name")
    fi
}

need cmake 'CMake 3.20 or later' has_cmake
need g++ 'a C++17 compiler' has_compiler
need make 'make' has_command make
need pkg-config 'pkg-config' has_command pkg-config
need libpugixml-dev 'pugixml 1.11 or later' has_library pugixml
need libsodium-dev 'libsodium' has_library libsodium
need libgtest-dev 'GoogleTest' has_library gtest
if [ "${1:-}" != library ]; then
    need nlohmann-json3-dev 'JSON for Modern C++ 3.11 or later' has_library nlohmann_json
    need libcli11-dev 'CLI11 2.1 or later' has_library CLI11
    need libtins-dev 'libtins' has_library libtins
    need libpcap0.8-dev 'libpcap' has_library libpcap
fi
case "${1:-}" in
'' | library) ;;
ci)
    need g++ 'GCC' has_command g++
    need g++-11 'the oldest GCC that is supported' has_command g++-11
    need clang 'clang' has_command clang++
    need libc++-14-dev "clang's C++ library" has_clang_library
    need libc++abi-14-dev "clang's C++ library" has_clang_library
    need googletest "GoogleTest's sources" test -e /usr/src/googletest/CMakeLists.txt
    need libclang-rt-14-dev "clang's sanitizer and fuzzer runtime" has_clang_runtime
    need clang-format-14 'clang-format 14' has_command clang-format-14
    need binutils 'nm and readelf' has_command readelf
    need git 'git' has_command git
    ;;
abi)
    need g++ 'GCC' has_command g++
    need abigail-tools 'libabigail' has_command abidiff
    need xz-utils 'xz' has_command xz
    need python3 'Python' has_command python3
    ;;
bench)
    need libbenchmark-dev 'Google Benchmark' test -e /usr/include/benchmark/benchmark.h
    need libpugixml-dev 'pugixml' has_library pugixml
    need libfmt-dev 'fmt' has_library fmt
    need libtinyxml2-dev 'tinyxml2' has_library tinyxml2
    need librapidxml-dev 'RapidXML' test -e /usr/include/rapidxml/rapidxml.hpp
    need libxml2-dev 'libxml2' has_library libxml-2.0
    ;;
costs)
    need g++ 'GCC' has_command g++
    need valgrind 'valgrind' has_command valgrind
    ;;
docs)
    need doxygen 'Doxygen' has_command doxygen
    ;;
coverage)
    need g++ 'GCC' has_command g++
    need gcovr 'gcovr' has_command gcovr
    ;;
footprint)
    need g++ 'GCC' has_command g++
    need valgrind "valgrind's headers" test -e /usr/include/valgrind/callgrind.h
    need g++-arm-linux-gnueabihf 'a C++ compiler for 32-bit ARM' has_command arm-linux-gnueabihf-g++
    need qemu-user-static "qemu's user emulation" has_command qemu-arm-static
    need googletest "GoogleTest's sources" test -e /usr/src/googletest/CMakeLists.txt
    ;;
package)
    need dpkg-dev "Debian's tools for packages" has_command dpkg-shlibdeps
    need file 'file' has_command file
    ;;
records)
    need python3 'Python 3' test -x /usr/bin/python3
    need python3-clang-14 "clang's parser for Python" has_clang_parser
    ;;
fuzz)
    need clang 'clang' has_command clang++
    need libclang-rt-14-dev "clang's sanitizer and fuzzer runtime" has_fuzzer_runtime
    need llvm-14 'llvm-cov and llvm-profdata' has_command llvm-cov-14
    ;;
cross)
    need g++ 'GCC' has_command g++
    version=$(g++ -dumpversion 2>/dev/null || echo 12)
    need "g++-${version%%.*}-multilib" 'a 32-bit C++ library' has_narrow_library
    need libc6-i386 'a 32-bit C library' test -e /lib/ld-linux.so.2
    need clang 'clang' has_command clang++
    need g++-aarch64-linux-gnu 'a C++ compiler for 64-bit ARM' has_command aarch64-linux-gnu-g++
    need g++-arm-linux-gnueabihf 'a C++ compiler for 32-bit ARM' has_command arm-linux-gnueabihf-g++
    need g++-s390x-linux-gnu 'a C++ compiler for a big-endian machine' has_command s390x-linux-gnu-g++
    need qemu-user-static "qemu's user emulation" has_command qemu-aarch64-static
    need googletest "GoogleTest's sources" test -e /usr/src/googletest/CMakeLists.txt
    ;;
*)
    echo "usage: $0 [library|ci|abi|bench|costs|coverage|docs|footprint|package|records|fuzz|cross]" >&2
    exit 2
    ;;
esac

if [ ${#packages[@]} -eq 0 ]; then
    exit 0
fi

give_up() {
    echo "$0: $1" >&2
    echo 'Needed and not found:' >&2
    printf '  %s\n' "${names[@]}" >&2
    exit 1
}

has_command apt-get || give_up 'this system has no apt-get, so please install these by hand.'
as_root=()
if [ "$(id -u)" -ne 0 ]; then
    has_command sudo || give_up "not root and no sudo; as root: apt-get install ${packages[*]}"
    as_root=(sudo)
fi

echo "Installing with apt-get: ${packages[*]}"
export DEBIAN_FRONTEND=noninteractive
"${as_root[@]}" apt-get -q update
"${as_root[@]}" apt-get -q install -y --no-install-recommends "${packages[@]}" ||
    give_up 'apt-get could not install all of it.'
