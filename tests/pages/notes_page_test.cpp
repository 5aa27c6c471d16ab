// The Notes page: the folder list kept in Notes\Folders (gaps, other types and repeats read,
// renumbered on storing, a folder refused the second time), the kinds of files scanned with and
// without the lists product, and seeded values making the round trip.
#include "dialogs/browser_steps.h"
#include "page_fixture.h"

namespace {

const wchar_t kNotes[] = L"Software\\Orvane\\Quillory\\Notes";
const wchar_t kFolders[] = L"Software\\Orvane\\Quillory\\Notes\\Folders";
enum { kPictures = 12, kLists = 13, kFolderList = 15, kRemove = 16, kAdd = 17 };

// A step pressing OK on the dialog or message box titled `title` once it is up, keeping its texts.
ModalScript::Step PressOkOn(const wchar_t* title, std::wstring* texts = nullptr) {
    return [=] {
        HWND dialog = ModalScript::FindDialog(title);
        if (dialog && texts) *texts = StaticTexts(dialog);
        return dialog && PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    };
}

class NotesPage : public PageFixture {
protected:
    ScratchFolder a_{L"notes_a"}, b_{L"notes_b"};
    std::wstring message_;
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
    ModalScript().Then(PressOkOn(L"No Selection", &message_)).Play([&] { Click(kRemove); });
    EXPECT_NE(message_, L"") << "nothing is selected any more";
    Close();
    EXPECT_REG_STRING(HKEY_CURRENT_USER, kFolders, L"0", a_.path().c_str());
    EXPECT_REG_STRING(HKEY_CURRENT_USER, kFolders, L"1", L"\\Storage Card\\Notes");
    EXPECT_EQ(RegValueCount(HKEY_CURRENT_USER, kFolders), 2u);

    RegRemoveTree(HKEY_CURRENT_USER, kFolders);
    Open(3);
    SetBrowserLastFolder(a_.path().c_str());  // the browser opens there and OK chooses it
    ModalScript().Then(PressOkOn(L"Add Notes Folder")).Play([&] { Click(kAdd); });
    message_.clear();
    ModalScript().Then(PressOkOn(L"Add Notes Folder")).Then(PressOkOn(L"Add Folder", &message_)).Play([&] {
        Click(kAdd);
    });
    EXPECT_NE(message_, L"");
    EXPECT_EQ(ListTexts(Control(kFolderList)), Texts{a_.path()}) << "without a closing backslash, once";
    Close();
    EXPECT_REG_STRING(HKEY_CURRENT_USER, kFolders, L"0", a_.path().c_str());
}

TEST_F(NotesPage, SeededValuesMakeTheRoundTripAndWithoutTheListsProductItsKindIsStored) {
    RegPutString(HKEY_CURRENT_USER, L"Software\\Orvane\\Jotterly", L"ListsPath", L"\\Lists");
    PutDwords(kNotes, {{L"NotesActiveSearchBar", 6}, {L"NotesPreviewNotesState", 0}, {L"NotesBreakLineStyle", 1},
                       {L"NotesIncldFoldBttns", 0}, {L"NotesIncldCounters", 0},
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
