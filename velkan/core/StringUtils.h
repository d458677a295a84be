#pragma once

#include <cstdarg>
#include <string>

#include "velkan/core/Export.h"

namespace Velkan {

// Conversions between standard narrow and wide strings. Unlike CString,
// these throw std::invalid_argument when a text cannot be converted.
namespace StringUtils {

// ANSI code page; the error text is the system's message for the failure.
VELKAN_API std::wstring AnsiToWide(const std::string& text);
// Without bestFit, characters the code page lacks become its default
// character instead of a look-alike.
VELKAN_API std::string WideToAnsi(const std::wstring& text, bool bestFit);
VELKAN_API std::string WideToAnsi(const std::wstring& text);

// Standard UTF-8: four-byte sequences become surrogate pairs.
VELKAN_API std::wstring Utf8ToWide(const std::string& text);
// Unit by unit: a surrogate pair becomes two three-byte sequences, not one
// four-byte sequence. Required by the stores that read this text back.
VELKAN_API std::string WideToUtf8(const std::wstring& text);

// The C runtime's wide printf: "%s" takes a wide string.
VELKAN_API std::wstring WideStringFormat(std::wstring format, ...);
VELKAN_API std::wstring WideStringFormatV(const std::wstring& format, va_list args);

}  // namespace StringUtils
}  // namespace Velkan
