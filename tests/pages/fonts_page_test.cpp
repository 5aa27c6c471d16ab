// The Fonts page on a seeded registry: values outside the lists, the mode, edits through the font
// dialog and the colour picker and the reset of font heights, read back from the registry.
#include "common/dialog_answer.h"
#include "dialogs/colour_picker.h"
#include "page_fixture.h"
#include "program_ids.h"
#include "string_ids.h"

namespace {

enum { kSize = 1, kTitleSize = 3, kAdvanced = 4, kFace = 6, kShadow = 8, kEdit = 10, kList = 11, kReset = 12 };
const int kFontsPage = 7;

bool Has(const wchar_t* name, DWORD value) { return RegHasDword(HKEY_CURRENT_USER, kFontsPath, name, value); }

class FontsPage : public PageFixture {
protected:
    std::wstring Title(int section) {
        wchar_t text[64] = L"";
        TCITEMW item = {TCIF_TEXT, 0, 0, text, 64};
        SendMessageW(page_->sectionTabs(), TCM_GETITEMW, section, reinterpret_cast<LPARAM>(&item));
        return text;
    }
    void PickRow(int row) {  // on the second section, as a tap does
        if (page_->CurrentSection() != 1) ShowSection(1);
        ListView_SetItemState(Control(kList), -1, 0, LVIS_SELECTED);
        if (row >= 0) ListView_SetItemState(Control(kList), row, LVIS_SELECTED, LVIS_SELECTED);
        ListView_SetSelectionMark(Control(kList), row);
    }
    // Presses Edit while `steps` play in the dialog it opens (the font dialog, or the picker).
    void Edit(const wchar_t* title, std::initializer_list<std::function<bool(HWND)>> steps) {
        HWND dialog = nullptr;
        ModalScript script;
        script.Then([&] { return (dialog = ModalScript::FindDialog(title)) != nullptr; });
        for (const auto& step : steps) script.Then([&dialog, step] { return step(dialog); });
        script.Play([&] { SendMessageW(Control(kEdit), BM_CLICK, 0, 0); });
    }
};

auto Press(int command) {
    return [command](HWND dialog) { return PostMessageW(dialog, WM_COMMAND, command, 0) != 0; };
}
// The same in the picker the font dialog opened, once it is up.
auto InPicker(int command) {
    return [command](HWND) {
        HWND picker = ModalScript::FindDialog(L"Color");
        return picker && Press(command)(picker);
    };
}
bool ClickFocused(HWND) { return SendMessageW(GetFocus(), BM_CLICK, 0, 0), true; }

TEST_F(FontsPage, ValuesOutsideTheListsAreStoredAsTheirIndexAndSeededValuesRoundTrip) {
    PutDwords(kFontsPath, {{L"FontGnrlSize", 31}, {L"FontGnrlTitlesSize", 30}, {L"UseShadowColor", 5}});
    RegPutString(HKEY_CURRENT_USER, kFontsPath, L"FontFaceToUse", L"No Such Face");
    RegPutDword(HKEY_CURRENT_USER, kFontsPath, L"FontCalTaskslfColor", 0xAB00FF00);  // stray high byte
    RegPutRaw(HKEY_CURRENT_USER, kFontsPath, L"FontGenerallfWeight", REG_BINARY, "\x01", 1);
    Open(kFontsPage);
    EXPECT_EQ(Selected(kSize) + Selected(kFace) + Selected(kShadow), -3) << "nothing selected";
    EXPECT_EQ(Selected(kTitleSize), 20);
    EXPECT_EQ(Title(1), L"Colors");
    Click(kAdvanced);
    EXPECT_EQ(Title(1), L"Fonts") << "follows the mode at once";
    EXPECT_FALSE(Enabled(kSize) || Enabled(kTitleSize));
    EXPECT_TRUE(Enabled(kReset));
    ShowEverySectionCloseAndSave();
    EXPECT_TRUE(Has(L"FontGnrlSize", 9)) << "no selection + 10";
    EXPECT_TRUE(Has(L"UseShadowColor", 0xFFFFFFFF));
    EXPECT_TRUE(Has(L"FontGnrlUseAdvncd", 1));
    EXPECT_REG_STRING(HKEY_CURRENT_USER, kFontsPath, L"FontFaceToUse", L"");
    EXPECT_TRUE(Has(L"FontCalTaskslfColor", 0xAB00FF00)) << "untouched";
    EXPECT_EQ(RegValueCountTree(HKEY_CURRENT_USER, kProductPath), 7u) << "five stored, two seeded";

    RemoveProductKeys();
    PutDwords(kFontsPath, {{L"FontGnrlSize", 18}, {L"FontGnrlTitlesSize", 10}, {L"FontGnrlUseAdvncd", 1},
                           {L"UseShadowColor", 4}, {L"ForceClearType", 1}, {L"FontSEFilter4lfHeight", 17}});
    RegPutString(HKEY_CURRENT_USER, kFontsPath, L"FontFaceToUse", L"Marlett");
    Open(kFontsPage);
    EXPECT_EQ(SelectedEntry(kFace), L"Marlett");
    Close();
    EXPECT_TRUE(RoundTripKeeps(kFontsPage));
}

TEST_F(FontsPage, EditsGoThroughTheDialogOfTheModeAndAColourSetThereSurvivesCancel) {
    PutDwords(kFontsPath, {{L"FontGnrlUseAdvncd", 1}, {L"FontCalTaskslfColor", RGB(1, 2, 3)}});
    Open(kFontsPage);
    PickRow(22);  // contact items, listed before contact titles
    Edit(L"Font", {[](HWND font) { return SendDlgItemMessageW(font, IDC_FONT_BOLD, BM_CLICK, 0, 0), true; },
                   [](HWND font) {
                       return PostMessageW(font, WM_COMMAND, MAKEWPARAM(IDC_FONT_SET_COLOR, BN_CLICKED),
                                           reinterpret_cast<LPARAM>(GetDlgItem(font, IDC_FONT_SET_COLOR))) != 0;
                   },
                   InPicker(kPickerFirstTabCommand + 2), ClickFocused, InPicker(IDOK),  // palette colour 0
                   [](HWND font) { return !ModalScript::FindDialog(L"Color") && Press(IDCANCEL)(font); }});
    Click(kAdvanced);  // simple mode: the picker only
    PickRow(1);
    Edit(L"Color", {Press(kPickerCancelCommand)});
    EXPECT_TRUE(Has(L"FontCalTaskslfColor", RGB(1, 2, 3)));
    Edit(L"Color", {Press(kPickerDefaultButton), Press(IDOK)});
    Close();
    SaveSettings();
    EXPECT_TRUE(Has(L"FontContactItemslfColor", 0x00FFFFFF)) << "#FFFFFF set in the cancelled font dialog";
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kFontsPath, L"FontContactItemslfWeight") << "Bold cancelled";
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kFontsPath, L"FontCalTaskslfColor") << "Default: no colour of its own";
    EXPECT_EQ(RegValueCount(HKEY_CURRENT_USER, kFontsPath), 1u) << "nothing else";
}

