# The same machine as cross-arm64.cmake, by clang, for the fuzzers.
include("${CMAKE_CURRENT_LIST_DIR}/cross-arm64.cmake")
set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_CXX_COMPILER_TARGET aarch64-linux-gnu)
