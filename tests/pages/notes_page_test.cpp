#include "dialogs/browser_steps.h"
#include "page_fixture.h"

namespace {

const wchar_t kNotes[] = L"Software\\Orvane\\Quillory\\Notes";
const wchar_t kFolders[] = L"Software\\Orvane\\Quillory\\Notes\\Folders";
enum { kPictures = 12, kLists = 13, kFolderList = 15, kRemove = 16, kAdd = 17 };

class NotesPage : public PageFixture {
protected:
    ScratchFolder a_{L"notes_a"}, b_{L"notes_b"};
};

TEST_F(NotesPage, FoldersAreReadWhateverTheirNamesRenumberedWhenStoredAndAddedOnce) {
    // "12" is a folder not there now, listed after "3" in number order; "4" is no text, "5" a repeat.
    for (const auto& folder : {std::make_pair(L"0", a_.path()), {L"3", b_.path()}, {L"5", a_.path()},
                               {L"12", L"\\Storage Card\\Notes"}, {L"8", L""}})
        RegPutString(HKEY_CURRENT_USER, kFolders, folder.first, folder.second.c_str());
    RegPutDword(HKEY_CURRENT_USER, kFolders, L"4", 7);
    Open(3);
    EXPECT_EQ(ListTexts(Control(kFolderList)), (Texts{a_.path(), b_.path(), L"\\Storage Card\\Notes"}));
    PickItem(Control(kFolderList), 1);
    Click(kRemove);
    ClickThrough(kRemove, {On(L"No Selection", Post(IDOK))});  // nothing is selected any more
    Close();
    EXPECT_REG_STRING(HKEY_CURRENT_USER, kFolders, L"0", a_.path().c_str());
    EXPECT_REG_STRING(HKEY_CURRENT_USER, kFolders, L"1", L"\\Storage Card\\Notes");
    EXPECT_EQ(RegValueCount(HKEY_CURRENT_USER, kFolders), 2u);

    RegRemoveTree(HKEY_CURRENT_USER, kFolders);
    Open(3);
    SetBrowserLastFolder(a_.path().c_str());  // the browser opens there and OK chooses it
    ClickThrough(kAdd, {On(L"Add Notes Folder", Post(IDOK))});
    ClickThrough(kAdd, {On(L"Add Notes Folder", Post(IDOK)), On(L"Add Folder", Post(IDOK))});
    EXPECT_EQ(ListTexts(Control(kFolderList)), Texts{a_.path()}) << "without a closing backslash, once";
}

TEST_F(NotesPage, SeededValuesMakeTheRoundTripAndWithoutTheListsProductItsKindIsStored) {
    RegPutString(HKEY_CURRENT_USER, L"Software\\Orvane\\Jotterly", L"ListsPath", L"\\Lists");
    PutDwords(kNotes, {{L"NotesActiveSearchBar", 6}, {L"NotesPreviewNotesState", 0}, {L"NotesBreakLineStyle", 1},
                       {L"NotesScannedFileTypes", 107}});  // notes, text, lists, recordings
    RegPutString(HKEY_CURRENT_USER, kFolders, L"0", b_.path().c_str());
    RegPutString(HKEY_CURRENT_USER, kFolders, L"1", a_.path().c_str());
    EXPECT_TRUE(RoundTripKeeps(3, L"Software\\Orvane"));

    RegRemoveTree(HKEY_CURRENT_USER, L"Software\\Orvane\\Jotterly");
    RegPutDword(HKEY_CURRENT_USER, kNotes, L"NotesScannedFileTypes", 0);
    Open(3);
    EXPECT_FALSE(Enabled(kLists));
    Click(kPictures);
    ShowEverySectionCloseAndSave();
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kNotes, L"NotesScannedFileTypes", 16 + 128 + 32);
}

}  // namespace
