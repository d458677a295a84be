# 32-bit x86 Windows, the primary target.
set(CMAKE_SYSTEM_PROCESSOR x86)
set(VELKAN_TRIPLE i686-w64-mingw32)
set(VELKAN_ARCH x86)
include("${CMAKE_CURRENT_LIST_DIR}/toolchain-mingw.cmake")
