#include <tuple>

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
bool Press(HWND window, int command) { return PostMessageW(window, WM_COMMAND, command, 0); }

TEST(FontDialog, WeightAndSizeRules) {
    COLORREF colour = RGB(1, 2, 3);
    struct Case { LONG height, weight; LRESULT sizeShown; bool bold; LONG heightAfter, weightAfter; } cases[] = {
        {10, 400, 0, false, 10, 100},  // 400 is not bold, and unticked is written as 100
        {30, 700, 20, true, 30, 700},
        {9, 700, CB_ERR, true, 9, 700},  // no size shown: OK writes none + 10 - 1
        {31, 701, CB_ERR, false, 9, 100},
    };
    for (const Case& c : cases) {
        LOGFONTW font = {c.height, 0, 0, 0, c.weight, TRUE, FALSE, TRUE};
        EXPECT_TRUE(RunOn(&font, &colour, {[&](HWND dialog) {
            EXPECT_EQ(std::make_tuple(SendDlgItemMessageW(dialog, IDC_FONT_SIZE_COMBO, CB_GETCURSEL, 0, 0),
                                      Ticked(dialog, IDC_FONT_BOLD), Ticked(dialog, IDC_FONT_ITALIC),
                                      Ticked(dialog, IDC_FONT_UNDERLINE), Ticked(dialog, IDC_FONT_STRIKEOUT)),
                      std::make_tuple(c.sizeShown, c.bold, true, false, true))
                << c.height << " " << c.weight;
            SendDlgItemMessageW(dialog, IDC_FONT_UNDERLINE, BM_CLICK, 0, 0);
            SendDlgItemMessageW(dialog, IDC_FONT_STRIKEOUT, BM_CLICK, 0, 0);
            return Press(dialog, IDOK);
        }}));
        EXPECT_EQ(std::make_tuple(font.lfHeight, font.lfWeight, font.lfItalic, font.lfUnderline, font.lfStrikeOut),
                  std::make_tuple(c.heightAfter, c.weightAfter, BYTE(1), BYTE(1), BYTE(0)));
    }
}

TEST(FontDialog, CancelKeepsTheFontButAColourChosenWithSet) {
    LOGFONTW font = {14, 0, 0, 0, 100};
    COLORREF colour = RGB(1, 2, 3);
    auto set = [](HWND dialog) { return Press(dialog, IDC_FONT_SET_COLOR); };
    auto inPicker = [](int command) {
        return [command](HWND) {
            HWND picker = ModalScript::FindDialog(L"Color");
            return picker && Press(picker, command);
        };
    };
    EXPECT_FALSE(RunOn(&font, &colour, {
        [](HWND dialog) { return SendDlgItemMessageW(dialog, IDC_FONT_BOLD, BM_CLICK, 0, 0), true; },
        set, inPicker(kPickerDefaultButton), inPicker(IDOK),
        [&](HWND) { return colour == kNoColour; },  // at once
        set, inPicker(IDCANCEL),
        [&](HWND dialog) { return !ModalScript::FindDialog(L"Color") && Press(dialog, IDCANCEL); },
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
    int multiday = measure(6) - 2 * 13 - 12, timed = measure(5) - 2 * 13 - 12;
    EXPECT_TRUE(multiday > 20 && timed > multiday) << "odd formats show the time as well";
    EXPECT_EQ(std::make_pair(measure(2), measure(1)), std::make_pair(multiday + 2 * 13 + 12, timed + 2 * 13 + 12));
    g_settings.fonts.FontGnrlUseAdvncd.value = 1;
    g_settings.fonts.FontCalApptBusy.font.lfHeight = 40;
    EXPECT_GT(measure(1) - 2 * 13 - 12, timed) << "advanced mode measures in the busy-appointment font";
    DeleteDC(dc);
    if (library) FreeLibrary(library);
}

}  // namespace
