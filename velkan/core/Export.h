#pragma once

/// @file
/// The export macro of velkan.dll.

/// @namespace Velkan
/// Every class, function and constant of the library. Most class names start
/// with C, interfaces with I; wrappers of Win32 handles keep the Win32
/// names of the functions they wrap.

/// VELKAN_API marks what velkan.dll exports. The library's own sources are
/// compiled with VELKAN_BUILDING_DLL; hosts see the same declarations as
/// imports.
#if defined(VELKAN_BUILDING_DLL)
#define VELKAN_API __declspec(dllexport)
#else
#define VELKAN_API __declspec(dllimport)
#endif
