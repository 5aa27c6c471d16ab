// The Colours page on a seeded registry and a schemes folder: colours changed through the real
// colour picker, schemes saved, deleted and loaded with the buttons, every message answered.
#include <set>

#include "dialogs/colour_picker.h"
#include "dialogs/modal_script.h"
#include "files/colour_schemes.h"
#include "page_fixture.h"
#include "platform/device_window.h"

namespace {

enum { kChange, kColourList, kSchemeName, kSave, kSchemeList, kLoad, kDelete };
const wchar_t kColours[] = L"Software\\Orvane\\Quillory\\Colors";

class ColoursPage : public PageFixture {
protected:
    void OpenColours() {
        LoadSettings();
        g_settings.productFolder.assign(product_.path().c_str());
        g_app.languageLibrary = LoadLibraryW((TestBinDir() + L"\\QLEngRc.dll").c_str());
        page_ = CreatePage(owner_, 8);
        ASSERT_TRUE(page_ && page_->window());
    }
    void Key(int list, int key, int times = 1) {
        while (times--) SendMessageW(Control(list), WM_KEYDOWN, key, 0);
    }
    // Presses a button; answers each message box it shows with the next of `answers` and returns
    // what they said, as caption ": " text.
    std::vector<std::wstring> Press(int button, std::vector<int> answers = {IDOK}) {
        std::vector<std::wstring> said;
        ModalScript script;
        HWND box = nullptr;
        for (int answer : answers)
            script.Then([&box] { return !box || !IsWindow(box); }).Then([&said, &box, answer] {
                if (!(box = ModalScript::FindDialog(nullptr))) return false;
                std::wstring texts = StaticTexts(box);
                said.push_back(WindowText(box) + L": " + texts.substr(texts.find_first_not_of(L'\n')));
                return PostMessageW(box, WM_COMMAND, answer, 0) != FALSE;
            });
        script.Play([&] { SendMessageW(Control(button), BM_CLICK, 0, 0); }, 300);
        return said;
    }
    std::wstring Message(UINT id) {
        WString text, caption;
        text.load(g_app.languageLibrary, id), caption.load(g_app.languageLibrary, id + 1);
        return std::wstring(caption.c_str()) + L": " + text.c_str() + L"\n";
    }
    std::set<std::wstring> Listed() {
        auto texts = ListTexts(Control(kSchemeList));
        return {texts.begin(), texts.end()};
    }
    std::set<std::wstring> InFolder() {
        std::set<std::wstring> names;
        for (const WString& name : ListSchemeFiles()) names.insert(name.c_str());
        return names;
    }
    COLORREF SampleColour() {
        UpdateWindow(page_->window());
        RECT client;
        GetClientRect(page_->window(), &client);
        WindowDc dc(page_->window());
        return GetPixel(dc.get(), client.right - 78, 60);
    }
    ScratchFolder product_{L"colours_product"};
};

TEST_F(ColoursPage, AColourChangesOnlyThroughAPickThatIsNotCancelled) {
    RegPutDword(HKEY_CURRENT_USER, kColours, L"ClrStatusBusy", RGB(0, 255, 0));
    OpenColours();
    ModalScript none;
    none.Play([&] { SendMessageW(Control(kChange), BM_CLICK, 0, 0); }, 30);  // no item: no picker

    Key(kColourList, VK_END), Key(kColourList, VK_UP, 2);  // the 14th item: status busy
    EXPECT_EQ(SampleColour(), RGB(0, 255, 0));
    HWND picker = nullptr;
    ModalScript cancel, pick;
    cancel.Then([&] { return (picker = ModalScript::FindDialog(L"Color")) != nullptr; }).Then([&] {
        return PostMessageW(picker, WM_COMMAND, kPickerCancelCommand, 0);
    });
    cancel.Play([&] { SendMessageW(Control(kChange), BM_CLICK, 0, 0); });
    EXPECT_EQ(g_settings.colors.ClrStatusBusy.dirty, 0) << "cancelled";
    pick.Then([&] { return (picker = ModalScript::FindDialog(L"Color")) != nullptr; })
        .Then([&] { return PostMessageW(picker, WM_COMMAND, kPickerFirstTabCommand + 1, 0); })
        .Then([&] {
            SetWindowTextW(GetDlgItem(picker, kPickerHtmlField), L"102030");
            PostMessageW(picker, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(GetDlgItem(picker, kPickerTabs)), TRUE);
            return PostMessageW(picker, WM_COMMAND, IDOK, 0);
        });
    pick.Play([&] { SendMessageW(Control(kChange), BM_CLICK, 0, 0); });
    EXPECT_EQ(SampleColour(), RGB(0x10, 0x20, 0x30)) << "the sample follows at once";
    ShowEverySectionCloseAndSave();
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kColours, L"ClrStatusBusy", RGB(0x10, 0x20, 0x30));
    EXPECT_EQ(RegValueCount(HKEY_CURRENT_USER, kColours), 1u);
}

