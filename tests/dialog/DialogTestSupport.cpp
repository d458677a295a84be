#include "DialogTestSupport.h"

#include <gtest/gtest.h>

#include <cstring>
#include <map>

namespace Testing {

namespace {

std::map<UINT_PTR, ThreadTimer*>& Timers() {
    static std::map<UINT_PTR, ThreadTimer*> timers;
    return timers;
}

TaskDialogInterceptor*& ActiveInterceptor() {
    static TaskDialogInterceptor* active = nullptr;
    return active;
}

}  // namespace

// ---------------------------------------------------------------------------
// Timers

ThreadTimer::ThreadTimer(UINT intervalMs, std::function<void()> tick) : m_tick(std::move(tick)) {
    m_id = ::SetTimer(nullptr, 0, intervalMs, &ThreadTimer::Proc);
    Timers()[m_id] = this;
}

ThreadTimer::~ThreadTimer() {
    ::KillTimer(nullptr, m_id);
    Timers().erase(m_id);
}

void CALLBACK ThreadTimer::Proc(HWND, UINT, UINT_PTR id, DWORD) {
    auto it = Timers().find(id);
    if (it != Timers().end()) it->second->m_tick();
}

Script::Script(std::vector<std::function<bool()>> steps, UINT intervalMs)
    : m_steps(std::move(steps)), m_timer(intervalMs, [this] {
          // A step may enter a nested loop that ticks again: run each once.
          if (Finished()) return;
          const size_t step = m_next;
          m_next = m_steps.size() + 1;
          const bool done = m_steps[step]();
          m_next = done ? step + 1 : step;
      }) {}

Watchdog::Watchdog(UINT timeoutMs)
    : m_timer(timeoutMs, [this] {
          m_fired = true;
          for (HWND dialog : ThreadDialogs()) ::EndDialog(dialog, IDABORT);
      }) {}

Watchdog::~Watchdog() {
    EXPECT_FALSE(m_fired) << "a modal loop did not end by itself; the watchdog ended it";
}

// ---------------------------------------------------------------------------
// Finding windows

namespace {

BOOL CALLBACK CollectDialog(HWND hwnd, LPARAM list) {
    wchar_t name[16] = {};
    ::GetClassNameW(hwnd, name, 16);
    if (std::wcscmp(name, L"#32770") == 0) reinterpret_cast<std::vector<HWND>*>(list)->push_back(hwnd);
    return TRUE;
}

struct DescendantQuery {
    const wchar_t* className;
    const wchar_t* text;
    HWND found;
};

BOOL CALLBACK MatchDescendant(HWND hwnd, LPARAM data) {
    auto* q = reinterpret_cast<DescendantQuery*>(data);
    wchar_t name[64] = {};
    ::GetClassNameW(hwnd, name, 64);
    if (q->className != nullptr && ::lstrcmpiW(name, q->className) != 0) return TRUE;
    if (q->text != nullptr && WindowText(hwnd) != q->text) return TRUE;
    q->found = hwnd;
    return FALSE;
}

}  // namespace

std::vector<HWND> ThreadDialogs() {
    std::vector<HWND> dialogs;
    ::EnumThreadWindows(::GetCurrentThreadId(), &CollectDialog, reinterpret_cast<LPARAM>(&dialogs));
    return dialogs;
}

HWND FindThreadDialog(const wchar_t* title) {
    for (HWND dialog : ThreadDialogs()) {
        if (title == nullptr || WindowText(dialog) == title) return dialog;
    }
    return nullptr;
}

std::wstring WindowText(HWND hwnd) {
    wchar_t text[512] = {};
    ::GetWindowTextW(hwnd, text, 512);
    return text;
}

HWND FindDescendant(HWND parent, const wchar_t* className, const wchar_t* text) {
    DescendantQuery query = {className, text, nullptr};
    ::EnumChildWindows(parent, &MatchDescendant, reinterpret_cast<LPARAM>(&query));
    return query.found;
}

void Pump() {
    MSG msg;
    for (int i = 0; i < 1000 && ::PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE); ++i) {
        ::TranslateMessage(&msg);
        ::DispatchMessageW(&msg);
    }
}

