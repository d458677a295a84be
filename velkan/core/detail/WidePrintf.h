#pragma once

#include <cstdarg>
#include <cstddef>

namespace Velkan {
namespace Detail {

// The C runtime's own wide printf (msvcrt), where "%s" in a wide format
// takes a wide string. mingw's headers can route the standard names to
// their C99 printf, in which "%s" is narrow, so the library calls these
// instead of swprintf/vswprintf.

// Units the format produces, terminator excluded; negative on a bad format.
int CountWideFormat(const wchar_t* format, va_list args);

// Formats at most count units (terminator included when it fits); returns
// the units written or a negative value when the output did not fit.
int FormatWide(wchar_t* buffer, std::size_t count, const wchar_t* format, va_list args);

}  // namespace Detail
}  // namespace Velkan
