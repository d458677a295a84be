#pragma once

#include <cstdarg>
#include <string>

#include "velkan/core/Export.h"

namespace Velkan {

/// Conversions between standard narrow and wide strings. Unlike CString,
/// these throw std::invalid_argument when a text cannot be converted.
namespace StringUtils {

/// ANSI code page to UTF-16; the error text is the system's message for the
/// failure.
VELKAN_API std::wstring AnsiToWide(const std::string& text);
/// UTF-16 to the ANSI code page. Without bestFit, characters the code page
/// lacks become its default character instead of a look-alike.
VELKAN_API std::string WideToAnsi(const std::wstring& text, bool bestFit);
/// UTF-16 to the ANSI code page with best-fit look-alikes.
VELKAN_API std::string WideToAnsi(const std::wstring& text);

/// Standard UTF-8 to UTF-16: four-byte sequences become surrogate pairs.
/// Malformed, overlong or surrogate-encoding sequences throw.
VELKAN_API std::wstring Utf8ToWide(const std::string& text);
/// UTF-16 to UTF-8 unit by unit: a surrogate pair becomes two three-byte
/// sequences, not one four-byte sequence. Required by the stores that read
/// this text back.
VELKAN_API std::string WideToUtf8(const std::wstring& text);

/// Formats with the C runtime's wide printf: `%s` takes a wide string.
/// An invalid format throws.
VELKAN_API std::wstring WideStringFormat(std::wstring format, ...);
/// WideStringFormat with a va_list.
VELKAN_API std::wstring WideStringFormatV(const std::wstring& format, va_list args);

}  // namespace StringUtils
}  // namespace Velkan
