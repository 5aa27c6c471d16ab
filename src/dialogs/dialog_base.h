#pragma once
// The base of every modal dialog: a dialog made from a template built in memory, its messages
// routed to virtual operations, the shell's full-screen set-up, two fonts and a small factory of
// child controls. Controls are created at a placeholder position; `Layout` places them.
#include <windows.h>

#include "platform/shell.h"
#include "support/handles.h"
#include "support/wide_string.h"

class DialogBase {
public:
    DialogBase(HINSTANCE instance, bool fullScreen);
    DialogBase(const DialogBase&) = delete;
    DialogBase& operator=(const DialogBase&) = delete;

    // The virtual operations, in their table order.
    virtual INT_PTR DialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    virtual void CreateMenuBar(HWND window);
    virtual SharedString GetTitle();
    virtual void CreateControls(HWND window);
    virtual void OnPaint(HWND window, HDC dc, const PAINTSTRUCT& paint);
    virtual void Layout(HWND window, int width, int height);
    virtual BOOL OnInitDialog(HWND window);
    virtual void OnHotKey(WPARAM wParam, LPARAM lParam);
    virtual void CreateFonts();
    virtual HWND CreateChild(HWND window, const wchar_t* className, const wchar_t* text, DWORD style,
                             bool bold, int id, DWORD extendedStyle);
    virtual HWND AddEdit(HWND window, const SharedString& text, bool readOnly);
    virtual HWND AddLabel(HWND window, const wchar_t* text);
    virtual HWND AddList(HWND window, const wchar_t* text, DWORD extraStyle);
    virtual HWND AddButton(HWND window, const wchar_t* text, int id, DWORD style, bool bold);
    virtual HWND AddComboBox(HWND window, int id, DWORD style);
    virtual ~DialogBase();

    HINSTANCE instance() const { return instance_; }
    bool fullScreen() const { return fullScreen_; }
    HFONT normalFont() const { return normalFont_.get(); }
    HFONT boldFont() const { return boldFont_.get(); }
    const SHACTIVATEINFO& activateInfo() const { return activateInfo_; }

    // Styles of the factory's controls.
    static const DWORD kEditStyle = 0x50810080;   // child, visible, border, tab stop, auto scroll
    static const DWORD kLabelStyle = 0x50000002;  // child, visible, right-aligned
    static const DWORD kListStyle = 0x5081C105;   // child, visible, border, tab stop, report view,
                                                  // single selection, no header, auto arrange
    // SHInitDialog flags: Done button, full screen, input panel down; or the panel only.
    static const DWORD kFullScreenInitFlags = 13;
    static const DWORD kPlainInitFlags = 8;

protected:
    HINSTANCE instance_;
    bool fullScreen_;
    SHACTIVATEINFO activateInfo_;
    Font normalFont_;
    Font boldFont_;
};

// Runs `dialog` modally from an in-memory template; true when it ended with a non-zero result.
bool RunModal(HINSTANCE instance, DialogBase* dialog);
// The same from the dialog template resource `templateId` of `instance`, owned by `owner`.
bool RunModalFromTemplate(HINSTANCE instance, UINT templateId, HWND owner, DialogBase* dialog);
