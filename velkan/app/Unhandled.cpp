#include "velkan/app/detail/Unhandled.h"

#include "velkan/app/App.h"
#include "velkan/core/String.h"

namespace Velkan {
namespace Detail {

void ReportUnhandledException(const std::exception* e) {
    CString text(L"Velkan: unhandled exception at a system boundary: ");
    text.Append(e != nullptr ? e->what() : "(not a std::exception)");
    text.Append(L"\n");
    if (theAppPtr == nullptr) {
        ::OutputDebugStringW(text);
        return;
    }
    theAppPtr->Trace(L"%s", static_cast<const wchar_t*>(text));
    // The hook itself must not throw into the system either.
    try {
        theAppPtr->OnUnhandledException(e);
    } catch (...) {
        ::OutputDebugStringW(L"Velkan: OnUnhandledException threw\n");
    }
}

}  // namespace Detail
}  // namespace Velkan
