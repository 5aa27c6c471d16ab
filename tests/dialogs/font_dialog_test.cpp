// The font dialog (the program's template 210) driven through its controls: the weight rule, the
// sizes 10 to 30, a colour chosen with "Set" that stays when the dialog is cancelled; and the
// time column width the previews share.
#include "common/test_support.h"
#include "dialogs/colour_picker.h"
#include "dialogs/font_dialog.h"
#include "dialogs/font_preview.h"
#include "modal_script.h"
#include "program_ids.h"
#include "settings/settings.h"
#include "support/app_state.h"

namespace {

// Opens the dialog on the pair while the steps play on it; returns what it returned.
bool RunOn(LOGFONTW* font, COLORREF* colour, std::initializer_list<std::function<bool(HWND)>> steps) {
    g_app.instance = GetModuleHandleW(nullptr);
    HWND dialog = nullptr;
    ModalScript script;
    script.Then([&] { return (dialog = ModalScript::FindDialog(L"Font")) != nullptr; });
    for (const auto& step : steps) script.Then([&dialog, step] { return step(dialog); });
    bool accepted = false;
    script.Play([&] { accepted = RunFontDialog(nullptr, font, colour); });
    return accepted;
}

bool Ticked(HWND dialog, int id) { return IsDlgButtonChecked(dialog, id) == BST_CHECKED; }
LRESULT SizeShown(HWND dialog) { return SendDlgItemMessageW(dialog, IDC_FONT_SIZE_COMBO, CB_GETCURSEL, 0, 0); }

TEST(FontDialog, WeightAndSizeRules) {
    LOGFONTW font = {12, 0, 0, 0, 400, TRUE};
    COLORREF colour = RGB(1, 2, 3);
    EXPECT_TRUE(RunOn(&font, &colour, {[](HWND dialog) {
        EXPECT_FALSE(Ticked(dialog, IDC_FONT_BOLD)) << "400 is not bold";
        EXPECT_TRUE(Ticked(dialog, IDC_FONT_ITALIC));
        EXPECT_EQ(SizeShown(dialog), 2) << "12 in 10..30";
        SendDlgItemMessageW(dialog, IDC_FONT_UNDERLINE, BM_CLICK, 0, 0);
        return PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    }}));
    EXPECT_EQ(font.lfWeight, 100) << "unticked is written as 100";
    EXPECT_EQ(font.lfUnderline, 1);
    EXPECT_EQ(font.lfHeight, 12);

    for (LONG height : {9L, 31L}) {
        font = LOGFONTW{height, 0, 0, 0, 700};
        RunOn(&font, &colour, {[](HWND dialog) {
            EXPECT_EQ(SizeShown(dialog), CB_ERR);
            EXPECT_TRUE(Ticked(dialog, IDC_FONT_BOLD));
            return PostMessageW(dialog, WM_COMMAND, IDOK, 0);
        }});
        EXPECT_EQ(font.lfHeight, 9) << "no size + 10, from " << height;
    }
}

TEST(FontDialog, CancelKeepsTheFontButAColourChosenWithSet) {
    LOGFONTW font = {14, 0, 0, 0, 100};
    COLORREF colour = RGB(1, 2, 3);
    auto set = [](HWND dialog) {
        return PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(IDC_FONT_SET_COLOR, BN_CLICKED),
                            reinterpret_cast<LPARAM>(GetDlgItem(dialog, IDC_FONT_SET_COLOR)));
    };
    auto inPicker = [](int command) {
        return [command](HWND) {
            HWND picker = ModalScript::FindDialog(L"Color");
            if (picker) PostMessageW(picker, WM_COMMAND, command, 0);
            return picker != nullptr;
        };
    };
    EXPECT_FALSE(RunOn(&font, &colour, {
        [](HWND dialog) { return SendDlgItemMessageW(dialog, IDC_FONT_BOLD, BM_CLICK, 0, 0), true; },
        set, inPicker(kPickerDefaultButton), inPicker(IDOK),
        [&](HWND) { return colour == kNoColour; },  // at once
        set, inPicker(IDCANCEL),
        [&](HWND dialog) { return ModalScript::FindDialog(L"Color") == nullptr && PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0); },
    }));
    EXPECT_EQ(font.lfWeight, 100);
    EXPECT_EQ(colour, kNoColour) << "kept through a cancelled picker and a cancelled dialog";
}

TEST(TimeColumn, FollowsTheFormatIconsIndentAndLeadingRectangleOnceMeasured) {
    HMODULE library = nullptr;
    LoadSettings(g_settings, library);
    CalendarSettings& calendar = g_settings.calendar;
    HDC dc = CreateCompatibleDC(nullptr);
    auto measure = [&](DWORD format) {
        calendar.ApptDisplayFormat.value = format;
        ForgetTimeColumnWidth();
        return TimeColumnWidth(dc);
    };
    calendar.LeadingRects.value = 1;
    EXPECT_EQ(measure(7), 2) << "no time text and no leading rectangle past format 6";
    calendar.ApptLeftAlignIcon1.value = calendar.TaskLeftAlignIcon1.value = calendar.TaskLeftAlignIcon2.value = 3;
    g_settings.general.IndentItems.value = 1;
    EXPECT_EQ(TimeColumnWidth(dc), 2) << "kept until forgotten";
    EXPECT_EQ(measure(7), 2 + 2 * 13 + 8) << "the larger icon pair, and the indent";
    g_settings.general.IndentItems.value = 2;  // only 1 indents
    int multiday = measure(2) - 2 * 13 - 12;
    int timed = measure(1) - 2 * 13 - 12;
    EXPECT_GT(multiday, 20);
    EXPECT_GT(timed, multiday) << "odd formats show the time as well";
    g_settings.fonts.FontGnrlUseAdvncd.value = 1;
    g_settings.fonts.FontCalApptBusy.font.lfHeight = 40;
    EXPECT_GT(measure(1) - 2 * 13 - 12, timed) << "advanced mode measures in the busy-appointment font";
    DeleteDC(dc);
    if (library) FreeLibrary(library);
}

}  // namespace
