// The dialog base on real modal dialogs: opening one ends the VGA doubling, its fonts and
// controls, the modal result, and the shell's activation handling of full-screen dialogs only.
#include <tuple>

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
        return title.set(L"Probe"), title;
    }
    void CreateControls(HWND window) override {
        SharedString text;
        text.set(L"read only");
        controls = {AddEdit(window, text, true), AddEdit(window, SharedString(), false), AddLabel(window, L"Label"),
                    AddList(window, L"", LVS_SHOWSELALWAYS),
                    AddButton(window, L"Go", 1234, WS_CHILD | WS_VISIBLE | BS_PUSHBUTTON, true)};
        combo = AddComboBox(window, 1235, WS_CHILD | WS_VISIBLE | CBS_DROPDOWNLIST);
    }
    std::vector<HWND> controls;  // read-only edit, edit, label, list, button
    HWND combo = nullptr;
};

DWORD StyleOf(HWND window) { return static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE)); }
HFONT FontOf(HWND window) { return reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0)); }

TEST(DialogBase, OpeningEndsVgaDoublingMakesFontsAndControlsAndOnlyFullScreenTakesActivation) {
    HDC screen = GetDC(nullptr);
    const int screenScaled12 = (12 * GetDeviceCaps(screen, LOGPIXELSX) + 48) / 96;
    ReleaseDC(nullptr, screen);
    SetVgaMode(true);
    ASSERT_EQ(ScaleForDisplay(12), 24);
    for (bool fullScreen : {false, true}) {
        SCOPED_TRACE(fullScreen ? "full screen" : "plain");
        ProbeDialog probe(fullScreen);
        RECT client = {};
        SHACTIVATEINFO seen = {};
        ModalScript script;
        script.Then([&] {
            HWND dialog = ModalScript::FindDialog(L"Probe");
            if (!dialog) return false;
            EXPECT_EQ(GetWindowLongPtrW(dialog, GWLP_USERDATA), reinterpret_cast<LONG_PTR>(&probe));
            LOGFONTW normal = {}, bold = {};
            GetObjectW(probe.normalFont(), sizeof normal, &normal);
            GetObjectW(probe.boldFont(), sizeof bold, &bold);
            EXPECT_EQ(normal.lfHeight, screenScaled12) << "the fonts are made after the doubling ended";
            EXPECT_EQ(normal.lfWeight, 100);
            EXPECT_EQ(bold.lfWeight, 700);
            EXPECT_STREQ(bold.lfFaceName, L"Tahoma");
            for (HWND control : probe.controls) {
                RECT rect;
                GetWindowRect(control, &rect);
                MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&rect), 2);
                EXPECT_EQ(std::make_tuple(rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top),
                          std::make_tuple(1L, 1L, 1L, 1L)) << "made at (1, 1), 1 x 1, for the layout to place";
            }
            DWORD listBits = LVS_REPORT | LVS_SINGLESEL | LVS_NOCOLUMNHEADER | LVS_NOSORTHEADER | LVS_SHOWSELALWAYS;
            DWORD editBits = ES_READONLY | ES_AUTOHSCROLL | WS_TABSTOP;
            EXPECT_EQ(StyleOf(probe.controls[0]) & editBits, editBits);
            EXPECT_EQ(StyleOf(probe.controls[1]) & ES_READONLY, 0u);
            EXPECT_EQ(WindowText(probe.controls[0]), L"read only");
            EXPECT_EQ(StyleOf(probe.controls[2]) & SS_TYPEMASK, static_cast<DWORD>(SS_RIGHT));
            EXPECT_EQ(StyleOf(probe.controls[3]) & listBits, listBits);
            EXPECT_EQ(GetDlgCtrlID(probe.controls[4]), 1234);
            EXPECT_EQ(GetDlgCtrlID(probe.combo), 1235);
            EXPECT_EQ(FontOf(probe.controls[4]), probe.boldFont());
            EXPECT_EQ(FontOf(probe.controls[0]), probe.normalFont());
            GetClientRect(dialog, &client);
            SetFocus(probe.controls[1]);
            SendMessageW(dialog, WM_ACTIVATE, WA_INACTIVE, 0);
            SendMessageW(dialog, WM_ACTIVATE, WA_ACTIVE, 0);
            SendMessageW(dialog, WM_SETTINGCHANGE, SPI_SETSIPINFO, 0);
            seen = probe.activateInfo();
            return EndDialog(dialog, fullScreen ? 0 : 7), true;
        });
        bool result = fullScreen;
        script.Play([&] { result = RunModal(GetModuleHandleW(nullptr), &probe); });
        EXPECT_EQ(result, !fullScreen) << "ended with 7 when plain, 0 when full screen";
        EXPECT_EQ(seen.cbSize, kDeviceActivateInfoSize);
        EXPECT_EQ(seen.hwndLastFocus, fullScreen ? probe.controls[1] : nullptr);
        EXPECT_EQ(seen.fActive, fullScreen ? 1u : 0u);
        EXPECT_EQ(client.right >= ScaleForDisplay(200), fullScreen) << "only full screen is sized over the screen";
    }
    EXPECT_EQ(ScaleForDisplay(12), screenScaled12) << "the doubling stays off for the rest of the run";
}

}  // namespace
