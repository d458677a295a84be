// Uses the installed headers through the umbrella include and checks that
// an exception thrown inside velkan.dll is caught here.
#include <cstdio>

#include "velkan/Velkan.h"

int main()
{
    Velkan::CString s;
    s.Format(L"%s-%d", L"host", 7);
    if (s != L"host-7") {
        std::printf("format gave %s\n", s.GetUtf8String());
        return 1;
    }
    try {
        // The host has no string table, so the library throws.
        Velkan::CResourceString missing(4242);
        std::printf("string 4242 unexpectedly found\n");
        return 1;
    } catch (const Velkan::CResourceNotFoundException& e) {
        std::printf("package host ok (%d-bit): %s\n", static_cast<int>(sizeof(void*) * 8), e.what());
        return 0;
    }
}
