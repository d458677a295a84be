# The GCC runtime is linked dynamically so that the DLL and its hosts share
# one unwinder and one libstdc++: an exception thrown in velkan.dll is then
# caught in the host. Its DLLs are copied beside every program we build.
# The unwinder DLL is named after the architecture's exception model:
# DWARF-2 on x86, SEH on x86-64.
if(CMAKE_SIZEOF_VOID_P EQUAL 8)
  set(_velkan_libgcc libgcc_s_seh-1.dll)
else()
  set(_velkan_libgcc libgcc_s_dw2-1.dll)
endif()
# VELKAN_RUNTIME_DLLS: their paths here; VELKAN_RUNTIME_DLL_NAMES: their
# file names, the same in the package's bin folder.
set(VELKAN_RUNTIME_DLLS)
set(VELKAN_RUNTIME_DLL_NAMES)
foreach(dll libstdc++-6.dll ${_velkan_libgcc} libwinpthread-1.dll)
  execute_process(
    COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${dll}
    OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE)
  if(NOT IS_ABSOLUTE "${path}" OR NOT EXISTS "${path}")
    foreach(dir /usr/lib/gcc/${VELKAN_TRIPLE}/12-posix /usr/${VELKAN_TRIPLE}/lib)
      if(EXISTS "${dir}/${dll}")
        set(path "${dir}/${dll}")
      endif()
    endforeach()
  endif()
  if(NOT EXISTS "${path}")
    message(FATAL_ERROR "GCC runtime ${dll} not found")
  endif()
  list(APPEND VELKAN_RUNTIME_DLLS "${path}")
  list(APPEND VELKAN_RUNTIME_DLL_NAMES "${dll}")
  file(COPY "${path}" DESTINATION "${CMAKE_BINARY_DIR}/bin")
endforeach()

# Common settings of the library and of everything built against it here.
add_library(velkan_settings INTERFACE)
target_compile_definitions(velkan_settings INTERFACE
  UNICODE _UNICODE _WIN32_WINNT=0x0601 WINVER=0x0601 NOMINMAX)
target_compile_options(velkan_settings INTERFACE -Wall -Wextra -Wno-unused-parameter)
# Warnings that catch code which is only right while pointers are 32 bits
# wide, in both builds; each is added only where this compiler knows it.
include(CheckCXXCompilerFlag)
foreach(flag -Wpointer-to-int-cast -Wint-to-pointer-cast -Wshorten-64-to-32)
  string(MAKE_C_IDENTIFIER "VELKAN_HAS${flag}" var)
  check_cxx_compiler_flag(${flag} ${var})
  if(${var})
    target_compile_options(velkan_settings INTERFACE ${flag})
  endif()
endforeach()
target_link_options(velkan_settings INTERFACE -shared-libgcc)
