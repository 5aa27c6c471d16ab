#include <tuple>

#include "common/test_support.h"
#include "dialogs/font_dialog.h"
#include "dialogs/font_preview.h"
#include "modal_script.h"
#include "program_ids.h"
#include "settings/settings.h"
#include "support/app_state.h"
#include "support/handles.h"

namespace {

bool Ticked(HWND dialog, int id) { return IsDlgButtonChecked(dialog, id) == BST_CHECKED; }

TEST(FontDialog, WeightAndSizeRules) {
    g_app.instance = GetModuleHandleW(nullptr);
    COLORREF colour = RGB(1, 2, 3);
    struct Case { LONG height, weight; LRESULT sizeShown; bool bold; LONG heightAfter, weightAfter; } cases[] = {
        {10, 400, 0, false, 10, 100},  // 400 is not bold, and unticked is written as 100
        {30, 700, 20, true, 30, 700},
        {9, 700, CB_ERR, true, 9, 700},  // no size shown: OK writes none + 10 - 1
        {31, 701, CB_ERR, false, 9, 100},
    };
    for (const Case& c : cases) {
        LOGFONTW font = {c.height, 0, 0, 0, c.weight, TRUE, FALSE, TRUE};
        bool accepted = false;
        ModalScript().Then([&] {
            HWND dialog = ModalScript::FindDialog(L"Font");
            if (!dialog) return false;
            EXPECT_EQ(std::make_tuple(SendDlgItemMessageW(dialog, IDC_FONT_SIZE_COMBO, CB_GETCURSEL, 0, 0),
                                      Ticked(dialog, IDC_FONT_BOLD), Ticked(dialog, IDC_FONT_ITALIC),
                                      Ticked(dialog, IDC_FONT_UNDERLINE), Ticked(dialog, IDC_FONT_STRIKEOUT)),
                      std::make_tuple(c.sizeShown, c.bold, true, false, true))
                << c.height << " " << c.weight;
            SendDlgItemMessageW(dialog, IDC_FONT_UNDERLINE, BM_CLICK, 0, 0);
            SendDlgItemMessageW(dialog, IDC_FONT_STRIKEOUT, BM_CLICK, 0, 0);
            return PostMessageW(dialog, WM_COMMAND, IDOK, 0) != FALSE;
        }).Play([&] { accepted = RunFontDialog(nullptr, &font, &colour); });
        EXPECT_TRUE(accepted);
        EXPECT_EQ(std::make_tuple(font.lfHeight, font.lfWeight, font.lfItalic, font.lfUnderline, font.lfStrikeOut),
                  std::make_tuple(c.heightAfter, c.weightAfter, BYTE(1), BYTE(1), BYTE(0)));
    }
}

TEST(TimeColumn, TimeTextOfTheFormatPlusTheLargerIconPairIndentAndLeadingRectangleKeptUntilForgotten) {
    LoadSettings();
    CalendarSettings& cal = g_settings.calendar;
    FontsSettings& fonts = g_settings.fonts;
    fonts.FontCalApptBusy.font.lfHeight = 40;
    IntSetting* settings[] = {&cal.ApptDisplayFormat, &fonts.FontGnrlUseAdvncd, &g_settings.general.IndentItems,
                              &cal.LeadingRects, &cal.ApptLeftAlignIcon1, &cal.ApptLeftAlignIcon2,
                              &cal.TaskLeftAlignIcon1, &cal.TaskLeftAlignIcon2};
    struct Case { DWORD values[8]; const wchar_t* text; int added; } cases[] = {
        {{7, 0, 1, 1, 3, 0, 0, 0}, L"", 2 + 13 + 8},  // no time text and no leading rectangle past 6
        {{6, 2, 2, 2, 0, 0, 1, 1}, L"XXMultiday:", 26 + 12},  // neither 2 indents nor means advanced fonts
        {{5, 1, 0, 0, 1, 1, 0, 3}, L"X22:22-Multiday:", 26},
    };
    MemoryDc dc(CreateCompatibleDC(nullptr));
    int kept = TimeColumnWidth(dc.get());
    for (const Case& c : cases) {
        for (int i = 0; i < 8; ++i) settings[i]->value = c.values[i];
        Font font(CreateFontIndirectW(&(c.values[1] == 1 ? fonts.FontCalApptBusy : fonts.FontGeneral).font));
        DcSelection selected(dc.get(), font.get());
        RECT box = {0, 0, 200, 200};
        DrawTextW(dc.get(), c.text, -1, &box, DT_CALCRECT | DT_SINGLELINE | DT_NOPREFIX);
        EXPECT_EQ(TimeColumnWidth(dc.get()), kept) << "kept until forgotten";
        ForgetTimeColumnWidth();
        EXPECT_EQ(kept = TimeColumnWidth(dc.get()), box.right + c.added) << c.values[0];
    }
}

}  // namespace
