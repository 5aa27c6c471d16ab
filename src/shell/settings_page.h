#pragma once
// The page framework: every settings page is a SettingsPage shown in a window of its own over the
// main window. The framework builds the section tabs, asks the page for its controls, routes the
// window's messages to the page's virtual operations and lets the page store its values before its
// controls are destroyed. The control factory builds the labelled rows every page is made of.
#include <windows.h>
#include <commctrl.h>

#include "platform/shell.h"
#include "support/wide_string.h"

// An optional object a page owns for its lifetime; deleted when the page window is destroyed.
class PageAuxiliary {
public:
    virtual ~PageAuxiliary() = default;
};

// Private messages an icon marker strip sends to its owner page.
const UINT kMarkerToggledMessage = 1788;
const UINT kMarkerSelectedMessage = 1789;
// Sent by a page to the main window to close it.
const UINT kClosePageMessage = WM_USER + 1;

class SettingsPage {
public:
    SettingsPage();
    SettingsPage(const SettingsPage&) = delete;
    SettingsPage& operator=(const SettingsPage&) = delete;

    // The virtual operations, in the order the framework knows them by.
    virtual int GetSectionCount() = 0;
    virtual UINT GetSectionTitleId(int index) = 0;
    virtual int GetControlCount() = 0;
    virtual void CreateControls(HWND window) = 0;
    virtual void ShowSection(HWND window, int showCommand) = 0;
    virtual void StoreValues(HWND window) = 0;
    virtual LRESULT OnPaint(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    virtual LRESULT OnLButtonDown(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    virtual LRESULT OnDrawItem(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    virtual LRESULT OnMeasureItem(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    virtual LRESULT OnMarkerSelected(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    virtual LRESULT OnMarkerToggled(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    virtual LRESULT OnCommand(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    virtual LRESULT OnMove(HWND window);
    virtual LRESULT OnNotify(HWND window, int control, NMHDR* header);
    virtual ~SettingsPage();

    HWND window() const { return pageWindow_; }
    HWND control(int number) const;
    int controlCount() const { return controlCount_; }
    HWND sectionTabs() const { return sectionTabs_; }
    // The control number of a child window of this page, or -1.
    int ControlNumberOf(HWND child) const;
    // Index of the section tab currently selected, or -1 without tabs.
    int CurrentSection() const;
    // Shows or hides controls first..last (inclusive), skipping those not created.
    void ShowControls(int first, int last, int showCommand) const;
    void EnableControl(int number, bool enabled) const;

    // Window procedure every page window shares.
    static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    friend HWND CreatePageWindow(SettingsPage* page, HWND parent, const wchar_t* className, HINSTANCE instance,
                                 HFONT normalFont, HFONT boldFont);

protected:
    // ---- control factory: positions in page client co-ordinates, sizes for 96 dpi ----------
    void CreateLabel(int number, UINT textId, int x, int y, int width, int height, DWORD style);
    LRESULT CreateEdit(int number, const wchar_t* text, int x, int y, int width, int height);
    void CreateButton(int number, UINT textId, int x, int y, int width, int height);
    void CreateList(int number, const UINT* itemIds, int count, int top);
    static void FitListColumn(HWND list);
    int CreateCheckBox(int number, UINT textId, bool checked, int top);
    int CreateComboRow(int labelNumber, int comboNumber, UINT labelId, const UINT* itemIds, int count, int selection,
                       int top, bool editable);
    int CreatePathRow(int editNumber, int button1Number, int button2Number, const wchar_t* text, int top);
    int CreateLabelledPathRow(int labelNumber, int editNumber, int button1Number, int button2Number, UINT labelId,
                              const wchar_t* text, int top);
    // Three labels each followed by an icon marker strip; strips are created by the caller's factory.
    struct MarkerRow {
        int labelNumber;
        int stripNumber;
        UINT labelId;
    };
    int CreateMarkerRows(const MarkerRow rows[3], HWND (*createStrip)(SettingsPage* page, int stripNumber, HWND parent,
                                                                      int x, int y), int top);

    // Creates a child window into slot `number`, with the page's normal font.
    HWND CreateChild(int number, const wchar_t* className, const wchar_t* text, DWORD style, int x, int y, int width,
                     int height);
    int ClientWidth() const;
    int ClientHeight() const;
    bool IsChecked(int number) const;
    int Selection(int number) const;

    HWND pageWindow_;
    HWND menuBar_;
    HIMAGELIST imageList_;
    WString className_;
    int controlCount_;
    PageAuxiliary* auxiliary_;
    SHACTIVATEINFO activateInfo_;
    HWND* controls_;
    HWND sectionTabs_;
    HFONT normalFont_;
    HFONT boldFont_;
    HINSTANCE instance_;

private:
    void OnCreate(HWND window);
    void OnDestroy();
    void PlaceSectionTabs();
    LRESULT Dispatch(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
};

// Registers the page's window class and creates its window over `parent`'s client area.
HWND CreatePageWindow(SettingsPage* page, HWND parent, const wchar_t* className, HINSTANCE instance,
                      HFONT normalFont, HFONT boldFont);

// Control ids given to page controls: the control number plus this base, so that no control's
// id can be taken for the OK command (id 1).
const int kPageControlIdBase = 0x1000;
