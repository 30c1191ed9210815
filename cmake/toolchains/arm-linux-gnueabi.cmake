# 32-bit ARM with soft float (Debian's armel): ARMv5T. Programs run under qemu-arm.

set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR armv5tel)
set(triplet arm-linux-gnueabi)
include(${CMAKE_CURRENT_LIST_DIR}/debian_cross.cmake)
