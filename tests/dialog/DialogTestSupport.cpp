#include "DialogTestSupport.h"

#include <cstdint>
#include <cstring>

namespace Testing {

namespace {

TaskDialogInterceptor*& ActiveInterceptor() {
    static TaskDialogInterceptor* active = nullptr;
    return active;
}

}  // namespace

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
