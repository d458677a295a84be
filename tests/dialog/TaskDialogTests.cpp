#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "DialogTestSupport.h"
#include "resource.h"
#include "velkan/core/Exceptions.h"
#include "velkan/dialog/TaskDialog.h"

using namespace Velkan;
using Testing::TaskDialogInterceptor;
using Testing::Watchdog;

namespace {

HINSTANCE Exe() {
    return ::GetModuleHandleW(nullptr);
}

std::wstring Text(PCWSTR field) {
    return TaskDialogInterceptor::Text(field);
}

}  // namespace

TEST(TaskDialogConfig, WhatThePlatformReceivesWithoutAnyBuilderCall) {
    TaskDialogInterceptor platform;
    CTaskDialog dialog;
    platform.pressed = IDCANCEL;
    EXPECT_EQ(IDCANCEL, dialog.Show());
    ASSERT_EQ(1, platform.calls);
    const TASKDIALOGCONFIG& c = platform.config;
    EXPECT_EQ(sizeof(TASKDIALOGCONFIG), c.cbSize);
    EXPECT_EQ(Exe(), c.hInstance);
    EXPECT_EQ(L"#57344", Text(c.pszWindowTitle));
    EXPECT_EQ(nullptr, c.hwndParent);
    EXPECT_EQ(0u, c.dwFlags);
    EXPECT_EQ(0u, c.cButtons);
    EXPECT_EQ(nullptr, c.pButtons);
    EXPECT_EQ(0u, c.cRadioButtons);
    EXPECT_EQ(nullptr, c.pRadioButtons);
    EXPECT_EQ(&CTaskDialog::TaskDialogCallback, c.pfCallback);
    EXPECT_EQ(reinterpret_cast<LONG_PTR>(&dialog), c.lpCallbackData);
    EXPECT_FALSE(platform.radioRequested);
    EXPECT_FALSE(platform.verificationRequested);
#if defined(__i386__)
    EXPECT_EQ(96u, c.cbSize);
#endif
}

TEST(TaskDialogConfig, TextsByIdByTextAndFormatted) {
    TaskDialogInterceptor platform;
    CTaskDialog dialog;
    dialog.WithWindowTitle(IDS_TITLE)
        .WithMainInstructionFmt(IDS_INSTRUCTION_FORMAT, 2, 5)
        .WithContent(L"content")
        .WithFooterFmt(L"%s: %d%%", L"done", 50)
        .WithExpandedInformation(L"details", TRUE)
        .WithExpandedControlText(L"less")
        .WithCollapsedControlText(7u);
    dialog.Show();
    const TASKDIALOGCONFIG& c = platform.config;
    EXPECT_EQ(L"#205", Text(c.pszWindowTitle));
    EXPECT_EQ(L"Step 2 of 5", Text(c.pszMainInstruction));
    EXPECT_EQ(L"content", Text(c.pszContent));
    EXPECT_EQ(L"done: 50%", Text(c.pszFooter));
    EXPECT_EQ(L"details", Text(c.pszExpandedInformation));
    EXPECT_EQ(L"less", Text(c.pszExpandedControlText));
    EXPECT_EQ(L"#7", Text(c.pszCollapsedControlText));
    EXPECT_EQ(static_cast<DWORD>(TDF_EXPAND_FOOTER_AREA), c.dwFlags);

    // One form clears the other; a null text is a null field. The
    // formatted expanded information leaves the footer flag alone.
    dialog.WithWindowTitle(L"own title").WithContent(nullptr).WithMainInstruction(9u);
    dialog.WithExpandedInformationFmt(L"%d lines", 3);
    dialog.Show();
    EXPECT_EQ(L"own title", Text(platform.config.pszWindowTitle));
    EXPECT_EQ(nullptr, platform.config.pszContent);
    EXPECT_EQ(L"#9", Text(platform.config.pszMainInstruction));
    EXPECT_EQ(L"3 lines", Text(platform.config.pszExpandedInformation));
    EXPECT_EQ(static_cast<DWORD>(TDF_EXPAND_FOOTER_AREA), platform.config.dwFlags);
    dialog.WithExpandedInformation(L"x", FALSE);
    EXPECT_EQ(0u, dialog.GetConfig().dwFlags);
}

