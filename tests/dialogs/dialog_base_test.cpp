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
    void CreateControls(HWND window) override { edit = AddEdit(window, SharedString(), false); }
    HWND edit = nullptr;
};

TEST(DialogBase, OpeningEndsVgaDoublingMakesFontsAndOnlyFullScreenKeepsTheFocusAndTakesTheScreen) {
    HDC screen = GetDC(nullptr);
    const LONG screenScaled12 = (12 * GetDeviceCaps(screen, LOGPIXELSX) + 48) / 96;
    ReleaseDC(nullptr, screen);
    SetVgaMode(true);
    ASSERT_EQ(ScaleForDisplay(12), 24);
    for (bool fullScreen : {false, true}) {
        SCOPED_TRACE(fullScreen ? "full screen" : "plain");
        ProbeDialog probe(fullScreen);
        RECT client = {};
        LOGFONTW normal = {}, bold = {};
        bool result = fullScreen;
        ModalScript().Then([&] {
            HWND dialog = ModalScript::FindDialog(L"Probe");
            if (!dialog) return false;
            GetObjectW(probe.normalFont(), sizeof normal, &normal);
            GetObjectW(probe.boldFont(), sizeof bold, &bold);
            EXPECT_EQ(SendMessageW(probe.edit, WM_GETFONT, 0, 0), reinterpret_cast<LRESULT>(probe.normalFont()));
            GetClientRect(dialog, &client);
            SetFocus(probe.edit);
            SendMessageW(dialog, WM_ACTIVATE, WA_INACTIVE, 0);
            EXPECT_EQ(probe.activateInfo().hwndLastFocus, fullScreen ? probe.edit : nullptr) << "only full screen";
            return EndDialog(dialog, fullScreen ? 0 : 7), true;
        }).Play([&] { result = RunModal(GetModuleHandleW(nullptr), &probe); });
        EXPECT_EQ(result, !fullScreen) << "ended with 7 when plain, 0 when full screen";
        EXPECT_EQ(std::make_tuple(normal.lfHeight, normal.lfWeight, bold.lfWeight),
                  std::make_tuple(screenScaled12, 100L, 700L))
            << "the fonts are made after the doubling ended";
        EXPECT_EQ(client.right >= ScaleForDisplay(200), fullScreen) << "only full screen is sized over the screen";
    }
}

}  // namespace
