#pragma once

// Windows for tests: a CWnd whose handlers are recorded and can be replaced,
// and a plain Win32 window that knows nothing of the library.

#include <windows.h>

#include <functional>
#include <vector>

#include "velkan/app/Wnd.h"

namespace Testing {

class ProbeWnd : public Velkan::CWnd {
public:
    std::vector<UINT> finalMessages;  // messages that reached FinalWndProc
    int paints = 0;
    int creates = 0;
    std::function<void()> onCreate;
    std::function<BOOL(UINT, LPARAM)> onCommand;
    std::function<BOOL(UINT, LPARAM)> onCommandReflect;
    std::function<BOOL(UINT, LPARAM, LRESULT&)> onNotify;
    std::function<BOOL(UINT, LPARAM, LRESULT&)> onNotifyReflect;
    std::function<BOOL(UINT, WPARAM, LPARAM, LRESULT&)> wndProc;

    void SetSubclass(BOOL on) { m_subclass = on; }
    void SetPaintThrough(BOOL on) { m_paintThrough = on; }

protected:
    void OnCreate() override {
        ++creates;
        if (onCreate) onCreate();
    }
    void OnPaint(Velkan::CDC&) override { ++paints; }
    BOOL OnCommand(UINT w, LPARAM l) override { return onCommand ? onCommand(w, l) : FALSE; }
    BOOL OnCommandReflect(UINT w, LPARAM l) override { return onCommandReflect ? onCommandReflect(w, l) : FALSE; }
    BOOL OnNotify(UINT id, LPARAM l, LRESULT& r) override { return onNotify ? onNotify(id, l, r) : FALSE; }
    BOOL OnNotifyReflect(UINT id, LPARAM l, LRESULT& r) override {
        return onNotifyReflect ? onNotifyReflect(id, l, r) : FALSE;
    }
    BOOL WndProc(UINT msg, WPARAM w, LPARAM l, LRESULT& r) override {
        return wndProc ? wndProc(msg, w, l, r) : FALSE;
    }
    LRESULT FinalWndProc(UINT msg, WPARAM w, LPARAM l) override {
        finalMessages.push_back(msg);
        return CWnd::FinalWndProc(msg, w, l);
    }
    using CWnd::OnNotify;
};

// A window of a class registered here with its own procedure, which counts
// the WM_PAINT messages it handles.
HWND CreatePlainWindow(HWND parent = nullptr, DWORD style = WS_OVERLAPPEDWINDOW);
int PlainWindowPaints(HWND hwnd);

// Creates a top-level or child ProbeWnd with a size.
HWND CreateProbe(ProbeWnd& wnd, Velkan::CWnd* parent = nullptr, int cx = 200, int cy = 100);

}  // namespace Testing
