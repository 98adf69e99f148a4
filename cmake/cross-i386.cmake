# Builds for 32-bit x86, which a 64-bit machine runs itself. scripts/cross-sysroot.sh i386 comes first.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(CMAKE_CXX_COMPILER g++)
set(CMAKE_C_COMPILER gcc)
# With SSE, as on every machine of today: the x87 registers would round a float twice. The kernel's headers serve
# both widths but lie among those of the wider; the package that links them in doesn't go with a cross compiler.
set(CMAKE_CXX_FLAGS_INIT "-m32 -msse2 -mfpmath=sse -idirafter /usr/include/x86_64-linux-gnu")
set(CMAKE_C_FLAGS_INIT "${CMAKE_CXX_FLAGS_INIT}")

set(ZEL_CROSS_MACHINE i386)
set(ZEL_CROSS_TRIPLET i386-linux-gnu)
include("${CMAKE_CURRENT_LIST_DIR}/cross-sysroot.cmake")
