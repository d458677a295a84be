#pragma once

#include <windows.h>
#include <psapi.h>

#include <memory>
#include <vector>

#include <gtest/gtest.h>

namespace Testing {

// Each wrapper is made, used and destroyed many times over, and the
// process's resources must not grow.
//
// Windows counts GDI and USER objects (GetGuiResources) and private bytes,
// and they are compared before and after. Wine 8 reports 0 for all three.
// There the handle tables do the checking: they are filled up to a
// headroom of a few thousand handles first (Wine's GDI table holds about
// 65,500 objects, its USER table about 32,700), so a wrapper that leaks one
// handle a round fails to create its object before the loop ends.
const int kSoakHeadroom = 3000;

// Takes every free handle of one table but the headroom, and gives them
// back when it goes.
template <typename Handle>
class TableFiller {
public:
    template <typename Create>
    TableFiller(Create create, BOOL (*destroy)(Handle), int headroom = kSoakHeadroom) : m_destroy(destroy) {
        if (::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS) != 0) return;  // counted instead
        for (Handle handle; m_handles.size() < 100000 && (handle = create()) != nullptr;) m_handles.push_back(handle);
        for (int i = 0; i < headroom && !m_handles.empty(); ++i) Release();
    }
    ~TableFiller() {
        while (!m_handles.empty()) Release();
    }
    TableFiller(const TableFiller&) = delete;
    TableFiller& operator=(const TableFiller&) = delete;

private:
    void Release() {
        m_destroy(m_handles.back());
        m_handles.pop_back();
    }

    BOOL (*m_destroy)(Handle);
    std::vector<Handle> m_handles;
};

inline BOOL DeleteGdiObject(HGDIOBJ object) {
    return ::DeleteObject(object);
}

inline BOOL DestroyMenuHandle(HMENU menu) {
    return ::DestroyMenu(menu);
}

inline std::unique_ptr<TableFiller<HGDIOBJ>> FillGdiTable(int headroom = kSoakHeadroom) {
    return std::make_unique<TableFiller<HGDIOBJ>>(
        [] { return static_cast<HGDIOBJ>(::CreateSolidBrush(RGB(9, 9, 9))); }, DeleteGdiObject, headroom);
}

// Menus live in the USER table with windows, hooks and accelerators, so
// filling it with menus leaves the headroom for every USER object.
inline std::unique_ptr<TableFiller<HMENU>> FillUserTable(int headroom = kSoakHeadroom) {
    return std::make_unique<TableFiller<HMENU>>([] { return ::CreatePopupMenu(); }, DestroyMenuHandle, headroom);
}

// Wine's server goes down, taking the program with it (exit code 0, which
// reads as a pass), when it is asked for a window while its USER table is
// full. So every round first checks that both tables have more free than a
// round takes at its peak: a leak then fails a round cleanly, whatever the
// round checks itself.
inline bool MarginFree(size_t margin = 24) {
    std::vector<HMENU> menus;
    std::vector<HBRUSH> brushes;
    for (size_t i = 0; i < margin; ++i) {
        if (HMENU menu = ::CreatePopupMenu()) menus.push_back(menu);
        if (HBRUSH brush = ::CreateSolidBrush(0)) brushes.push_back(brush);
    }
    for (HMENU menu : menus) ::DestroyMenu(menu);
    for (HBRUSH brush : brushes) ::DeleteObject(brush);
    return menus.size() == margin && brushes.size() == margin;
}

// Programs run once per DPI and theme; the slow user-interface soaks need
// only one of those runs, the one at 96 DPI with visual styles on.
inline bool SoakedInAnotherRun() {
    wchar_t dpi[8] = {}, themes[8] = {};
    const bool otherDpi = ::GetEnvironmentVariableW(L"VELKAN_TEST_DPI", dpi, 8) != 0 && ::lstrcmpW(dpi, L"96") != 0;
    const bool stylesOff =
        ::GetEnvironmentVariableW(L"VELKAN_TEST_THEMES", themes, 8) != 0 && ::lstrcmpW(themes, L"off") == 0;
    return otherDpi || stylesOff;
}

struct Usage {
    DWORD gdi;
    DWORD user;
    SIZE_T privateBytes;
};

inline Usage MeasureUsage() {
    PROCESS_MEMORY_COUNTERS_EX memory = {};
    memory.cb = sizeof(memory);
    ::GetProcessMemoryInfo(::GetCurrentProcess(), reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&memory),
                           sizeof(memory));
    return {::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS),
            ::GetGuiResources(::GetCurrentProcess(), GR_USEROBJECTS), memory.PrivateUsage};
}

// Runs a round many times after a settling pass; every round must succeed,
// and where the platform counts, the counts must stay flat.
template <typename Round>
void Soak(const char* family, int rounds, Round round) {
    // A first pass settles caches (stock objects, font tables, heaps).
    const int settle = rounds < 1000 ? 20 : 100;
    for (int i = 0; i < settle; ++i) ASSERT_TRUE(round()) << family;
    const Usage before = MeasureUsage();
    for (int i = 0; i < rounds; ++i) ASSERT_TRUE(round()) << family << ", round " << i;
    const Usage after = MeasureUsage();
    if (before.gdi != 0) {
        EXPECT_LE(after.gdi, before.gdi + 8) << family;
    }
    if (before.user != 0) {
        EXPECT_LE(after.user, before.user + 8) << family;
    }
    if (before.privateBytes != 0) {
        EXPECT_LE(after.privateBytes, before.privateBytes + (4u << 20)) << family;
    }
}

// The same for rounds that make windows: each starts only with the margin
// free (see MarginFree).
template <typename Round>
void SoakWindows(const char* family, int rounds, Round round) {
    Soak(family, rounds, [&] { return MarginFree() && round(); });
}

}  // namespace Testing
