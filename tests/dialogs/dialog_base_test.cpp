// The dialog base on real modal dialogs: what opening one does to the display scaling, the fonts
// and controls it makes, the object kept in the window, the result of the modal run, and the
// shell's activation handling that only full-screen dialogs take part in.
#include <windows.h>
#include <commctrl.h>

#include <string>
#include <vector>

#include "common/test_support.h"
#include "dialogs/dialog_base.h"
#include "modal_script.h"
#include "support/app_state.h"
#include "support/display_scale.h"

namespace {

class ProbeDialog : public DialogBase {
public:
    explicit ProbeDialog(bool fullScreen) : DialogBase(GetModuleHandleW(nullptr), fullScreen) {}

    SharedString GetTitle() override {
        SharedString title;
        title.set(L"Probe");
        return title;
    }

    void CreateControls(HWND window) override {
        SharedString text;
        text.set(L"read only");
        edit = AddEdit(window, text, true);
        plainEdit = AddEdit(window, SharedString(), false);
        label = AddLabel(window, L"Label");
        list = AddList(window, L"", LVS_SHOWSELALWAYS);
        button = AddButton(window, L"Go", 1234, WS_CHILD | WS_VISIBLE | BS_PUSHBUTTON, true);
        combo = AddComboBox(window, 1235, WS_CHILD | WS_VISIBLE | CBS_DROPDOWNLIST);
    }

    INT_PTR DialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_NCDESTROY) sawLastMessage = true;
        return DialogBase::DialogProc(window, message, wParam, lParam);
    }

    HWND edit = nullptr, plainEdit = nullptr, label = nullptr, list = nullptr, button = nullptr, combo = nullptr;
    bool sawLastMessage = false;
};

LOGFONTW FontOf(HFONT font) {
    LOGFONTW description = {};
    GetObjectW(font, sizeof description, &description);
    return description;
}

RECT RectInParent(HWND child) {
    RECT rect;
    GetWindowRect(child, &rect);
    MapWindowPoints(nullptr, GetParent(child), reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

DWORD StyleOf(HWND window) { return static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE)); }

int ScreenScaled(int value) {
    HDC screen = GetDC(nullptr);
    int pixelsPerInch = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return (value * pixelsPerInch + 48) / 96;
}

}  // namespace

TEST(DialogBase, OpeningEndsVgaDoublingAndBuildsFontsAndControls) {
    SetVgaMode(true);
    ASSERT_EQ(ScaleForDisplay(12), 24);
    ASSERT_EQ(ScaleForDisplayY(-2), -4);

    ProbeDialog probe(false);
    bool result = false;
    ModalScript script;
    script.Then([&] {
        HWND dialog = ModalScript::FindDialog(L"Probe");
        if (!dialog) return false;
        EXPECT_EQ(GetWindowLongPtrW(dialog, GWLP_USERDATA), reinterpret_cast<LONG_PTR>(&probe));
        EXPECT_FALSE(g_app.vgaMode);
        EXPECT_EQ(ScaleForDisplay(12), ScreenScaled(12));

        LOGFONTW normal = FontOf(probe.normalFont());
        LOGFONTW bold = FontOf(probe.boldFont());
        EXPECT_EQ(normal.lfHeight, ScreenScaled(12)) << "fonts are made after the VGA flag is cleared";
        EXPECT_EQ(normal.lfWeight, 100);
        EXPECT_EQ(bold.lfWeight, 700);
        EXPECT_STREQ(normal.lfFaceName, L"Tahoma");
        EXPECT_STREQ(bold.lfFaceName, L"Tahoma");

        for (HWND control : {probe.edit, probe.plainEdit, probe.label, probe.list, probe.button, probe.combo}) {
            EXPECT_NE(control, nullptr);
            if (!control) continue;
            EXPECT_EQ(GetParent(control), dialog);
            RECT rect = RectInParent(control);
            EXPECT_EQ(rect.left, 1);
            EXPECT_EQ(rect.top, 1);
            if (control != probe.combo) {  // a combo box keeps its own height
                EXPECT_EQ(rect.right - rect.left, 1);
                EXPECT_EQ(rect.bottom - rect.top, 1);
            }
        }
        EXPECT_EQ(StyleOf(probe.edit) & (ES_READONLY | ES_AUTOHSCROLL | WS_TABSTOP | WS_CHILD | WS_VISIBLE),
                  static_cast<DWORD>(ES_READONLY | ES_AUTOHSCROLL | WS_TABSTOP | WS_CHILD | WS_VISIBLE));
        EXPECT_EQ(StyleOf(probe.plainEdit) & ES_READONLY, 0u);
        EXPECT_EQ(WindowText(probe.edit), L"read only");
        EXPECT_EQ(StyleOf(probe.label) & SS_TYPEMASK, static_cast<DWORD>(SS_RIGHT));
        DWORD listBits = LVS_REPORT | LVS_SINGLESEL | LVS_NOCOLUMNHEADER | LVS_NOSORTHEADER | LVS_AUTOARRANGE |
                         LVS_SHOWSELALWAYS | WS_TABSTOP;
        EXPECT_EQ(StyleOf(probe.list) & listBits, listBits);
        EXPECT_EQ(GetDlgCtrlID(probe.button), 1234);
        EXPECT_EQ(GetDlgCtrlID(probe.combo), 1235);
        EXPECT_EQ(reinterpret_cast<HFONT>(SendMessageW(probe.button, WM_GETFONT, 0, 0)), probe.boldFont());
        EXPECT_EQ(reinterpret_cast<HFONT>(SendMessageW(probe.edit, WM_GETFONT, 0, 0)), probe.normalFont());
        EXPECT_EQ(WindowText(dialog), L"Probe");
        EndDialog(dialog, 7);
        return true;
    });
    script.Play([&] { result = RunModal(GetModuleHandleW(nullptr), &probe); });

    EXPECT_TRUE(result);
    EXPECT_TRUE(probe.sawLastMessage);
    EXPECT_FALSE(g_app.vgaMode) << "the doubling stays off for the rest of the run";
    EXPECT_EQ(ScaleForDisplay(12), ScreenScaled(12));
}

