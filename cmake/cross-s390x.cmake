# Builds for a machine whose numbers begin with their highest byte; the programs run under qemu's user emulation.
# scripts/cross-sysroot.sh s390x comes first.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR s390x)
set(CMAKE_CXX_COMPILER s390x-linux-gnu-g++)
set(CMAKE_C_COMPILER s390x-linux-gnu-gcc)

set(ZEL_CROSS_MACHINE s390x)
set(ZEL_CROSS_TRIPLET s390x-linux-gnu)
include("${CMAKE_CURRENT_LIST_DIR}/cross-sysroot.cmake")

find_program(ZEL_QEMU NAMES qemu-s390x-static qemu-s390x)
set(CMAKE_CROSSCOMPILING_EMULATOR "${ZEL_QEMU};-L;/usr/s390x-linux-gnu")