// ---------------------------------------------------------------------------
// The task dialog stand-in

TaskDialogInterceptor::TaskDialogInterceptor() {
    HMODULE comctl = ::LoadLibraryW(L"comctl32.dll");
    m_target = reinterpret_cast<unsigned char*>(::GetProcAddress(comctl, MAKEINTRESOURCEA(345)));
    ActiveInterceptor() = this;
    Patch();
}

TaskDialogInterceptor::~TaskDialogInterceptor() {
    Unpatch();
    ActiveInterceptor() = nullptr;
}

void TaskDialogInterceptor::Patch() {
    if (m_target == nullptr) return;
    unsigned char jump[16] = {};
    const auto to = reinterpret_cast<uintptr_t>(&TaskDialogInterceptor::StandIn);
#if defined(_WIN64)
    // mov rax, imm64; jmp rax
    jump[0] = 0x48;
    jump[1] = 0xB8;
    std::memcpy(jump + 2, &to, 8);
    jump[10] = 0xFF;
    jump[11] = 0xE0;
    m_patchSize = 12;
#else
    // jmp rel32
    const auto rel = static_cast<int32_t>(to - (reinterpret_cast<uintptr_t>(m_target) + 5));
    jump[0] = 0xE9;
    std::memcpy(jump + 1, &rel, 4);
    m_patchSize = 5;
#endif
    DWORD old = 0;
    ::VirtualProtect(m_target, m_patchSize, PAGE_EXECUTE_READWRITE, &old);
    std::memcpy(m_saved, m_target, m_patchSize);
    std::memcpy(m_target, jump, m_patchSize);
    ::VirtualProtect(m_target, m_patchSize, old, &old);
    ::FlushInstructionCache(::GetCurrentProcess(), m_target, m_patchSize);
}

void TaskDialogInterceptor::Unpatch() {
    if (m_target == nullptr || m_patchSize == 0) return;
    DWORD old = 0;
    ::VirtualProtect(m_target, m_patchSize, PAGE_EXECUTE_READWRITE, &old);
    std::memcpy(m_target, m_saved, m_patchSize);
    ::VirtualProtect(m_target, m_patchSize, old, &old);
    ::FlushInstructionCache(::GetCurrentProcess(), m_target, m_patchSize);
    m_patchSize = 0;
}

std::wstring TaskDialogInterceptor::Text(PCWSTR field) {
    if (field == nullptr) return L"(null)";
    if (IS_INTRESOURCE(field)) return L"#" + std::to_wstring(reinterpret_cast<uintptr_t>(field));
    return field;
}

HRESULT WINAPI TaskDialogInterceptor::StandIn(const TASKDIALOGCONFIG* config, int* pressed, int* radio,
                                              BOOL* verification) {
    TaskDialogInterceptor* self = ActiveInterceptor();
    ++self->calls;
    self->config = *config;
    self->buttons.clear();
    self->radioButtons.clear();
    for (UINT i = 0; i < config->cButtons; ++i)
        self->buttons.push_back(Button{config->pButtons[i].nButtonID, Text(config->pButtons[i].pszButtonText)});
    for (UINT i = 0; i < config->cRadioButtons; ++i)
        self->radioButtons.push_back(
            Button{config->pRadioButtons[i].nButtonID, Text(config->pRadioButtons[i].pszButtonText)});
    self->radioRequested = radio != nullptr;
    self->verificationRequested = verification != nullptr;
    if (self->forward) {
        self->Unpatch();
        using Proc = HRESULT(WINAPI*)(const TASKDIALOGCONFIG*, int*, int*, BOOL*);
        const HRESULT hr = reinterpret_cast<Proc>(reinterpret_cast<void*>(self->m_target))(config, pressed, radio,
                                                                                            verification);
        self->Patch();
        return hr;
    }
    if (pressed != nullptr) *pressed = self->pressed;
    if (radio != nullptr) *radio = self->radio;
    if (verification != nullptr) *verification = self->verification;
    return self->result;
}

}  // namespace Testing
