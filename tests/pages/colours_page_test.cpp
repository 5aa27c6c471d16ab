// The Colours page on a seeded registry and a schemes folder: a colour changed through the real
// colour picker, and the scheme buttons, every message box answered.
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
    // Presses `button` while `steps` play in the dialogs it opens; each step gets the topmost one.
    void Press(int button, std::initializer_list<std::function<bool(HWND)>> steps, int ticks = 1000) {
        ModalScript script;
        for (const auto& step : steps) script.Then([step] {
            HWND box = ModalScript::FindDialog(nullptr);
            return box && step(box);
        });
        script.Play([&] { Click(button); }, ticks);
    }
    void SelectScheme(const wchar_t* name) {
        Key(kSchemeList, VK_HOME);
        for (int row = 0; row < 9 && SelectedText(Control(kSchemeList)) != name; ++row) Key(kSchemeList, VK_DOWN);
    }
    static std::function<bool(HWND)> Answer(int command) {
        return [command](HWND box) { return PostMessageW(box, WM_COMMAND, command, 0) != FALSE; };
    }
    COLORREF SampleColour() {
        UpdateWindow(page_->window());
        RECT client;
        GetClientRect(page_->window(), &client);
        return GetPixel(WindowDc(page_->window()).get(), client.right - 78, 60);
    }
    ScratchFolder product_{L"colours_product"};
};

TEST_F(ColoursPage, SeededValuesRoundTripAndAColourChangesOnlyThroughAPickThatIsNotCancelled) {
    for (const wchar_t* name : {L"SeperatorLineClr", L"ClrPopupCurr", L"ClrStatusOutofoffice"})
        RegPutDword(HKEY_CURRENT_USER, kColours, name, 0x00123456);
    EXPECT_TRUE(RoundTripKeeps(8, kProductPath, product_.path()));
    RemoveProductKeys();
    RegPutDword(HKEY_CURRENT_USER, kColours, L"ClrStatusBusy", RGB(0, 255, 0));
    Open(8, product_.path());
    ModalScript().Play([&] { Click(kChange); }, 30);  // no item: no picker
    Key(kColourList, VK_END), Key(kColourList, VK_UP, 2);  // the 14th item: status busy
    EXPECT_EQ(SampleColour(), RGB(0, 255, 0));
    Press(kChange, {[](HWND picker) { return Answer(kPickerCancelCommand)(picker); }});
    EXPECT_EQ(g_settings.colors.ClrStatusBusy.dirty, 0) << "cancelled";
    Press(kChange, {Answer(kPickerFirstTabCommand + 1), [](HWND picker) {
                        SetWindowTextW(GetDlgItem(picker, kPickerHtmlField), L"102030");
                        PostMessageW(picker, WM_NEXTDLGCTL, (WPARAM)GetDlgItem(picker, kPickerTabs), TRUE);
                        return Answer(IDOK)(picker);
                    }});
    EXPECT_EQ(SampleColour(), RGB(0x10, 0x20, 0x30)) << "the sample follows at once";
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
    Press(kSave, {Answer(IDOK)});
    EXPECT_EQ(ListTexts(Control(kSchemeList)).size(), 2u);
    EXPECT_EQ(Text(kSchemeName), L"") << "cleared once saved";
    EXPECT_NE(ReadBytes(SchemeFilePath(L"Mine.scm").c_str()).find(Utf16Bytes(L"\"ClrStatusFree\"=dword:5")),
              std::string::npos);
    SelectScheme(L"Mine.scm");
    Press(kDelete, {Answer(IDNO)});
    EXPECT_EQ(ListSchemeFiles().size(), 2u) << "declined";
    Press(kDelete, {Answer(IDYES)});
    EXPECT_EQ(ListTexts(Control(kSchemeList)), Texts{L"Good.scm"});
    EXPECT_EQ(ListSchemeFiles().size(), 1u);
    SelectScheme(L"Good.scm");
    Press(kLoad, {Answer(IDNO)});
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kColours, L"ClrStatusFree", 5) << "declined";
    int reloads = TodayReloadCount();
    Press(kLoad, {Answer(IDYES)});
    EXPECT_FALSE(IsWindow(page_->window())) << "the page is closed";
    EXPECT_EQ(TodayReloadCount(), reloads + 1);
    EXPECT_EQ(g_settings.colors.ClrStatusBusy.value, 255u) << "the record is reloaded";
    EXPECT_EQ(g_settings.colors.ClrStatusFree.value, 0xFFFFFFFFu);
}

}  // namespace
