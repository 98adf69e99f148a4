#!/usr/bin/env bash
# Checks what the libraries need and show, in a shared build. Of the codec library:
#   - an undefined symbol belongs to the C library (it has one of its versions) or to the services of
#     platform/include;
#   - it exports exactly the functions that the public headers declare;
#   - it holds no writable data, so nothing is kept between calls.
# Of the platform library: its writable data are its settings and the count of its log, and nothing else.
# Neither needs a C++ runtime: they name the C library, libsodium and each other alone.
#
#   check-symbols.sh libzelprotocol.so libzelplatform.so
set -euo pipefail
export LC_ALL=C

library=${1:?usage: check-symbols.sh libzelprotocol.so libzelplatform.so}
platform=${2:?usage: check-symbols.sh libzelprotocol.so libzelplatform.so}
root=$(cd "$(dirname "$0")/.." && pwd)
failed=0

expect_none() { # expect_none TEXT CULPRITS
    if [ -n "$2" ]; then
        echo "$library: $1" >&2
        c++filt <<<"$2" | sed 's/^/    /' >&2
        failed=1
    fi
}

services='P2pProtocolDecode
P2pProtocolEncode
ZelProtocolDecode
ZelProtocolEncode
ZelProtocolFree
ZelProtocolLogDebug
ZelProtocolLogError
ZelProtocolLogInfo
ZelProtocolMalloc
ZelXMLParser::Attribute(void*, char const*) const
ZelXMLParser::FirstChildElement(void*, char const*) const
ZelXMLParser::GetText(void*) const
ZelXMLParser::NextSiblingElement(void*, char const*) const
ZelXMLParser::Parse(char const*)
ZelXMLParser::Parse(char const*, int)
ZelXMLParser::RootElement() const
ZelXMLParser::release(ZelXMLDocument*)
getXmlFloatTypeParamAttribute(ZelXMLParser, void*, char const*, float*)
getXmlIntTypeParamAttribute(ZelXMLParser, void*, char const*, int*)
getXmlIntTypeParamByGetText(ZelXMLParser, void*, int*)
getXmlStringTypeParamAttribute(ZelXMLParser, void*, char const*, char*, int)
getXmlStringTypeParamByGetText(ZelXMLParser, void*, char*, int)
getXmlUCharTypeParamAttribute(ZelXMLParser, void*, char const*, unsigned char*)
getXmlUIntTypeParamAttribute(ZelXMLParser, void*, char const*, unsigned int*)
getXmlUllTypeParamAttribute(ZelXMLParser, void*, char const*, unsigned long long*)'

# Every shared object has these weak ones from the compiler's start files.
start_files='__gmon_start__
_ITM_deregisterTMCloneTable
_ITM_registerTMCloneTable
__cxa_finalize'

undefined=$(nm -D --undefined-only "$library" | awk '{ print $2 }')
exported=$(nm -D --defined-only "$library" | awk '{ print $3 }' | sort -u)
if [ -z "$undefined" ] || [ -z "$exported" ]; then
    echo "$library: nm shows no dynamic symbols" >&2
    exit 1
fi

unversioned=$(sed -E '/@(GLIBC|GCC)_[0-9.]+$/d' <<<"$undefined" | c++filt | sort -u)
expect_none 'needs more than the C library and the services of the platform interface:' \
    "$(comm -23 <(echo "$unversioned") <(printf '%s\n%s\n' "$services" "$start_files" | sort -u))"

declared=$(cat "$root"/include/zel_protocol/*.h | sed -nE 's/^ZEL_API .*[ *]([A-Za-z0-9_]+)\(.*/\1/p' | sort -u)
expect_none 'exports what no public header declares:' "$(comm -23 <(echo "$exported") <(echo "$declared"))"
expect_none 'lacks what a public header declares:' "$(comm -13 <(echo "$exported") <(echo "$declared"))"

# `completed.0` and `__dso_handle` are the start files' own, `DW.ref...` is the compiler's for exceptions.
writable_data() {
    objdump -t "$1" | awk '/[ \t]\.(data|bss|tdata|tbss)\t/ && $3 != "d" && $(NF - 1) !~ /^0+$/ &&
        $NF !~ /^(completed\.|DW\.ref\.)/ && $NF != "__dso_handle" { print $NF }' | sort
}

expect_none 'keeps writable data:' "$(writable_data "$library")"

expect_needed() { # expect_needed LIBRARY NAME...
    local needed
    needed=$(readelf -d "$1" | sed -nE 's/.*\(NEEDED\).*\[(.*)\.so.*/\1/p' | sort)
    library=$1
    expect_none 'names other libraries than it may:' "$(comm -23 <(echo "$needed") <(printf '%s\n' "${@:2}" | sort))"
}

# The dynamic linker is the C library's own.
expect_needed "$library" libc ld-linux-x86-64 libzelplatform
expect_needed "$platform" libc ld-linux-x86-64 libsodium

# The P2p key and the log's two settings, and what the log counts in a second.
settings='highestLevel
linesAsked
mostLines
p2pKey
secondOfLines'
library=$platform
found=$(writable_data "$platform" | sed -E 's/^_ZN12_GLOBAL__N_1L?[0-9]+(.*)E$/\1/' | sort)
expect_none 'keeps writable data that is no setting:' "$(comm -23 <(echo "$found") <(echo "$settings"))"
# Without this a stripped library would pass.
expect_none 'shows no such data, or is stripped:' "$(comm -13 <(echo "$found") <(echo "$settings"))"

exit $failed
