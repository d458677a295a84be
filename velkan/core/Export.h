#pragma once

// VELKAN_API marks what velkan.dll exports. The library's own sources are
// compiled with VELKAN_BUILDING_DLL; hosts see the same declarations as
// imports.
#if defined(VELKAN_BUILDING_DLL)
#define VELKAN_API __declspec(dllexport)
#else
#define VELKAN_API __declspec(dllimport)
#endif