TEST_F(ColoursPage, SavedAndDeletedSchemesKeepTheListAndTheFolderAlike) {
    OpenColours();
    EXPECT_EQ(Press(kDelete), std::vector<std::wstring>{Message(40485)}) << "nothing selected";
    EXPECT_EQ(Press(kSave), std::vector<std::wstring>{Message(40489)}) << "no name";
    SetWindowTextW(Control(kSchemeName), L"Mine");
    EXPECT_EQ(Press(kSave), std::vector<std::wstring>{Message(40493)});
    EXPECT_EQ(ListTexts(Control(kSchemeList)), std::vector<std::wstring>{L"Mine.scm"});
    EXPECT_EQ(WindowText(Control(kSchemeName)), L"");
    std::string saved = ReadBytes(SchemeFilePath(L"Mine.scm").c_str());

    RegPutDword(HKEY_CURRENT_USER, kColours, L"ClrStatusFree", 5);
    SetWindowTextW(Control(kSchemeName), L"Mine");
    EXPECT_EQ(Press(kSave), std::vector<std::wstring>{Message(40491)});
    EXPECT_EQ(ReadBytes(SchemeFilePath(L"Mine.scm").c_str()), saved) << "nothing written over it";
    SetWindowTextW(Control(kSchemeName), L"Other");
    Press(kSave);
    EXPECT_EQ(ListTexts(Control(kSchemeList)), (std::vector<std::wstring>{L"Other.scm", L"Mine.scm"}));
    EXPECT_EQ(Listed(), InFolder());

    Key(kSchemeList, VK_END);
    EXPECT_EQ(Press(kDelete, {IDNO}), std::vector<std::wstring>{Message(40487)});
    EXPECT_EQ(InFolder().size(), 2u);
    Press(kDelete, {IDYES});
    EXPECT_EQ(Listed(), std::set<std::wstring>{L"Other.scm"});
    EXPECT_EQ(Listed(), InFolder());
}

TEST_F(ColoursPage, ARejectedSchemeLeavesBothKeysDeletedAndALoadedOneClosesThePage) {
    RegPutDword(HKEY_CURRENT_USER, kColours, L"ClrStatusFree", 5);
    RegPutDword(HKEY_CURRENT_USER, kFontsPath, L"FontCalTaskslfHeight", 20);
    CreateDirectoryW((product_.path() + L"\\Schemes").c_str(), nullptr);
    WriteBytes(product_.file(L"Schemes\\Bad.scm"), Utf16Bytes(L"[Software\\Orvane\\Quillory\\Colors]\n"));
    WriteBytes(product_.file(L"Schemes\\Good.scm"),
               Utf16Bytes(L"\n[Software\\Orvane\\Quillory\\Colors]\n\"ClrStatusBusy\"=dword:255\n"));
    OpenColours();
    Key(kSchemeList, VK_HOME);
    if (SelectedText(Control(kSchemeList)) != L"Bad.scm") Key(kSchemeList, VK_END);
    EXPECT_EQ(Press(kLoad, {IDYES, IDOK}), (std::vector<std::wstring>{Message(40495), Message(40499)}));
    EXPECT_FALSE(RegKeyExists(HKEY_CURRENT_USER, kColours));
    EXPECT_FALSE(RegKeyExists(HKEY_CURRENT_USER, kFontsPath));
    ASSERT_TRUE(IsWindow(page_->window()));

    Key(kSchemeList, ListView_GetNextItem(Control(kSchemeList), -1, LVNI_SELECTED) == 0 ? VK_END : VK_HOME);
    ASSERT_EQ(SelectedText(Control(kSchemeList)), L"Good.scm");
    Press(kLoad, {IDNO});
    EXPECT_FALSE(RegKeyExists(HKEY_CURRENT_USER, kColours)) << "declined";
    int reloads = TodayReloadCount();
    EXPECT_EQ(Press(kLoad, {IDYES}).size(), 1u);
    EXPECT_FALSE(IsWindow(page_->window())) << "the page is closed";
    EXPECT_EQ(TodayReloadCount(), reloads + 1);
    EXPECT_EQ(g_settings.colors.ClrStatusBusy.value, 255u) << "the record is reloaded";
    EXPECT_EQ(g_settings.colors.ClrStatusFree.value, 0xFFFFFFFFu);
}

TEST_F(ColoursPage, EverySectionShownAndLeftChangesNothing) {
    for (const wchar_t* name : {L"SeperatorLineClr", L"ClrPopupCurr", L"ClrStatusOutofoffice"})
        RegPutDword(HKEY_CURRENT_USER, kColours, name, 0x00123456);
    RegPutDword(HKEY_CURRENT_USER, kFontsPath, L"FontCalTaskslfHeight", 20);
    RegSnapshot before = WithoutEmptyKeys(Snapshot(HKEY_CURRENT_USER, kProductPath));
    OpenColours();
    ShowEverySectionCloseAndSave();
    EXPECT_TRUE(before == WithoutEmptyKeys(Snapshot(HKEY_CURRENT_USER, kProductPath)));
}

}  // namespace
