# 64-bit x86-64 Windows, built and tested beside the 32-bit library.
set(CMAKE_SYSTEM_PROCESSOR AMD64)
set(VELKAN_TRIPLE x86_64-w64-mingw32)
set(VELKAN_ARCH x64)
include("${CMAKE_CURRENT_LIST_DIR}/toolchain-mingw.cmake")
