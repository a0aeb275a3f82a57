// A window of every kind of control, for the tests of its parts.
#pragma once

#include <string>

#include <windows.h>

#include <gtest/gtest.h>

#include "platform/win32/window/Window.h"

namespace kv {

class SmallForm : public Form {
public:
    SmallForm() : Form("Small") { setCancelButton(cancel); }

    PictureBox panel{*this, {"panel", {0, 0, 3000, 3000}}};
    Label label{panel, {"label", {0, 0, 1500, 300}, "A & B"}};
    Label bar{panel, {"bar", {0, 300, 300, 300}, "", Font::Normal, Colour::Highlight}};
    TextBox text{panel, {"text", {0, 600, 1500, 315}}};
    OptionButton first{panel, {"first", {0, 1000, 1500, 255}, "First"}};
    OptionButton second{panel, {"second", {0, 1300, 1500, 255}, "Second"}};
    Line line{panel, {"line", {0, 1600, 1500, 0}, Colour::Shadow}};
    CommandButton ok{*this, {"ok", {3000, 3000, 1095, 375}, "&Do it"}};
    CommandButton cancel{*this, {"cancel", {4200, 3000, 1095, 375}, "Cancel"}};
};

class SmallWindow : public ::testing::Test {
protected:
    SmallWindow() { window_.makeNextPanel(); }

    // A window that has gone asks the thread to end; the next test must not hear of it.
    void TearDown() override {
        MSG message;
        while (PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) {
        }
    }

    HWND nativeOf(const Control& control) const { return window_.handleOf(control); }

    std::string className(const Control& control) const {
        char name[100]{};
        GetClassNameA(nativeOf(control), name, sizeof name);
        return name;
    }

    std::string nativeText(const Control& control) const {
        char text[100]{};
        GetWindowTextA(nativeOf(control), text, sizeof text);
        return text;
    }

    void click(const Control& control) const {
        SendMessageW(GetParent(nativeOf(control)), WM_COMMAND,
                     MAKEWPARAM(GetDlgCtrlID(nativeOf(control)), BN_CLICKED),
                     reinterpret_cast<LPARAM>(nativeOf(control)));
    }

    bool checked(const Control& control) const {
        return SendMessageW(nativeOf(control), BM_GETCHECK, 0, 0) == BST_CHECKED;
    }

    // As the keyboard sends it: once when the key goes down, and again while it is held.
    static void postKey(HWND target, WPARAM key, int repeats = 0) {
        constexpr LPARAM kWasDown = 1 << 30;
        for (int count = 0; count <= repeats; ++count)
            PostMessageW(target, WM_KEYDOWN, key, count == 0 ? 1 : kWasDown | 1);
    }

    void runUntilPostedMessagesAreHandled() {
        PostMessageW(window_.handle(), WM_CLOSE, 0, 0);
        window_.run();
    }

    bool isTabStop(const Control& control) const {
        return (GetWindowLongW(nativeOf(control), GWL_STYLE) & WS_TABSTOP) != 0;
    }

    // The brush with which the control's background is painted.
    HBRUSH brushOf(const Control& control) const {
        const HDC context = GetDC(nativeOf(control));
        const LRESULT brush = SendMessageW(GetParent(nativeOf(control)), WM_CTLCOLORSTATIC,
                                           reinterpret_cast<WPARAM>(context),
                                           reinterpret_cast<LPARAM>(nativeOf(control)));
        ReleaseDC(nativeOf(control), context);
        return reinterpret_cast<HBRUSH>(brush);
    }

    SmallForm form_;
    ComApartment com_;
    Window window_{form_, com_, L"kvSmallWindow", {8300, 5430}};
};

}  // namespace kv
