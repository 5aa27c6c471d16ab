#include "common/dialog_answer.h"
#include "dialogs/colour_picker.h"
#include "page_fixture.h"
#include "program_ids.h"
#include "string_ids.h"

namespace {

enum { kSize = 1, kTitleSize = 3, kAdvanced = 4, kEdit = 10, kList = 11 };
const int kFontsPage = 7;

bool Has(const wchar_t* name, DWORD value) { return RegHasDword(HKEY_CURRENT_USER, kFontsPath, name, value); }

class FontsPage : public PageFixture {
protected:
    void PickRow(int row) {  // on the second section, as a tap does
        if (page_->CurrentSection() != 1) ShowSection(1);
        ListView_SetItemState(Control(kList), -1, 0, LVIS_SELECTED);
        ListView_SetItemState(Control(kList), row, LVIS_SELECTED, LVIS_SELECTED);
        ListView_SetSelectionMark(Control(kList), row);
    }
};

TEST_F(FontsPage, ValuesOutsideTheListsAreStoredAsTheirIndexAndSeededValuesRoundTrip) {
    PutDwords(kFontsPath, {{L"FontGnrlSize", 31}, {L"FontGnrlTitlesSize", 30}, {L"UseShadowColor", 5}});
    RegPutString(HKEY_CURRENT_USER, kFontsPath, L"FontFaceToUse", L"No Such Face");
    RegPutDword(HKEY_CURRENT_USER, kFontsPath, L"FontCalTaskslfColor", 0xAB00FF00);  // stray high byte
    RegPutRaw(HKEY_CURRENT_USER, kFontsPath, L"FontGenerallfWeight", REG_BINARY, "\x01", 1);
    Open(kFontsPage);
    EXPECT_EQ(Selected(kTitleSize), 20);
    Click(kAdvanced);
    EXPECT_FALSE(Enabled(kSize) || Enabled(kTitleSize)) << "follows the mode at once";
    ShowEverySectionCloseAndSave();
    EXPECT_TRUE(Has(L"FontGnrlSize", 9)) << "no selection + 10";
    EXPECT_TRUE(Has(L"UseShadowColor", 0xFFFFFFFF));
    EXPECT_TRUE(Has(L"FontGnrlUseAdvncd", 1));
    EXPECT_REG_STRING(HKEY_CURRENT_USER, kFontsPath, L"FontFaceToUse", L"");
    EXPECT_TRUE(Has(L"FontCalTaskslfColor", 0xAB00FF00)) << "untouched";
    EXPECT_EQ(RegValueCountTree(HKEY_CURRENT_USER, kProductPath), 7u) << "five stored, two seeded";

    RemoveProductKeys();
    PutDwords(kFontsPath, {{L"FontGnrlSize", 18}, {L"FontGnrlUseAdvncd", 1}, {L"UseShadowColor", 4},
                           {L"FontSEFilter4lfHeight", 17}});
    RegPutString(HKEY_CURRENT_USER, kFontsPath, L"FontFaceToUse", L"Marlett");
    EXPECT_TRUE(RoundTripKeeps(kFontsPage));
}

TEST_F(FontsPage, EditsGoThroughTheDialogOfTheModeAColourSetThereSurvivesCancelAndResetSkipsContactFonts) {
    PutDwords(kFontsPath, {{L"FontGnrlUseAdvncd", 1}, {L"FontCalTaskslfColor", RGB(1, 2, 3)},
                           {L"FontGenerallfHeight", 20}, {L"FontContactItemslfHeight", 11},
                           {L"FontContactTitleslfHeight", 13}, {L"FontSEGroupingTtlslfHeight", 15}});
    Open(kFontsPage);
    DialogAnswerer yes(IDYES);
    SendMessageW(page_->window(), WM_COMMAND, IDM_RESET_FONT_HEIGHTS, 0);
    ASSERT_TRUE(yes.Wait());
    PickRow(22);  // contact items, listed before contact titles
    auto bold = [](HWND font) { return SendDlgItemMessageW(font, IDC_FONT_BOLD, BM_CLICK, 0, 0), true; };
    ClickThrough(kEdit, {On(L"Font", bold), On(L"Font", Post(IDC_FONT_SET_COLOR)),
                         On(L"Color", Post(kPickerFirstTabCommand + 2)),  // the palette, its colour 0 focused
                         [] { return SendMessageW(GetFocus(), BM_CLICK, 0, 0), true; }, On(L"Color", Post(IDOK)),
                         [] { return !ModalScript::FindDialog(L"Color") && On(L"Font", Post(IDCANCEL))(); }});
    Click(kAdvanced);  // simple mode: the picker only
    PickRow(1);
    ClickThrough(kEdit, {On(L"Color", Post(kPickerCancelCommand))});
    EXPECT_TRUE(Has(L"FontCalTaskslfColor", RGB(1, 2, 3)));
    ClickThrough(kEdit, {On(L"Color", Post(kPickerDefaultButton)), On(L"Color", Post(IDOK))});
    CloseAndSave();
    EXPECT_TRUE(Has(L"FontContactItemslfColor", 0x00FFFFFF)) << "#FFFFFF set in the cancelled font dialog";
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kFontsPath, L"FontContactItemslfWeight") << "Bold cancelled";
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kFontsPath, L"FontCalTaskslfColor") << "Default: no colour of its own";
    for (const wchar_t* base : {L"FontCalTasks", L"FontNoteTitles", L"FontSEGroupingTtls"})
        EXPECT_TRUE(Has((std::wstring(base) + L"lfHeight").c_str(), 20)) << base;
    EXPECT_TRUE(Has(L"FontContactItemslfHeight", 11) && Has(L"FontContactTitleslfHeight", 13));
    EXPECT_EQ(RegValueCount(HKEY_CURRENT_USER, kFontsPath), 34u) << "30 heights, general's, contacts', a colour";
}

}  // namespace
