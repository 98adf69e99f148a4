# Builds for this machine on clang's own C++ library. scripts/cross-sysroot.sh libcxx comes first: a GoogleTest that
# stands on that library too.
set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_CXX_FLAGS_INIT -stdlib=libc++)
get_filename_component(GTest_DIR "${CMAKE_CURRENT_LIST_DIR}/../build/sysroot/libcxx/usr/lib/cmake/GTest" ABSOLUTE)
