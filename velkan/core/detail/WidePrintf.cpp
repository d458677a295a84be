#include "velkan/core/detail/WidePrintf.h"

#include <windows.h>

namespace Velkan {
namespace Detail {

namespace {

using CountFn = int(__cdecl*)(const wchar_t*, va_list);
using FormatFn = int(__cdecl*)(wchar_t*, std::size_t, const wchar_t*, va_list);

struct CrtPrintf {
    CountFn count = nullptr;
    FormatFn format = nullptr;

    CrtPrintf() {
        // Looked up by name so that no header macro can substitute another
        // implementation with other conventions.
        HMODULE crt = GetModuleHandleW(L"msvcrt.dll");
        if (crt == nullptr) crt = LoadLibraryW(L"msvcrt.dll");
        if (crt != nullptr) {
            count = reinterpret_cast<CountFn>(reinterpret_cast<void*>(GetProcAddress(crt, "_vscwprintf")));
            format = reinterpret_cast<FormatFn>(reinterpret_cast<void*>(GetProcAddress(crt, "_vsnwprintf")));
        }
    }
};

const CrtPrintf& Crt() {
    static const CrtPrintf crt;
    return crt;
}

}  // namespace

int CountWideFormat(const wchar_t* format, va_list args) {
    if (format == nullptr || Crt().count == nullptr) return -1;
    va_list copy;
    va_copy(copy, args);
    int n = Crt().count(format, copy);
    va_end(copy);
    return n;
}

int FormatWide(wchar_t* buffer, std::size_t count, const wchar_t* format, va_list args) {
    if (format == nullptr || Crt().format == nullptr) return -1;
    va_list copy;
    va_copy(copy, args);
    int n = Crt().format(buffer, count, format, copy);
    va_end(copy);
    return n;
}

}  // namespace Detail
}  // namespace Velkan