TEST(TaskDialogConfig, ButtonsRadiosAndTheResultsAskedFor) {
    TaskDialogInterceptor platform;
    CTaskDialog dialog(Exe());
    dialog.AddButton(101, L"First").AddButton(102, IDS_BUTTON);
    dialog.AddRadioButton(201, IDS_RADIO).AddRadioButton(202, L"Second radio");
    dialog.WithCommonButtons(TDCBF_OK_BUTTON | TDCBF_CANCEL_BUTTON)
        .WithDefaultButton(102)
        .WithDefaultRadioButton(202)
        .WithFixedWidth(180);
    platform.pressed = 102;
    platform.radio = 202;
    platform.verification = TRUE;
    int radio = 0;
    BOOL verification = FALSE;
    EXPECT_EQ(102, dialog.Show(nullptr, &radio, &verification));
    EXPECT_EQ(202, radio);
    EXPECT_TRUE(verification);
    ASSERT_EQ(2u, platform.buttons.size());
    EXPECT_EQ(101, platform.buttons[0].id);
    EXPECT_EQ(L"First", platform.buttons[0].text);
    EXPECT_EQ(L"Button from a resource", platform.buttons[1].text);
    ASSERT_EQ(2u, platform.radioButtons.size());
    EXPECT_EQ(L"Radio from a resource", platform.radioButtons[0].text);
    EXPECT_EQ(202, platform.radioButtons[1].id);
    const TASKDIALOGCONFIG& c = platform.config;
    EXPECT_EQ(static_cast<TASKDIALOG_COMMON_BUTTON_FLAGS>(TDCBF_OK_BUTTON | TDCBF_CANCEL_BUTTON), c.dwCommonButtons);
    EXPECT_EQ(102, c.nDefaultButton);
    EXPECT_EQ(202, c.nDefaultRadioButton);
    EXPECT_EQ(180u, c.cxWidth);
    // The arrays lived only for the call.
    EXPECT_EQ(nullptr, dialog.GetConfig().pButtons);
    EXPECT_EQ(nullptr, dialog.GetConfig().pRadioButtons);

    EXPECT_THROW(dialog.AddButton(103, 4242u), CResourceNotFoundException);
}

TEST(TaskDialogConfig, FlagRules) {
    CTaskDialog dialog;
    // A packed field: read it anew each time rather than bind a reference.
    auto flags = [&dialog] { return dialog.GetConfig().dwFlags; };
    dialog.WithMarqueeProgressBar(TRUE).WithProgressBar(TRUE);
    EXPECT_EQ(static_cast<DWORD>(TDF_SHOW_PROGRESS_BAR), flags());
    dialog.WithProgressBar(FALSE);
    EXPECT_EQ(0u, flags());
    dialog.WithProgressBar(TRUE).WithMarqueeProgressBar(TRUE);
    EXPECT_EQ(static_cast<DWORD>(TDF_SHOW_MARQUEE_PROGRESS_BAR), flags());
    dialog.WithMarqueeProgressBar(FALSE);

    dialog.WithVerificationText(L"Don't ask again", TRUE);
    EXPECT_EQ(static_cast<DWORD>(TDF_VERIFICATION_FLAG_CHECKED), flags());
    dialog.WithVerificationText(static_cast<const wchar_t*>(nullptr), TRUE);
    EXPECT_EQ(0u, flags());
    EXPECT_EQ(nullptr, dialog.GetConfig().pszVerificationText);

    // The standard-icon form leaves the HICON flag as it was.
    HICON icon = ::LoadIconW(nullptr, IDI_INFORMATION);
    dialog.WithIcon(icon);
    EXPECT_EQ(static_cast<DWORD>(TDF_USE_HICON_MAIN), flags());
    EXPECT_EQ(icon, dialog.GetConfig().hMainIcon);
    dialog.WithIcon(CTaskDialog::ErrorIcon);
    EXPECT_EQ(static_cast<DWORD>(TDF_USE_HICON_MAIN), flags());
    EXPECT_EQ(TD_ERROR_ICON, dialog.GetConfig().pszMainIcon);
    dialog.WithIcon(5u);
    EXPECT_EQ(0u, flags());
    dialog.WithFooterIcon(icon).WithFooterIcon(CTaskDialog::ShieldIcon);
    EXPECT_EQ(static_cast<DWORD>(TDF_USE_HICON_FOOTER), flags());
    EXPECT_EQ(TD_SHIELD_ICON, dialog.GetConfig().pszFooterIcon);
    dialog.WithFooterIcon(3u);
    EXPECT_EQ(0u, flags());

    struct Flag {
        CTaskDialog& (CTaskDialog::*set)(BOOL);
        DWORD bit;
    };
    const Flag table[] = {
        {&CTaskDialog::WithHyperLinks, TDF_ENABLE_HYPERLINKS},
        {&CTaskDialog::AllowCancellation, TDF_ALLOW_DIALOG_CANCELLATION},
        {&CTaskDialog::WithCommandLinks, TDF_USE_COMMAND_LINKS},
        {&CTaskDialog::WithCommandLinksNoIcon, TDF_USE_COMMAND_LINKS_NO_ICON},
        {&CTaskDialog::WithExpandFooterArea, TDF_EXPAND_FOOTER_AREA},
        {&CTaskDialog::WithExpandByDefault, TDF_EXPANDED_BY_DEFAULT},
        {&CTaskDialog::WithRelativePlacement, TDF_POSITION_RELATIVE_TO_WINDOW},
        {&CTaskDialog::WithRtlLayout, TDF_RTL_LAYOUT},
        {&CTaskDialog::WithNoDefaultRadioButton, TDF_NO_DEFAULT_RADIO_BUTTON},
        {&CTaskDialog::WithCanBeMinimized, TDF_CAN_BE_MINIMIZED},
        {&CTaskDialog::WithSizeToContent, TDF_SIZE_TO_CONTENT},
    };
    for (const Flag& f : table) {
        (dialog.*f.set)(TRUE);
        EXPECT_EQ(f.bit, flags());
        (dialog.*f.set)(FALSE);
        EXPECT_EQ(0u, flags());
    }
}

