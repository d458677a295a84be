#pragma once

// The task dialog stand-in of the dialog tests; the modal-loop drivers are
// in support/ModalDriver.h.

#include <windows.h>
#include <commctrl.h>

#include <string>
#include <vector>

#include "support/ModalDriver.h"

namespace Testing {

// Redirects comctl32's TaskDialogIndirect (ordinal 345) to a stand-in
// while alive: the stand-in keeps a deep copy of the configuration it
// receives, and answers with the values below or, when forward is set,
// hands the call to the real function.
class TaskDialogInterceptor {
public:
    struct Button {
        int id;
        std::wstring text;
    };

    TaskDialogInterceptor();
    ~TaskDialogInterceptor();

    // What the last call received.
    int calls = 0;
    TASKDIALOGCONFIG config = {};
    std::vector<Button> buttons;
    std::vector<Button> radioButtons;
    bool radioRequested = false;
    bool verificationRequested = false;
    // What the stand-in answers.
    HRESULT result = S_OK;
    int pressed = IDOK;
    int radio = 0;
    BOOL verification = FALSE;
    bool forward = false;

    static std::wstring Text(PCWSTR field);

private:
    static HRESULT WINAPI StandIn(const TASKDIALOGCONFIG* config, int* pressed, int* radio, BOOL* verification);
    void Patch();
    void Unpatch();

    unsigned char* m_target = nullptr;
    unsigned char m_saved[16] = {};
    size_t m_patchSize = 0;
};

}  // namespace Testing