TEST(DialogBase, ZeroResultIsFalseAndEachOpeningMakesFreshFonts) {
    ProbeDialog probe(true);
    HFONT firstFont = nullptr;
    for (INT_PTR ending : {INT_PTR(0), INT_PTR(1)}) {
        bool result = !ending;
        ModalScript script;
        script.Then([&] {
            HWND dialog = ModalScript::FindDialog(L"Probe");
            if (!dialog) return false;
            if (!firstFont) firstFont = probe.normalFont();
            EndDialog(dialog, ending);
            return true;
        });
        script.Play([&] { result = RunModal(GetModuleHandleW(nullptr), &probe); });
        EXPECT_EQ(result, ending != 0);
    }
    LOGFONTW font = {};
    EXPECT_NE(probe.normalFont(), nullptr);
    EXPECT_EQ(GetObjectW(firstFont, sizeof font, &font), 0) << "the first opening's font was deleted";
}

// Full-screen dialogs pass activation and setting changes to the shell, which remembers the
// focused control and the active state; a plain dialog leaves its activate info untouched.
TEST(DialogBase, OnlyFullScreenDialogsHandleActivation) {
    for (bool fullScreen : {true, false}) {
        SCOPED_TRACE(fullScreen ? "full screen" : "plain");
        ProbeDialog probe(fullScreen);
        SHACTIVATEINFO seen = {};
        RECT client = {};
        ModalScript script;
        script.Then([&] {
            HWND dialog = ModalScript::FindDialog(L"Probe");
            if (!dialog) return false;
            GetClientRect(dialog, &client);
            SetFocus(probe.plainEdit);
            SendMessageW(dialog, WM_ACTIVATE, WA_INACTIVE, 0);
            SendMessageW(dialog, WM_ACTIVATE, WA_ACTIVE, 0);
            SendMessageW(dialog, WM_SETTINGCHANGE, SPI_SETSIPINFO, 0);
            seen = probe.activateInfo();
            EndDialog(dialog, 0);
            return true;
        });
        script.Play([&] { RunModal(GetModuleHandleW(nullptr), &probe); });

        EXPECT_EQ(seen.cbSize, kDeviceActivateInfoSize);
        if (fullScreen) {
            EXPECT_EQ(seen.hwndLastFocus, probe.plainEdit);
            EXPECT_EQ(seen.fActive, 1u);
            EXPECT_GE(client.right, ScaleForDisplay(200)) << "sized over the screen";
        } else {
            EXPECT_EQ(seen.hwndLastFocus, nullptr);
            EXPECT_EQ(seen.fActive, 0u);
            EXPECT_LT(client.right, ScaleForDisplay(200)) << "left at the template's size";
        }
    }
}
