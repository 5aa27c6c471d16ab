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
        readOnly = AddEdit(window, SharedString(), true);
        edit = AddEdit(window, SharedString(), false);
        button = AddButton(window, L"Go", 1234, WS_CHILD | WS_VISIBLE | BS_PUSHBUTTON, true);
    }
    HWND readOnly = nullptr, edit = nullptr, button = nullptr;
};

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
        LOGFONTW normal = {}, bold = {};
        ModalScript script;
        script.Then([&] {
            HWND dialog = ModalScript::FindDialog(L"Probe");
            if (!dialog) return false;
            GetObjectW(probe.normalFont(), sizeof normal, &normal);
            GetObjectW(probe.boldFont(), sizeof bold, &bold);
            EXPECT_TRUE(FontOf(probe.button) == probe.boldFont() && FontOf(probe.readOnly) == probe.normalFont());
            EXPECT_TRUE(GetWindowLongW(probe.readOnly, GWL_STYLE) & ES_READONLY);
            EXPECT_FALSE(GetWindowLongW(probe.edit, GWL_STYLE) & ES_READONLY);
            GetClientRect(dialog, &client);
            SetFocus(probe.edit);
            SendMessageW(dialog, WM_ACTIVATE, WA_INACTIVE, 0);
            SendMessageW(dialog, WM_ACTIVATE, WA_ACTIVE, 0);
            SendMessageW(dialog, WM_SETTINGCHANGE, SPI_SETSIPINFO, 0);
            seen = probe.activateInfo();
            return EndDialog(dialog, fullScreen ? 0 : 7), true;
        });
        bool result = fullScreen;
        script.Play([&] { result = RunModal(GetModuleHandleW(nullptr), &probe); });
        EXPECT_EQ(result, !fullScreen) << "ended with 7 when plain, 0 when full screen";
        EXPECT_EQ(std::make_tuple(normal.lfHeight, normal.lfWeight, bold.lfWeight),
                  std::make_tuple(LONG(screenScaled12), 100L, 700L))
            << "the fonts are made after the doubling ended";
        EXPECT_EQ(seen.cbSize, kDeviceActivateInfoSize);
        EXPECT_EQ(seen.hwndLastFocus, fullScreen ? probe.edit : nullptr);
        EXPECT_EQ(seen.fActive, fullScreen ? 1u : 0u);
        EXPECT_EQ(client.right >= ScaleForDisplay(200), fullScreen) << "only full screen is sized over the screen";
    }
    EXPECT_EQ(ScaleForDisplay(12), screenScaled12) << "the doubling stays off for the rest of the run";
}

}  // namespace