TEST_F(FontsPage, ResetGivesTheGeneralHeightToEveryFontButTheContactFonts) {
    PutDwords(kFontsPath, {{L"FontGenerallfHeight", 20}, {L"FontContactItemslfHeight", 11},
                           {L"FontContactTitleslfHeight", 13}, {L"FontSEGroupingTtlslfHeight", 15}});
    Open(kFontsPage);
    DialogAnswerer no(IDNO);
    SendMessageW(page_->window(), WM_COMMAND, IDM_RESET_FONT_HEIGHTS, 0);
    ASSERT_TRUE(no.Wait());
    EXPECT_TRUE(DirtySettings(g_settings).empty()) << "No changes nothing";
    DialogAnswerer yes(IDYES);
    SendMessageW(page_->window(), WM_COMMAND, IDM_RESET_FONT_HEIGHTS, 0);
    ASSERT_TRUE(yes.Wait());
    Close();
    SaveSettings();
    for (const wchar_t* base : {L"FontCalTasks", L"FontTskGroupingTtls", L"FontNoteTitles", L"FontMsgsUnread",
                                L"FontSEFilter1", L"FontSEGroupingTtls"})
        EXPECT_TRUE(Has((std::wstring(base) + L"lfHeight").c_str(), 20)) << base;
    EXPECT_TRUE(Has(L"FontContactItemslfHeight", 11) && Has(L"FontContactTitleslfHeight", 13));
    EXPECT_EQ(RegValueCount(HKEY_CURRENT_USER, kFontsPath), 33u) << "30 heights, general's, two contacts'";
}

}  // namespace
