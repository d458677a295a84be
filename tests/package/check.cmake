# Installs the build into a scratch prefix, builds the host project against
# it with find_package(Velkan), and runs the host under Wine.
# Arguments: -DBUILD_DIR= -DSOURCE_DIR= -DWORK_DIR= -DTOOLCHAIN= -DARCH= (x86 or x64)
file(REMOVE_RECURSE "${WORK_DIR}")
macro(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE rc)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "failed (${rc}): ${ARGN}")
  endif()
endmacro()
run(${CMAKE_COMMAND} --install "${BUILD_DIR}" --prefix "${WORK_DIR}/prefix")
run(${CMAKE_COMMAND} -S "${SOURCE_DIR}/tests/package" -B "${WORK_DIR}/host"
    "-DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN}"
    "-DCMAKE_PREFIX_PATH=${WORK_DIR}/prefix")
run(${CMAKE_COMMAND} --build "${WORK_DIR}/host")
# The host finds velkan.dll and the GCC runtime next to itself, as an
# installed application would.
file(GLOB dlls "${WORK_DIR}/prefix/bin/*.dll")
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
