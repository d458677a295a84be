// A console tour of the first classes: strings, error texts, notifications.
#include <cstdio>

#include "velkan/Velkan.h"

using namespace Velkan;

namespace {

void Say(const CString& line) {
    // The console takes UTF-8 most reliably under Wine and Windows alike.
    std::fputs(line.GetUtf8String(), stdout);
    std::fputs("\n", stdout);
}

struct Listener : IObservable {
    void OnNotify(CNotification& n) override {
        Say(CString::FormatS(L"  observer got \"%s\" with data %lu", n.GetName(), n.GetData()));
    }
};

}  // namespace

int main() {
    SetConsoleOutputCP(CP_UTF8);
    Say(L"Velkan console sample");

    CString text(L"  alpha, beta,, gamma  ");
    Say(CString::FormatS(L"text:      [%s]", text.GetString()));
    text.Trim();
    Say(CString::FormatS(L"trimmed:   [%s]", text.GetString()));
    auto parts = text.Split(L',', true);
    Say(CString::FormatS(L"split:     %d pieces", static_cast<int>(parts.size())));
    for (CString& part : parts) Say(CString(L"  - ") + part.Trim().ToUpper().GetString());
    text.Replace(L", ", L" | ");
    Say(CString::FormatS(L"replaced:  [%s]", text.GetString()));

    CString nullText;
    nullText.Append(L"ignored");
    Say(CString::FormatS(L"null stays null after Append: %s", nullText.IsNull() ? L"yes" : L"no"));

    CString greeting = CString::FromUtf8("Gr\xC3\xBC\xC3\x9F" "e \xF0\x9F\x98\x80");
    Say(CString::FormatS(L"UTF-8 in, %d UTF-16 units, back out: %s", greeting.GetLength(),
                         greeting.GetString()));

    CWin32Error error(ERROR_FILE_NOT_FOUND, nullptr);
    Say(CString::FormatS(L"error %lu: %s", error.GetErrorCode(), error.GetErrorMessage().GetString()));

    Listener listener;
    CNotificationCenter& center = CNotificationCenter::GetDefault();
    center.AddObserver(L"Sample.Saved", listener);
    Say(L"posting Sample.Saved twice:");
    center.PostNotification(L"Sample.Saved", nullptr, 1);
    center.PostNotification(L"sample.saved", nullptr, 2);
    center.RemoveObserver(listener);
    center.PostNotification(L"Sample.Saved", nullptr, 3);
    Say(L"after RemoveObserver nothing more arrives.");
    return 0;
}
