# The installed package, used the way a host project uses it.
#
# First docs/getting-started.md, for the architecture under test: its
# marked commands install the build into a scratch "~" (WORK_DIR/home),
# configure examples/hello with the installed toolchain file, build it and
# run it with the installed velkan-wine-run (and --close). guide.py reads
# the commands and checks the rest of the guide against the sources and the
# installed package. The DLLs must have been copied next to hello.exe, and
# the guide's -DVelkan_DIR must find the package under a toolchain that
# confines package look-up to the sysroot.
#
# Then the host of tests/package, built against the same prefix with the
# source tree's toolchain file, checks that an exception thrown inside
# velkan.dll is caught in the host.
#
# Arguments: -DBUILD_DIR= -DSOURCE_DIR= -DWORK_DIR= -DTOOLCHAIN= -DARCH= (x86 or x64)
cmake_minimum_required(VERSION 3.20)
file(REMOVE_RECURSE "${WORK_DIR}")
file(MAKE_DIRECTORY "${WORK_DIR}/home")
find_program(PYTHON python3 REQUIRED)
set(guide "${SOURCE_DIR}/docs/getting-started.md")
set(checker "${CMAKE_CURRENT_LIST_DIR}/guide.py")

# Runs a command in the source tree; its output is shown when it fails.
# Each step reports its time.
macro(step name)
  string(TIMESTAMP _start "%s")
  execute_process(COMMAND ${ARGN} WORKING_DIRECTORY "${SOURCE_DIR}"
    RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE out)
  string(TIMESTAMP _end "%s")
  math(EXPR _seconds "${_end} - ${_start}")
  if(NOT rc EQUAL 0)
    message("${out}")
    message(FATAL_ERROR "${name} failed (${rc}): ${ARGN}")
  endif()
  message(STATUS "${name}: ${_seconds} s")
endmacro()

step("reading the guide" "${PYTHON}" "${checker}" commands "${guide}" "${SOURCE_DIR}" "${ARCH}"
     "${BUILD_DIR}" "${WORK_DIR}/home" "${CMAKE_COMMAND}" "${WORK_DIR}/guide.cmake")
include("${WORK_DIR}/guide.cmake")
step("install" ${GUIDE_INSTALL})
step("the guide against the package" "${PYTHON}" "${checker}" facts "${guide}" "${SOURCE_DIR}" "${GUIDE_PREFIX}")
step("configure hello" ${GUIDE_CONFIGURE})
step("build hello" ${GUIDE_BUILD})

# velkan_copy_runtime put velkan.dll and the GCC runtime next to hello.exe.
file(GLOB dlls RELATIVE "${GUIDE_PREFIX}/bin" "${GUIDE_PREFIX}/bin/*.dll")
list(LENGTH dlls count)
if(NOT "velkan.dll" IN_LIST dlls OR NOT count EQUAL 4)
  message(FATAL_ERROR "the package's bin folder holds ${dlls}, not velkan.dll and three runtime DLLs")
endif()
foreach(dll IN LISTS dlls)
  if(NOT EXISTS "${GUIDE_HELLO_DIR}/${dll}")
    message(FATAL_ERROR "${dll} was not copied next to hello.exe")
  endif()
  file(SHA256 "${GUIDE_PREFIX}/bin/${dll}" installed)
  file(SHA256 "${GUIDE_HELLO_DIR}/${dll}" copied)
  if(NOT installed STREQUAL copied)
    message(FATAL_ERROR "${dll} next to hello.exe is not the installed one")
  endif()
endforeach()

# The prefix of the test runs (the one scripts/with-display prepared), as
# scripts/wine-env names it, unless one is given.
if(NOT DEFINED ENV{WINEPREFIX} OR "$ENV{WINEPREFIX}" STREQUAL "")
  if(ARCH STREQUAL "x64")
    set(ENV{WINEPREFIX} "${SOURCE_DIR}/.wine64")
    if(DEFINED ENV{VELKAN_WINEPREFIX64})
      set(ENV{WINEPREFIX} "$ENV{VELKAN_WINEPREFIX64}")
    endif()
  else()
    set(ENV{WINEPREFIX} "${SOURCE_DIR}/.wine")
    if(DEFINED ENV{VELKAN_WINEPREFIX})
      set(ENV{WINEPREFIX} "$ENV{VELKAN_WINEPREFIX}")
    endif()
  endif()
endif()
# Output into a file: Wine's helpers could hold a pipe open.
string(TIMESTAMP start "%s")
execute_process(COMMAND ${GUIDE_RUN} RESULT_VARIABLE rc TIMEOUT 120
  OUTPUT_FILE "${WORK_DIR}/hello-run.txt" ERROR_FILE "${WORK_DIR}/hello-run.txt")
string(TIMESTAMP end "%s")
math(EXPR seconds "${end} - ${start}")
if(NOT rc EQUAL 0)
  file(READ "${WORK_DIR}/hello-run.txt" out)
  message("${out}")
  message(FATAL_ERROR "hello.exe --close under velkan-wine-run failed (${rc})")
endif()
message(STATUS "run hello: ${seconds} s")

# -DVelkan_DIR as the guide gives it, under a toolchain that confines
# package look-up to the sysroot.
file(WRITE "${WORK_DIR}/sysroot-toolchain.cmake"
  "include(\"${GUIDE_TOOLCHAIN}\")\nset(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)\n")
step("configure hello with Velkan_DIR" "${CMAKE_COMMAND}" -S examples/hello -B "${WORK_DIR}/sysroot"
     "-DCMAKE_TOOLCHAIN_FILE=${WORK_DIR}/sysroot-toolchain.cmake" "-DVelkan_DIR=${GUIDE_VELKAN_DIR}")

# An exception thrown in velkan.dll is caught in the host.
step("configure the host" "${CMAKE_COMMAND}" -S "${SOURCE_DIR}/tests/package" -B "${WORK_DIR}/host"
     "-DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN}" "-DCMAKE_PREFIX_PATH=${GUIDE_PREFIX}")
step("build the host" "${CMAKE_COMMAND}" --build "${WORK_DIR}/host")
# The host finds velkan.dll and the GCC runtime next to itself, as an
# installed application would.
file(GLOB dlls "${GUIDE_PREFIX}/bin/*.dll")
file(COPY ${dlls} DESTINATION "${WORK_DIR}/host")
execute_process(COMMAND env VELKAN_ARCH=${ARCH} "${SOURCE_DIR}/scripts/wine-run" "${WORK_DIR}/host/host.exe"
  RESULT_VARIABLE rc OUTPUT_VARIABLE out)
message(STATUS "${out}")
if(ARCH STREQUAL "x64")
  set(bits 64)
else()
  set(bits 32)
endif()
if(NOT rc EQUAL 0 OR NOT out MATCHES "package host ok \\(${bits}-bit\\)")
  message(FATAL_ERROR "the ${bits}-bit host failed (${rc})")
endif()
