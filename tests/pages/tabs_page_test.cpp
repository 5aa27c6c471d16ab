// The Tabs page and its Today plug-in chooser driven through the real controls on a seeded
// registry; the record and the registry are read back afterwards.
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
    // Clicks Add, picks `name` in the chooser (noting what it offers) and leaves it with `command`;
    // a message box captioned with string `textId` + 1 that follows is answered with `answer`.
    void Add(const std::wstring& name, UINT textId = 0, int answer = 0, int command = IDOK) {
        ModalScript script;
        script.Then([&] {
            HWND chooser = ModalScript::FindDialog(L"Today Plug-in"), combo = GetDlgItem(chooser, 1085);
            for (int i = 0; chooser && i < ComboBox_GetCount(combo); ++i) {
                wchar_t text[300] = {};
                offered_.insert((ComboBox_GetLBText(combo, i, text), text));
            }
            ComboBox_SelectString(combo, -1, name.c_str());
            return chooser && PostMessageW(chooser, WM_COMMAND, command, 0);
        });
        WString caption;
        caption.load(g_app.languageLibrary, textId + 1);
        if (textId) script.Then([&] { return Answer(caption.c_str(), answer); });
        script.Play([&] { Click(kAdd); });
    }
    static bool Answer(const wchar_t* caption, int button) {
        HWND box = ModalScript::FindDialog(caption);
        return box && PostMessageW(box, WM_COMMAND, button, 0);
    }
    std::set<std::wstring> offered_;
};

