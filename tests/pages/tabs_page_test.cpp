#include <windowsx.h>

#include <algorithm>
#include <set>

#include "page_fixture.h"
#include "platform/device_window.h"

namespace {

enum { kList, kUp, kDown, kAdd, kRemove, kTimeOut = 6, kDefaultTab = 8, kAtStart = 9 };
const std::wstring kItems = L"SOFTWARE\\Microsoft\\Today\\Items", kTabs = kTabsPath;

std::wstring Item(const std::wstring& name) { return kItems + L"\\" + name; }

class TabsPage : public PageFixture {
protected:
    void SetUp() override { PageFixture::SetUp(), ClearTodayItems(); }
    void TearDown() override { PageFixture::TearDown(), ClearTodayItems(); }
    // Every Today item but the product's own, and that one's type.
    static void ClearTodayItems() {
        for (const auto& key : Snapshot(HKEY_LOCAL_MACHINE, kItems))
            if (key.first.size() > kItems.size() && _wcsicmp(key.first.c_str() + kItems.size(), L"\\Quillory"))
                RegRemoveTree(HKEY_LOCAL_MACHINE, key.first.c_str());
        RegDeleteKeyValueW(HKEY_LOCAL_MACHINE, Item(L"Quillory").c_str(), L"Type");
    }
    void Select(int row) {
        ListView_SetItemState(Control(kList), row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    }
    TabEntry* Added(const wchar_t* name) {
        return g_settings.tabSettings.tabs.findByKindAndName(kTabPlugInTyped, name);
    }
    // Add, `name` picked in the chooser (noting what it offers) left with OK; a message box
    // captioned with string `textId` + 1 that follows is answered with `answer`.
    void Add(const std::wstring& name, UINT textId = 0, int answer = 0) {
        ModalScript script;
        script.Then([&] {
            HWND chooser = ModalScript::FindDialog(L"Today Plug-in"), combo = GetDlgItem(chooser, 1085);
            for (int i = 0; chooser && i < ComboBox_GetCount(combo); ++i) {
                wchar_t text[300] = {};
                offered_.insert((ComboBox_GetLBText(combo, i, text), text));
            }
            ComboBox_SelectString(combo, -1, name.c_str());
            return chooser && PostMessageW(chooser, WM_COMMAND, IDOK, 0);
        });
        WString caption;
        caption.load(g_app.languageLibrary, textId + 1);
        if (textId) script.Then(On(caption.c_str(), Post(answer)));
        script.Play([&] { Click(kAdd); });
    }
    std::set<std::wstring> offered_;
};

TEST_F(TabsPage, MovesCarryCheckBoxesOnlyAddedPlugInsGoAndTheDefaultTabRowsStore) {
    PutDwords(kTabsPath, {{L"NotesTabOrder", 2}, {L"TasksTabOrder", 3}, {L"MailTabEnabled", 0},
                          {L"DfltTabTimeOut", 3}, {L"DfltTab", 3}, {L"DfltTabOnStartup", 1}});
    PutDwords((kTabs + L"\\Weather").c_str(), {{L"Order", 7}, {L"Type", 1}, {L"Enabled", 1}});  // added earlier
    RegPutString(HKEY_CURRENT_USER, (kTabs + L"\\Weather").c_str(), L"DLL", L"weather.dll");
    EXPECT_TRUE(RoundTripKeeps(10, kTabsPath));

    RegPutDword(HKEY_CURRENT_USER, (kTabs + L"\\Clock").c_str(), L"Enabled", 1);  // no type: kind 1
    Open(10);
    Texts rows = ListTexts(Control(kList));
    ASSERT_EQ(rows.size(), 7u) << "every tab but the calendar";
    EXPECT_EQ(Texts(rows.begin(), rows.begin() + 2), (Texts{L"Notes", L"Tasks"}));
    for (int row = 0; row < 7; ++row) {
        Select(row);
        EXPECT_EQ(Enabled(kRemove), rows[row] == L"Weather") << rows[row];
    }
    Select(0), Click(kUp), Select(6), Click(kDown);
    EXPECT_EQ(ListTexts(Control(kList)), rows) << "no move past either end";
    ListView_SetCheckState(Control(kList), 0, FALSE);
    Select(0), Click(kDown);
    Select(static_cast<int>(std::find(rows.begin(), rows.end(), L"Weather") - rows.begin())), Click(kRemove);
    Choose(kTimeOut, 6), Choose(kDefaultTab, 5), Click(kAtStart);
    ShowEverySectionCloseAndSave();
    for (const auto& value : {std::make_pair(L"NotesTabEnabled", 0), {L"DfltTabTimeOut", 6}, {L"DfltTab", 5}})
        EXPECT_REG_DWORD(HKEY_CURRENT_USER, kTabsPath, value.first, value.second);
    for (const wchar_t* name : {L"TasksTabOrder", L"NotesTabOrder", L"DfltTabOnStartup"})
        EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kTabsPath, name) << "back to the default";
    EXPECT_FALSE(RegKeyExists(HKEY_CURRENT_USER, (kTabs + L"\\Weather").c_str())) << "removed tab";
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, (kTabs + L"\\Clock").c_str(), L"Enabled", 1);
}

TEST_F(TabsPage, ChooserOffersOtherPlugInsOfType4AndWritesOnlyWhatTheUserConfirmed) {
    for (const wchar_t* name : {L"Quillory", L"Alpha", L"Beta"})
        RegPutDword(HKEY_LOCAL_MACHINE, Item(name).c_str(), L"Type", 4);
    RegPutDword(HKEY_LOCAL_MACHINE, Item(L"Clock").c_str(), L"Type", 1);
    RegPutString(HKEY_LOCAL_MACHINE, Item(L"Text").c_str(), L"Type", L"4");  // not a number
    RegPutString(HKEY_LOCAL_MACHINE, Item(L"Alpha").c_str(), L"DLL", L"alpha.dll");
    RegPutDword(HKEY_LOCAL_MACHINE, Item(L"Beta").c_str(), L"Enabled", 0);
    RegSnapshot before = Snapshot(HKEY_LOCAL_MACHINE, kItems);
    int reloads = TodayReloadCount();
    Open(10);
    Add(L"Beta");  // off the Today screen already: no question
    EXPECT_EQ(offered_, (std::set<std::wstring>{L"Alpha", L"Beta"}));
    ASSERT_TRUE(Added(L"Beta"));
    EXPECT_EQ(std::make_pair(Added(L"Beta")->order, Added(L"Beta")->enabled), std::make_pair(DWORD(9), DWORD(1)));
    EXPECT_STREQ(Added(L"Beta")->dll.c_str(), L"") << "no DLL value";
    Add(L"Beta", 40749, IDOK);
    EXPECT_EQ(ListTexts(Control(kList)).size(), 6u) << "refused";
    EXPECT_EQ(Snapshot(HKEY_LOCAL_MACHINE, kItems), before);
    Add(L"Alpha", 40736, IDYES);
    ASSERT_TRUE(Added(L"Alpha"));
    EXPECT_STREQ(Added(L"Alpha")->dll.c_str(), L"alpha.dll");
    EXPECT_EQ(TodayReloadCount(), reloads + 1) << "taken off the Today screen";
    before[Item(L"Alpha")][L"Enabled"] = {REG_DWORD, std::string(4, '\0')};
    EXPECT_EQ(Snapshot(HKEY_LOCAL_MACHINE, kItems), before);
    ShowEverySectionCloseAndSave();
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, (kTabs + L"\\Alpha").c_str(), L"Type", 1);
}

}  // namespace
