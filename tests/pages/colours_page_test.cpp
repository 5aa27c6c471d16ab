#include "dialogs/colour_picker.h"
#include "files/colour_schemes.h"
#include "page_fixture.h"
#include "platform/device_window.h"

namespace {

enum { kChange, kColourList, kSchemeName, kSave, kSchemeList, kLoad, kDelete };
const wchar_t kColours[] = L"Software\\Orvane\\Quillory\\Colors";

class ColoursPage : public PageFixture {
protected:
    void Key(int list, int key, int times = 1) {
        while (times--) SendMessageW(Control(list), WM_KEYDOWN, key, 0);
    }
    void SelectScheme(const wchar_t* name) {
        Key(kSchemeList, VK_HOME);
        for (int row = 0; row < 9 && SelectedText(Control(kSchemeList)) != name; ++row) Key(kSchemeList, VK_DOWN);
    }
    ScratchFolder product_{L"colours_product"};
};

TEST_F(ColoursPage, SeededValuesRoundTripAndAColourChangesOnlyThroughAPickThatIsNotCancelled) {
    for (const wchar_t* name : {L"SeperatorLineClr", L"ClrPopupCurr", L"ClrStatusOutofoffice"})
        RegPutDword(HKEY_CURRENT_USER, kColours, name, 0x00123456);
    EXPECT_TRUE(RoundTripKeeps(8, kProductPath, product_.path()));
    RemoveProductKeys();
    Open(8, product_.path());
    ClickThrough(kChange, {}, 30);  // no item: no picker
    Key(kColourList, VK_END), Key(kColourList, VK_UP, 2);  // the 14th item: status busy
    ClickThrough(kChange, {On(nullptr, Post(kPickerCancelCommand))});
    EXPECT_EQ(g_settings.colors.ClrStatusBusy.dirty, 0) << "cancelled";
    ClickThrough(kChange, {On(nullptr, Post(kPickerFirstTabCommand + 1)), On(nullptr, [](HWND picker) {
                               SetWindowTextW(GetDlgItem(picker, kPickerHtmlField), L"102030");
                               PostMessageW(picker, WM_NEXTDLGCTL, (WPARAM)GetDlgItem(picker, kPickerTabs), TRUE);
                               return Post(IDOK)(picker);
                           })});
    ShowEverySectionCloseAndSave();
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kColours, L"ClrStatusBusy", RGB(0x10, 0x20, 0x30));
    EXPECT_EQ(RegValueCount(HKEY_CURRENT_USER, kColours), 1u);
}

TEST_F(ColoursPage, SchemeButtonsSaveDeleteAndLoadAndALoadedSchemeClosesThePage) {
    CreateDirectoryW((product_.path() + L"\\Schemes").c_str(), nullptr);
    WriteBytes(product_.file(L"Schemes\\Good.scm"),
               Utf16Bytes(L"\n[Software\\Orvane\\Quillory\\Colors]\n\"ClrStatusBusy\"=dword:255\n"));
    RegPutDword(HKEY_CURRENT_USER, kColours, L"ClrStatusFree", 5);
    Open(8, product_.path());
    SetWindowTextW(Control(kSchemeName), L"Mine");
    ClickThrough(kSave, {On(nullptr, Post(IDOK))});
    EXPECT_NE(ReadBytes(SchemeFilePath(L"Mine.scm").c_str()).find(Utf16Bytes(L"\"ClrStatusFree\"=dword:5")),
              std::string::npos);
    SelectScheme(L"Mine.scm");
    ClickThrough(kDelete, {On(nullptr, Post(IDYES))});
    EXPECT_EQ(ListTexts(Control(kSchemeList)), Texts{L"Good.scm"});
    SelectScheme(L"Good.scm");
    int reloads = TodayReloadCount();
    ClickThrough(kLoad, {On(nullptr, Post(IDYES))});
    EXPECT_FALSE(IsWindow(page_->window())) << "the page is closed";
    EXPECT_EQ(TodayReloadCount(), reloads + 1);
    EXPECT_EQ(g_settings.colors.ClrStatusBusy.value, 255u) << "the record is reloaded";
    EXPECT_EQ(g_settings.colors.ClrStatusFree.value, 0xFFFFFFFFu);
}

}  // namespace