TEST_F(TabsPage, MovesCarryCheckBoxesOnlyAddedPlugInsGoAndTheDefaultTabRowsStore) {
    PutDwords(kTabsPath, {{L"NotesTabOrder", 2}, {L"TasksTabOrder", 3}, {L"MailTabEnabled", 0},
                          {L"DfltTabTimeOut", 3}, {L"DfltTab", 3}, {L"DfltTabOnStartup", 1}});
    PutDwords((kTabs + L"\\Weather").c_str(), {{L"Order", 7}, {L"Type", 1}, {L"Enabled", 1}});  // added earlier
    RegPutString(HKEY_CURRENT_USER, (kTabs + L"\\Weather").c_str(), L"DLL", L"weather.dll");
    RegPutDword(HKEY_CURRENT_USER, (kTabs + L"\\Contacts").c_str(), L"Kept", 5);
    EXPECT_TRUE(RoundTripKeeps(10, kTabsPath));

    RegPutDword(HKEY_CURRENT_USER, (kTabs + L"\\Clock").c_str(), L"Enabled", 1);  // no type: kind 1
    Open(10);
    Texts rows = ListTexts(Control(kList));
    ASSERT_EQ(rows.size(), 7u) << "every tab but the calendar";
    EXPECT_EQ(Texts(rows.begin(), rows.begin() + 2), (Texts{L"Notes", L"Tasks"}));
    EXPECT_FALSE(Enabled(kRemove)) << "nothing selected";
    for (int row = 0; row < 7; ++row) {
        Select(row);
        EXPECT_EQ(Enabled(kRemove), rows[row] == L"Weather") << rows[row];
    }
    Select(0), Click(kUp), Select(6), Click(kDown);
    EXPECT_EQ(ListTexts(Control(kList)), rows) << "no move past either end";
    ListView_SetCheckState(Control(kList), 0, FALSE);
    Select(0), Click(kDown);
    EXPECT_EQ(ListTexts(Control(kList))[0], L"Tasks");
    EXPECT_TRUE(ListView_GetCheckState(Control(kList), 0) && !ListView_GetCheckState(Control(kList), 1));
    Select(static_cast<int>(std::find(rows.begin(), rows.end(), L"Weather") - rows.begin())), Click(kRemove);
    EXPECT_EQ(ListTexts(Control(kList)).size(), 6u);
    EXPECT_FALSE(Added(L"Weather") || Enabled(kRemove));
    EXPECT_TRUE(Selected(kTimeOut) == 3 && Checked(kAtStart));
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
    Open(10);
    ModalScript empty;  // no plug-in to offer, OK: told so, back in the chooser
    empty.Then([] { return Answer(L"Today Plug-in", IDOK); })
        .Then([] { return Answer(L"Selection Missing", IDOK); })
        .Then([] { return Answer(L"Today Plug-in", IDCANCEL); });
    empty.Play([&] { Click(kAdd); });
    const std::wstring longest(255, L'L');
    for (const std::wstring& name : {std::wstring(L"Quillory"), std::wstring(L"Alpha"), std::wstring(L"Beta"),
                                     std::wstring(L"Odd"), longest})
        RegPutDword(HKEY_LOCAL_MACHINE, Item(name).c_str(), L"Type", 4);
    RegPutDword(HKEY_LOCAL_MACHINE, Item(L"Clock").c_str(), L"Type", 1);
    RegPutString(HKEY_LOCAL_MACHINE, Item(L"Text").c_str(), L"Type", L"4");  // not a number
    RegPutDword(HKEY_LOCAL_MACHINE, Item(L"NoType").c_str(), L"Enabled", 1);
    RegPutString(HKEY_LOCAL_MACHINE, Item(L"Alpha").c_str(), L"DLL", L"alpha.dll");
    RegPutDword(HKEY_LOCAL_MACHINE, Item(L"Beta").c_str(), L"Enabled", 0);
    RegPutDword(HKEY_LOCAL_MACHINE, Item(L"Beta").c_str(), L"DLL", 7);         // not a text
    RegPutString(HKEY_LOCAL_MACHINE, Item(L"Odd").c_str(), L"Enabled", L"1");  // not a number
    RegSnapshot before = Snapshot(HKEY_LOCAL_MACHINE, kItems);
    int reloads = TodayReloadCount();
    Add(L"Beta");  // off the Today screen already: no question
    Add(L"Odd");   // its Enabled is no number: no question either
    EXPECT_EQ(offered_, (std::set<std::wstring>{L"Alpha", L"Beta", L"Odd", longest}));
    ASSERT_TRUE(Added(L"Beta") && Added(L"Odd"));
    EXPECT_EQ(std::make_pair(Added(L"Beta")->order, Added(L"Beta")->enabled), std::make_pair(DWORD(9), DWORD(1)));
    EXPECT_STREQ(Added(L"Odd")->dll.c_str(), L"") << "no DLL value";
    EXPECT_EQ(ListTexts(Control(kList)).back(), L"Odd");
    EXPECT_TRUE(ListView_GetCheckState(Control(kList), 6));

    Add(L"Beta", 40749, IDOK);
    Add(L"Alpha", 40736, IDNO);
    Add(L"Alpha", 0, 0, IDCANCEL);
    EXPECT_EQ(ListTexts(Control(kList)).size(), 7u) << "refused, declined, cancelled";
    EXPECT_EQ(Snapshot(HKEY_LOCAL_MACHINE, kItems), before);
    EXPECT_EQ(TodayReloadCount(), reloads);
    Add(L"Alpha", 40736, IDYES);
    Add(longest, 40736, IDYES);
    ASSERT_TRUE(Added(L"Alpha"));
    EXPECT_STREQ(Added(L"Alpha")->dll.c_str(), L"alpha.dll");
    EXPECT_EQ(TodayReloadCount(), reloads + 2);
    for (const std::wstring& name : {std::wstring(L"Alpha"), longest})
        before[Item(name)][L"Enabled"] = {REG_DWORD, std::string(4, '\0')};
    EXPECT_EQ(Snapshot(HKEY_LOCAL_MACHINE, kItems), before);
    ShowEverySectionCloseAndSave();
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, (kTabs + L"\\" + longest).c_str(), L"Type", 1);
}

}  // namespace
