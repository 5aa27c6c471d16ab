#include <tuple>

#include "common/test_support.h"
#include "dialogs/alphabet_steps.h"
#include "dialogs/colour_picker.h"
#include "dialogs/dialog_base.h"
#include "dialogs/font_dialog.h"
#include "dialogs/font_preview.h"
#include "program_ids.h"
#include "settings/settings.h"
#include "shell/application.h"
#include "support/app_state.h"
#include "support/display_scale.h"
#include "support/handles.h"

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

    EXPECT_EQ(Run(0, {[&] { return Post(kPickerFirstTabCommand + 2); },
                      [&] {
                          SendMessageW(GetWindow(GetFocus(), GW_HWNDNEXT), BM_CLICK, 0, 0);  // OK's id, not OK
                          EXPECT_EQ(Shown(true), L"80 80 100  204 204 255 CCCCFF");
                          return Post(IDOK);
                      }}),
              0x00FFCCCCu) << "#CCCCFF as 0x00BBGGRR";
}

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
        }).Play([&] { EXPECT_TRUE(RunFontDialog(nullptr, &font, &colour)); });
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

const wchar_t kAlphabets[] = L"Software\\Orvane\\Quillory\\Contacts\\Alphabets";

TEST(AlphabetSelection, NamesPassByTheirFirstDotTOrXAndOkRewritesTheKeyFromTheTickedRows) {
    InitCommonControlsForProgram();
    const std::wstring longest(251, L'W');  // with ".txt", the longest name the file system takes
    AlphabetInstall install({L"Thai.txt", L"Tamil.txt", L"Latvian.txt", L"x.txt", L".txt", L"A.txt", L"Hindi.dat",
                             longest + L".txt"});
    CreateDirectoryW((install.folder + L"\\Folder.txt").c_str(), nullptr);
    RegRemoveTree(HKEY_CURRENT_USER, kAlphabets);
    for (const wchar_t* name : {L"Tamil", L"Gone"}) RegPutDword(HKEY_CURRENT_USER, kAlphabets, name, 1);
    LoadSettings();
    INT_PTR result = 0;
    auto open = [&] { result = RunAlphabetSelection(nullptr, kGreekAlphabet | kLatinAlphabet); };
    Texts ticked, rows = TickAlphabets(open, {L"Thai", longest}, IDOK, &ticked);
    EXPECT_EQ(result, kCustomAlphabet);
    ASSERT_GE(rows.size(), 4u);
    std::sort(rows.begin() + 4, rows.end());  // the custom ones come in the file system's order
    EXPECT_EQ(rows, (Texts{L"Latin", L"Cyrillic", L"Hebrew", L"Greek", L"A", L"Hindi", L"Tamil", L"Thai", longest}));
    EXPECT_EQ(ticked, (Texts{L"Latin", L"Greek", L"Tamil"}));
    for (const std::wstring& name : {std::wstring(L"Thai"), longest})
        EXPECT_REG_DWORD(HKEY_CURRENT_USER, kAlphabets, name.c_str(), 1);
    EXPECT_EQ(RegValueCount(HKEY_CURRENT_USER, kAlphabets), 2u) << "Tamil and Gone are gone";
}

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
