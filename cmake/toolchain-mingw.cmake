# Cross-compiling for Windows with mingw-w64 (posix thread model, which is
# the one that has std::thread in GCC 12). Included by the two per-
# architecture toolchain files, which set VELKAN_TRIPLE and VELKAN_ARCH.
set(CMAKE_SYSTEM_NAME Windows)

set(CMAKE_C_COMPILER   ${VELKAN_TRIPLE}-gcc-posix)
set(CMAKE_CXX_COMPILER ${VELKAN_TRIPLE}-g++-posix)
set(CMAKE_RC_COMPILER  ${VELKAN_TRIPLE}-windres)
set(CMAKE_AR           ${VELKAN_TRIPLE}-ar CACHE FILEPATH "")
set(CMAKE_RANLIB       ${VELKAN_TRIPLE}-ranlib CACHE FILEPATH "")

set(CMAKE_FIND_ROOT_PATH /usr/${VELKAN_TRIPLE})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
# Packages of host projects installed anywhere (find_package(Velkan)).
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)

# Test programs run under Wine. In the source tree that is the project's
# wrapper, which picks the prefix and loader of the architecture and the
# search path of the GCC runtime DLLs. Installed with the package (in
# lib/cmake/Velkan), these files use the package's bin/velkan-wine-run.
get_filename_component(_velkan_root "${CMAKE_CURRENT_LIST_DIR}/.." ABSOLUTE)
if(EXISTS "${_velkan_root}/scripts/wine-run")
  set(VELKAN_WINE_RUN env VELKAN_ARCH=${VELKAN_ARCH} "${_velkan_root}/scripts/wine-run")
else()
  get_filename_component(_velkan_prefix "${CMAKE_CURRENT_LIST_DIR}/../../.." ABSOLUTE)
  set(VELKAN_WINE_RUN "${_velkan_prefix}/bin/velkan-wine-run" --arch ${VELKAN_ARCH})
endif()
set(CMAKE_CROSSCOMPILING_EMULATOR ${VELKAN_WINE_RUN})