TEST(TaskDialogConfig, AFailureIsMinusOne) {
    TaskDialogInterceptor platform;
    CTaskDialog dialog;
    platform.result = E_INVALIDARG;
    platform.pressed = IDOK;
    EXPECT_EQ(-1, dialog.Show());
}

namespace {

// Records the notifications it sees and what the dialog looked like.
class Recorder : public ITaskDialogNotificationHandler {
public:
    std::vector<std::string> events;
    HWND constructedHwnd = nullptr;
    HWND destroyedHwnd = nullptr;
    int keepOpen = 0;
    std::function<void(CTaskDialog&)> created;

    int OnButtonClicked(CTaskDialog& d, int id) override {
        events.push_back("button " + std::to_string(id));
        if (keepOpen > 0) {
            --keepOpen;
            return 1;
        }
        return 0;
    }
    void OnCreated(CTaskDialog& d) override {
        events.push_back("created");
        if (created) created(d);
    }
    void OnDestroyed(CTaskDialog& d) override {
        events.push_back("destroyed");
        destroyedHwnd = d.GetHwnd();
    }
    void OnDialogConstructed(CTaskDialog& d) override {
        events.push_back("constructed");
        constructedHwnd = d.GetHwnd();
    }
    void OnRadioButtonClicked(CTaskDialog&, int id) override { events.push_back("radio " + std::to_string(id)); }
    void OnVerificationClicked(CTaskDialog&, BOOL checked) override {
        events.push_back(checked ? "verification on" : "verification off");
    }
};

}  // namespace

