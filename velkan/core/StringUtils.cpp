#include "velkan/core/StringUtils.h"

#include <windows.h>

#include <stdexcept>
#include <vector>

#include "velkan/core/Win32Error.h"
#include "velkan/core/detail/WidePrintf.h"

namespace Velkan {
namespace StringUtils {

namespace {

[[noreturn]] void ThrowLastError() {
    CWin32Error error;
    const char* text = error.GetErrorMessage().GetCString();
    throw std::invalid_argument(text != nullptr ? text : "conversion failed");
}

std::string Narrow(const std::wstring& text, DWORD flags) {
    int bytes = ::WideCharToMultiByte(CP_ACP, flags, text.c_str(), -1, nullptr, 0, nullptr, nullptr);
    if (bytes == 0) ThrowLastError();
    std::vector<char> buffer(static_cast<size_t>(bytes), '\0');
    if (::WideCharToMultiByte(CP_ACP, flags, text.c_str(), -1, buffer.data(), bytes, nullptr, nullptr) == 0)
        ThrowLastError();
    return std::string(buffer.data());
}

[[noreturn]] void InvalidUtf8() {
    throw std::invalid_argument("invalid UTF-8 sequence");
}

}  // namespace

std::wstring AnsiToWide(const std::string& text) {
    int units = ::MultiByteToWideChar(CP_ACP, 0, text.c_str(), -1, nullptr, 0);
    if (units == 0) ThrowLastError();
    std::vector<wchar_t> buffer(static_cast<size_t>(units), L'\0');
    if (::MultiByteToWideChar(CP_ACP, 0, text.c_str(), -1, buffer.data(), units) == 0) ThrowLastError();
    return std::wstring(buffer.data());
}

std::string WideToAnsi(const std::wstring& text, bool bestFit) {
    return Narrow(text, bestFit ? 0 : WC_NO_BEST_FIT_CHARS);
}

std::string WideToAnsi(const std::wstring& text) {
    return WideToAnsi(text, true);
}

std::wstring Utf8ToWide(const std::string& text) {
    std::wstring out;
    out.reserve(text.size());
    const auto* p = reinterpret_cast<const unsigned char*>(text.data());
    const auto* end = p + text.size();
    while (p < end) {
        unsigned c = *p++;
        if (c < 0x80) {
            out.push_back(static_cast<wchar_t>(c));
            continue;
        }
        int extra;
        unsigned minimum;
        if ((c & 0xE0) == 0xC0) {
            extra = 1, minimum = 0x80, c &= 0x1F;
        } else if ((c & 0xF0) == 0xE0) {
            extra = 2, minimum = 0x800, c &= 0x0F;
        } else if ((c & 0xF8) == 0xF0) {
            extra = 3, minimum = 0x10000, c &= 0x07;
        } else {
            InvalidUtf8();
        }
        if (end - p < extra) InvalidUtf8();
        for (int i = 0; i < extra; ++i) {
            if ((p[i] & 0xC0) != 0x80) InvalidUtf8();
            c = (c << 6) | (p[i] & 0x3F);
        }
        p += extra;
        // Overlong forms, encoded surrogates and values past U+10FFFF.
        if (c < minimum || (c >= 0xD800 && c <= 0xDFFF) || c > 0x10FFFF) InvalidUtf8();
        if (c >= 0x10000) {
            c -= 0x10000;
            out.push_back(static_cast<wchar_t>(0xD800 + (c >> 10)));
            out.push_back(static_cast<wchar_t>(0xDC00 + (c & 0x3FF)));
        } else {
            out.push_back(static_cast<wchar_t>(c));
        }
    }
    return out;
}

std::string WideToUtf8(const std::wstring& text) {
    std::string out;
    out.reserve(text.size() * 3);
    for (wchar_t unit : text) {
        const unsigned c = static_cast<unsigned>(unit);
        if (c < 0x80) {
            out.push_back(static_cast<char>(c));
        } else if (c < 0x800) {
            out.push_back(static_cast<char>(0xC0 | (c >> 6)));
            out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
        } else {
            out.push_back(static_cast<char>(0xE0 | (c >> 12)));
            out.push_back(static_cast<char>(0x80 | ((c >> 6) & 0x3F)));
            out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
        }
    }
    return out;
}

std::wstring WideStringFormat(std::wstring format, ...) {
    va_list args;
    va_start(args, format);
    std::wstring text = WideStringFormatV(format, args);
    va_end(args);
    return text;
}

std::wstring WideStringFormatV(const std::wstring& format, va_list args) {
    va_list counting;
    va_copy(counting, args);
    int count = Detail::CountWideFormat(format.c_str(), counting);
    va_end(counting);
    if (count < 0) throw std::invalid_argument("invalid format");
    std::vector<wchar_t> buffer(static_cast<size_t>(count) + 1, L'\0');
    Detail::FormatWide(buffer.data(), buffer.size(), format.c_str(), args);
    return std::wstring(buffer.data(), static_cast<size_t>(count));
}

}  // namespace StringUtils
}  // namespace Velkan
