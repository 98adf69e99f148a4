# Builds for 64-bit ARM; the programs run under qemu's user emulation. scripts/cross-sysroot.sh arm64 comes first.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(CMAKE_CXX_COMPILER aarch64-linux-gnu-g++)
set(CMAKE_C_COMPILER aarch64-linux-gnu-gcc)

set(ZEL_CROSS_MACHINE arm64)
set(ZEL_CROSS_TRIPLET aarch64-linux-gnu)
include("${CMAKE_CURRENT_LIST_DIR}/cross-sysroot.cmake")

find_program(ZEL_QEMU NAMES qemu-aarch64-static qemu-aarch64)
set(CMAKE_CROSSCOMPILING_EMULATOR "${ZEL_QEMU};-L;/usr/aarch64-linux-gnu")
