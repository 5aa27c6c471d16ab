#include "common/test_support.h"
#include "dialogs/colour_picker.h"
#include "modal_script.h"
#include "shell/application.h"
#include "support/app_state.h"

namespace {

class ColourPickerTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        InitCommonControlsForProgram();
        g_app.instance = GetModuleHandleW(nullptr);
        g_app.languageLibrary = LoadLibraryW((TestBinDir() + L"\\QLEngRc.dll").c_str());
    }
    COLORREF Run(COLORREF colour, std::initializer_list<ModalScript::Step> steps) {
        ModalScript script;
        script.Then([this] { return (dialog_ = ModalScript::FindDialog(L"Color")) != nullptr; });
        for (const ModalScript::Step& step : steps) script.Then(step);
        script.Play([&] { PickColour(&colour, true); });
        return colour;
    }
    HWND Item(int id) { return GetDlgItem(dialog_, id); }
    // Palette buttons share ids 1 and 2 with OK and Cancel: found among the owner-drawn buttons.
    HWND Palette(int index) {
        for (HWND child = GetWindow(dialog_, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
            if (GetDlgCtrlID(child) == index && (GetWindowLongW(child, GWL_STYLE) & BS_TYPEMASK) == BS_OWNERDRAW)
                return child;
        return nullptr;
    }
    // The red, green, blue and HTML fields, and with `sliders` the slider positions before them.
    std::wstring Shown(bool sliders = false) {
        std::wstring texts;
        for (int i = 0; sliders && i < 3; ++i)
            texts += std::to_wstring(SendMessageW(Item(kPickerRedSlider + i), TBM_GETPOS, 0, 0)) + L" ";
        for (int id : {kPickerRedField, kPickerRedField + 1, kPickerRedField + 2, kPickerHtmlField})
            texts += L" " + WindowText(Item(id));
        return texts;
    }
    void Drag(int i, int position, int code = TB_THUMBTRACK) {
        SendMessageW(Item(kPickerRedSlider + i), TBM_SETPOS, TRUE, position);
        SendMessageW(dialog_, WM_HSCROLL, MAKEWPARAM(code, position), (LPARAM)Item(kPickerRedSlider + i));
    }
    // Types over a field, then leaves it from the dialog's own loop (a message box may follow).
    bool TypeAndLeave(int field, const wchar_t* text, bool leave = true) {
        SetFocus(Item(field));
        SendMessageW(Item(field), EM_SETSEL, 0, -1);
        SendMessageW(Item(field), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text));
        return !leave || PostMessageW(dialog_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Item(kPickerTabs)), TRUE);
    }
    bool Post(int command) { return PostMessageW(dialog_, WM_COMMAND, command, 0); }
    static bool AnswerRangeMessage() {
        HWND box = ModalScript::FindDialog(L"Invalid value");
        if (box) EXPECT_NE(StaticTexts(box).find(L"Valid values are between 0-255"), std::wstring::npos);
        return box && EndDialog(box, IDOK);
    }
    HWND dialog_ = nullptr;
};

TEST_F(ColourPickerTest, SlidersFieldsAndHtmlAtTheirBoundariesAndThePalette) {
    COLORREF result = Run(RGB(1, 254, 255), {
        [&] {
            EXPECT_EQ(Shown(true), L"0 99 100  1 254 255 01FEFF");
            Drag(0, 1);
            EXPECT_EQ(WindowText(Item(kPickerRedField)), L"2") << "1 x 255 / 100";
            Drag(0, 100), Drag(1, 0), Drag(2, 50, TB_ENDTRACK);  // the end of a drag is not read
            return TypeAndLeave(kPickerRedField + 1, L"256");
        },
        AnswerRangeMessage,
        [&] { return TypeAndLeave(kPickerRedField + 2, L"-1"); },
        AnswerRangeMessage,
        [&] {
            EXPECT_EQ(Shown(), L" 255 0 255 FF00FF") << "both typings undone";
            return TypeAndLeave(kPickerRedField, L"0");  // in range: no message
        },
        [&] { return Post(kPickerFirstTabCommand + 1) && TypeAndLeave(kPickerHtmlField, L"00ff80"); },
        [&] {
            EXPECT_EQ(Shown(true), L"0 100 50  0 255 128 00FF80");
            return TypeAndLeave(kPickerHtmlField, L"C0", false) && Post(IDOK);  // only red can be read
        },
    });
    EXPECT_EQ(result, RGB(0xC0, 0xFF, 0x80));

    EXPECT_EQ(Run(0, {[&] {
        SendMessageW(Palette(1), BM_CLICK, 0, 0);  // chooses a colour, it is not OK
        EXPECT_EQ(Shown(true), L"80 80 100  204 204 255 CCCCFF");
        return SendMessageW(Palette(49), BM_CLICK, 0, 0), Post(IDOK);
    }}), 0x00330033u) << "#330033 as 0x00BBGGRR";
}

}  // namespace
