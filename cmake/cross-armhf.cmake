# Builds for 32-bit ARM with hardware floats, the commonest camera; the programs run under qemu's user emulation.
# scripts/cross-sysroot.sh armhf comes first.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR armv7)
set(CMAKE_CXX_COMPILER arm-linux-gnueabihf-g++)
set(CMAKE_C_COMPILER arm-linux-gnueabihf-gcc)

set(ZEL_CROSS_MACHINE armhf)
set(ZEL_CROSS_TRIPLET arm-linux-gnueabihf)
include("${CMAKE_CURRENT_LIST_DIR}/cross-sysroot.cmake")

find_program(ZEL_QEMU NAMES qemu-arm-static qemu-arm)
set(CMAKE_CROSSCOMPILING_EMULATOR "${ZEL_QEMU};-L;/usr/arm-linux-gnueabihf")