TEST(TaskDialogShown, NotificationOrderResultsAndAButtonThatKeepsTheDialogOpen) {
    Watchdog watchdog;
    Recorder recorder;
    CTaskDialog dialog;
    dialog.WithWindowTitle(L"Order")
        .WithContent(L"Pick one")
        .AddButton(101, L"Go")
        .AddRadioButton(201, L"One")
        .AddRadioButton(202, L"Two")
        .WithVerificationText(L"Remember", FALSE)
        .WithCallbackHandler(&recorder);
    std::unique_ptr<Testing::Script> script;
    recorder.keepOpen = 1;
    // The platform finishes its own set-up after TDN_CREATED: act later.
    recorder.created = [&](CTaskDialog& d) {
        script = std::make_unique<Testing::Script>(std::vector<std::function<bool()>>{
            [&] { d.ClickRadioButton(202); return true; },
            [&] { d.ClickVerification(TRUE, FALSE); return true; },
            [&] { d.ClickButton(101); return true; },  // kept open
            [&] { d.ClickButton(101); return true; },
        });
    };
    int radio = 0;
    BOOL verification = FALSE;
    EXPECT_EQ(101, dialog.Show(nullptr, &radio, &verification));
    EXPECT_EQ(202, radio);
    EXPECT_TRUE(verification);
    ASSERT_GE(recorder.events.size(), 6u);
    EXPECT_EQ("constructed", recorder.events.front());
    EXPECT_EQ("destroyed", recorder.events.back());
    const std::vector<std::string> expectedTail = {"radio 202", "verification on", "button 101", "button 101",
                                                   "destroyed"};
    EXPECT_EQ(expectedTail,
              std::vector<std::string>(recorder.events.end() - 5, recorder.events.end()));
    // Attached before TDN_DIALOG_CONSTRUCTED's handler, detached after
    // TDN_DESTROYED's.
    EXPECT_NE(nullptr, recorder.constructedHwnd);
    EXPECT_EQ(recorder.constructedHwnd, recorder.destroyedHwnd);
    EXPECT_EQ(nullptr, dialog.GetHwnd());
}

namespace {

// A task dialog that handles its own notifications and changes what it
// shows while up.
class LiveDialog : public CTaskDialog {
public:
    std::wstring contentSeen, footerSeen;
    int progressPos = -1, previousState = -1;
    std::pair<WORD, WORD> previousRange = {0, 0};
    BOOL buttonEnabled = TRUE;
    std::unique_ptr<Testing::Script> script;

    void OnCreated(CTaskDialog&) override {
        script = std::make_unique<Testing::Script>(std::vector<std::function<bool()>>{
            [this] {
                SetElementText(ContentElement, L"changed content");
                UpdateElementText(FooterElement, L"new footer");
                previousRange = SetProgressBarRange(0, 50);
                SetProgressBarPos(20);
                previousState = SetProgressBarState(ProgressError);
                EnableButton(101, FALSE);
                UpdateIcon(MainIconElement, InformationIcon);
                return true;
            },
            [this] {
                HWND hwnd = GetHwnd();
                contentSeen = Testing::FindDescendant(hwnd, nullptr, L"changed content") ? L"changed content" : L"";
                footerSeen = Testing::FindDescendant(hwnd, nullptr, L"new footer") ? L"new footer" : L"";
                HWND progress = Testing::FindDescendant(hwnd, PROGRESS_CLASSW);
                progressPos = static_cast<int>(::SendMessageW(progress, PBM_GETPOS, 0, 0));
                buttonEnabled = ::IsWindowEnabled(Testing::FindDescendant(hwnd, nullptr, L"Disabled"));
                ClickButton(IDCANCEL);
                return true;
            },
        });
    }
};

}  // namespace

TEST(TaskDialogShown, LiveOperationsChangeWhatTheDialogShows) {
    Watchdog watchdog;
    LiveDialog dialog;
    dialog.WithWindowTitle(L"Live")
        .WithContent(L"original content")
        .WithFooter(L"old footer")
        .WithProgressBar(TRUE)
        .AddButton(101, L"Disabled")
        .WithCommonButtons(TDCBF_CANCEL_BUTTON);
    EXPECT_EQ(IDCANCEL, dialog.Show());
    EXPECT_EQ(L"changed content", dialog.contentSeen);
    EXPECT_EQ(L"new footer", dialog.footerSeen);
    EXPECT_EQ(0, dialog.previousRange.first);
    EXPECT_EQ(100, dialog.previousRange.second);
    EXPECT_EQ(20, dialog.progressPos);
    // The bar answers with its previous state. Wine's progress bar keeps
    // no state (it always reports PBST_NORMAL), so the new one is not read
    // back here.
    EXPECT_EQ(PBST_NORMAL, dialog.previousState);
    EXPECT_FALSE(dialog.buttonEnabled);

    // Outside Show the live operations reach no window and do nothing.
    dialog.ClickButton(IDOK);
    dialog.SetProgressBarPos(3);
    EXPECT_EQ(nullptr, dialog.GetHwnd());
}

TEST(TaskDialogShown, AnInvalidConfigurationIsMinusOne) {
    CTaskDialog dialog;
    dialog.GetConfig().cbSize = 0;
    EXPECT_EQ(-1, dialog.Show());
}
