// The Notes page: the folder list kept in Notes\Folders (gaps, other types and duplicates read,
// renumbered on storing, a folder refused the second time), the kinds of files scanned with and
// without the lists product, and seeded values making the round trip.
#include "dialogs/browser_steps.h"
#include "pages/page_fixture.h"

namespace {

const wchar_t kNotes[] = L"Software\\Orvane\\Quillory\\Notes";
const wchar_t kFolders[] = L"Software\\Orvane\\Quillory\\Notes\\Folders";
const wchar_t kJotterly[] = L"Software\\Orvane\\Jotterly";
enum { kRecordings = 11, kPictures = 12, kLists = 13, kFolderList = 15, kRemove = 16, kAdd = 17 };
using Texts = std::vector<std::wstring>;

// A step pressing OK on the dialog or message box titled `title` once it is up, keeping its texts.
ModalScript::Step PressOkOn(const wchar_t* title, std::wstring* texts = nullptr) {
    return [=] {
        HWND dialog = ModalScript::FindDialog(title);
        if (dialog && texts) *texts = StaticTexts(dialog);
        if (dialog) PostMessageW(dialog, WM_COMMAND, IDOK, 0);
        return dialog != nullptr;
    };
}

class NotesPage : public PageFixture {
protected:
    void Click(int number) { SendMessageW(Control(number), BM_CLICK, 0, 0); }
    ScratchFolder a_{L"notes_a"}, b_{L"notes_b"};
};

TEST_F(NotesPage, FoldersAreReadWhateverTheirNamesAndRenumberedWhenStored) {
    RegPutString(HKEY_CURRENT_USER, kFolders, L"0", a_.path().c_str());
    RegPutString(HKEY_CURRENT_USER, kFolders, L"3", b_.path().c_str());
    RegPutDword(HKEY_CURRENT_USER, kFolders, L"4", 7);
    RegPutString(HKEY_CURRENT_USER, kFolders, L"5", a_.path().c_str());
    RegPutString(HKEY_CURRENT_USER, kFolders, L"12", L"\\Storage Card\\Notes");  // not there now
    RegPutString(HKEY_CURRENT_USER, kFolders, L"8", L"");
    Open(3);
    HWND list = Control(kFolderList);
    EXPECT_EQ(ListTexts(list), (Texts{a_.path(), b_.path(), L"\\Storage Card\\Notes"}));
    PickItem(list, 1);
    Click(kRemove);
    std::wstring message;
    ModalScript().Then(PressOkOn(L"No Selection", &message)).Play([&] { Click(kRemove); });
    EXPECT_NE(message, L"") << "nothing is selected any more";
    Close();
    EXPECT_REG_STRING(HKEY_CURRENT_USER, kFolders, L"0", a_.path().c_str());
    EXPECT_REG_STRING(HKEY_CURRENT_USER, kFolders, L"1", L"\\Storage Card\\Notes");
    EXPECT_EQ(RegValueCount(HKEY_CURRENT_USER, kFolders), 2u);
}

TEST_F(NotesPage, AChosenFolderLosesItsBackslashAndIsRefusedTheSecondTime) {
    Open(3);
    SetBrowserLastFolder(a_.path().c_str());  // the browser opens there and OK chooses it
    ModalScript().Then(PressOkOn(L"Add Notes Folder")).Play([&] { Click(kAdd); });
    std::wstring refusal;
    ModalScript().Then(PressOkOn(L"Add Notes Folder")).Then(PressOkOn(L"Add Folder", &refusal)).Play([&] {
        Click(kAdd);
    });
    EXPECT_NE(refusal, L"");
    EXPECT_EQ(ListTexts(Control(kFolderList)), Texts{a_.path()});
    Close();
    EXPECT_REG_STRING(HKEY_CURRENT_USER, kFolders, L"0", a_.path().c_str());
}

TEST_F(NotesPage, WithoutTheListsProductItsKindIsAlwaysStored) {
    RegPutDword(HKEY_CURRENT_USER, kNotes, L"NotesScannedFileTypes", 0);
    Open(3);
    EXPECT_FALSE(Enabled(kLists));
    Click(kRecordings);
    ShowEverySectionCloseAndSave();
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kNotes, L"NotesScannedFileTypes", 8 + 64 + 32);

    RegPutString(HKEY_CURRENT_USER, kJotterly, L"ListsPath", L"\\Lists");
    RegPutDword(HKEY_CURRENT_USER, kNotes, L"NotesScannedFileTypes", 255);
    Open(3);
    EXPECT_TRUE(Enabled(kLists));
    Click(kLists);
    Click(kPictures);
    ShowEverySectionCloseAndSave();
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kNotes, L"NotesScannedFileTypes", 1 + 2 + 4 + 8 + 64);
}

TEST_F(NotesPage, SeededValuesMakeTheRoundTrip) {
    RegPutString(HKEY_CURRENT_USER, kJotterly, L"ListsPath", L"\\Lists");
    const wchar_t* names[] = {L"NotesActiveSearchBar", L"NotesPreviewNotesState", L"NotesBreakLineStyle",
                              L"NotesIncldFoldBttns", L"NotesIncldCounters", L"NotesScannedFileTypes"};
    const DWORD values[] = {6, 0, 1, 0, 0, 1 + 2 + 32 + 8 + 64};
    for (int i = 0; i < 6; ++i) RegPutDword(HKEY_CURRENT_USER, kNotes, names[i], values[i]);
    RegPutString(HKEY_CURRENT_USER, kFolders, L"0", b_.path().c_str());
    RegPutString(HKEY_CURRENT_USER, kFolders, L"1", a_.path().c_str());
    RegSnapshot before = WithoutEmptyKeys(Snapshot(HKEY_CURRENT_USER, L"Software\\Orvane"));
    Open(3);
    ShowEverySectionCloseAndSave();
    EXPECT_EQ(WithoutEmptyKeys(Snapshot(HKEY_CURRENT_USER, L"Software\\Orvane")), before);
}

}  // namespace
