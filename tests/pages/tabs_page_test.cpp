// The Tabs page and its Today plug-in chooser driven through the real controls on a seeded
// registry; the record and the registry are read back afterwards.
#include <windowsx.h>

#include <map>
#include <set>
#include <tuple>

#include "dialogs/modal_script.h"
#include "pages/page_fixture.h"
#include "platform/device_window.h"

namespace {

enum { kList, kUp, kDown, kAdd, kRemove, kTimeOut = 6, kDefaultTab = 8, kAtStart = 9 };
const std::wstring kItems = L"SOFTWARE\\Microsoft\\Today\\Items", kTabs = kTabsPath;
using Names = std::set<std::wstring>;
using Rows = std::vector<std::wstring>;

// Every value under a key and its sub-keys, as "\sub|name" -> type and bytes.
std::map<std::wstring, std::string> Dump(HKEY root, const std::wstring& path, const std::wstring& at = L"") {
    std::map<std::wstring, std::string> values;
    HKEY key;
    if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return values;
    wchar_t name[300];
    BYTE data[600];
    for (DWORD i = 0, n = 300, size = 600, type; !RegEnumValueW(key, i, name, &n, 0, &type, data, &size);
         n = 300, size = 600, ++i)
        values[at + L"|" + name] = std::to_string(type) + ":" + std::string(reinterpret_cast<char*>(data), size);
    for (DWORD i = 0, n = 300; !RegEnumKeyExW(key, i, name, &n, 0, 0, 0, 0); n = 300, ++i)
        for (const auto& value : Dump(root, path + L"\\" + name, at + L"\\" + name)) values.insert(value);
    RegCloseKey(key);
    return values;
}

class TabsPage : public PageFixture {
protected:
    void SetUp() override { PageFixture::SetUp(), ClearTodayItems(); }
    void TearDown() override { PageFixture::TearDown(), ClearTodayItems(); }
    static void ClearTodayItems() {
        Names names;
        for (const auto& value : Dump(HKEY_LOCAL_MACHINE, kItems))
            names.insert(value.first.substr(1, value.first.find(L'|') - 1));
        for (const std::wstring& name : names)
            if (_wcsicmp(name.c_str(), L"Quillory")) RegRemoveTree(HKEY_LOCAL_MACHINE, Item(name).c_str());
        RegDeleteKeyValueW(HKEY_LOCAL_MACHINE, Item(L"Quillory").c_str(), L"Type");
    }
    static std::wstring Item(const std::wstring& name) { return kItems + L"\\" + name; }
    void Select(int row) {
        ListView_SetItemState(Control(kList), row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    }
    void Click(int number) { SendMessageW(Control(number), BM_CLICK, 0, 0); }
    Rows Listed() { return ListTexts(Control(kList)); }
    TabEntry* Added(const wchar_t* name) {
        return g_settings.tabSettings.tabs.findByKindAndName(kTabPlugInTyped, name);
    }
    // Clicks Add, picks `name` in the chooser (noting what it offers) and leaves it with `command`;
    // a message box of string `textId` that follows is answered with `answer`.
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
        WString text, caption;
        text.load(g_app.languageLibrary, textId), caption.load(g_app.languageLibrary, textId + 1);
        if (textId) script.Then([&] { return Answer(caption.c_str(), text.c_str(), answer); });
        script.Play([&] { Click(kAdd); });
    }
    static bool Answer(const wchar_t* caption, const wchar_t* text, int button) {
        HWND box = ModalScript::FindDialog(caption);
        if (box) EXPECT_NE(StaticTexts(box).find(text), std::wstring::npos) << caption;
        return box && PostMessageW(box, WM_COMMAND, button, 0);
    }
    Names offered_;
};

TEST_F(TabsPage, RowsStoreOrdersFromTwoAndMovesCarryTheirCheckBoxes) {
    LoadSettings();
    TabList& tabs = g_settings.tabSettings.tabs;
    tabs.clear();
    TabEntry* entries[] = {tabs.add(kTabCalendar, 1, 1, L"Calendar"), tabs.add(kTabTasks, 2, 1, L"Tasks"),
                           tabs.add(kTabNotes, 3, 0, L"Notes"), tabs.add(kTabPlugIn, 4, 1, L"Clock")};
    page_ = CreatePage(owner_, 10);
    EXPECT_EQ(Listed(), (Rows{L"Tasks", L"Notes", L"Clock"})) << "the calendar is not listed";
    Select(0), Click(kUp), Select(2), Click(kDown);
    EXPECT_EQ(Listed(), (Rows{L"Tasks", L"Notes", L"Clock"})) << "no move past either end";
    Select(0), Click(kDown);
    EXPECT_EQ(Listed(), (Rows{L"Notes", L"Tasks", L"Clock"}));
    EXPECT_TRUE(ListView_GetCheckState(Control(kList), 1)) << "the check box moved with its tab";
    ListView_SetCheckState(Control(kList), 2, FALSE);
    Close();
    const DWORD orders[] = {1, 3, 2, 4}, enabled[] = {1, 1, 0, 0};
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(std::make_pair(entries[i]->order, entries[i]->enabled), std::make_pair(orders[i], enabled[i])) << i;
}

TEST_F(TabsPage, OnlyAddedPlugInsCanBeRemovedAndTheDefaultTabRowsStore) {
    RegPutDword(HKEY_CURRENT_USER, (kTabs + L"\\Clock").c_str(), L"Enabled", 1);  // kind 1
    RegPutDword(HKEY_CURRENT_USER, (kTabs + L"\\News").c_str(), L"Type", 1);      // kind 2
    RegPutDword(HKEY_CURRENT_USER, kTabs.c_str(), L"DfltTabTimeOut", 3);
    RegPutDword(HKEY_CURRENT_USER, kTabs.c_str(), L"DfltTabOnStartup", 1);
    Open(10);
    Rows rows = Listed();
    ASSERT_EQ(rows.size(), 7u);
    EXPECT_FALSE(Enabled(kRemove)) << "nothing selected";
    for (int row : {0, 5, 6}) {
        Select(row);
        EXPECT_EQ(Enabled(kRemove), rows[row] == L"News") << rows[row];
    }
    Select(rows[5] == L"News" ? 5 : 6), Click(kRemove);
    EXPECT_EQ(Listed().size(), 6u);
    EXPECT_FALSE(Added(L"News") || Enabled(kRemove));
    EXPECT_TRUE(Selected(kTimeOut) == 3 && Button_GetCheck(Control(kAtStart)));
    Choose(kTimeOut, 6), Choose(kDefaultTab, 5), Click(kAtStart);
    ShowEverySectionCloseAndSave();
    TabSettingsGroup& settings = g_settings.tabSettings;
    EXPECT_EQ(std::make_tuple(settings.DfltTabTimeOut.value, settings.DfltTab.value, settings.DfltTabOnStartup.value),
              std::make_tuple(DWORD(6), DWORD(5), DWORD(0)));
    EXPECT_FALSE(RegKeyExists(HKEY_CURRENT_USER, (kTabs + L"\\News").c_str())) << "removed tab";
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, (kTabs + L"\\Clock").c_str(), L"Enabled", 1);
}

TEST_F(TabsPage, ChooserOffersOtherPlugInsOfType4AndWritesOnlyWhatTheUserConfirmed) {
    for (const wchar_t* name : {L"Quillory", L"Alpha", L"Beta", L"Odd"})
        RegPutDword(HKEY_LOCAL_MACHINE, Item(name).c_str(), L"Type", 4);
    RegPutDword(HKEY_LOCAL_MACHINE, Item(L"Clock").c_str(), L"Type", 1);
    RegPutString(HKEY_LOCAL_MACHINE, Item(L"Text").c_str(), L"Type", L"4");   // not a number
    RegPutDword(HKEY_LOCAL_MACHINE, Item(L"NoType").c_str(), L"Enabled", 1);
    RegPutString(HKEY_LOCAL_MACHINE, Item(L"Alpha").c_str(), L"DLL", L"alpha.dll");
    RegPutDword(HKEY_LOCAL_MACHINE, Item(L"Beta").c_str(), L"Enabled", 0);
    RegPutDword(HKEY_LOCAL_MACHINE, Item(L"Beta").c_str(), L"DLL", 7);         // not a text
    RegPutString(HKEY_LOCAL_MACHINE, Item(L"Odd").c_str(), L"Enabled", L"1");  // not a number
    auto before = Dump(HKEY_LOCAL_MACHINE, kItems);
    Open(10);
    int reloads = TodayReloadCount();
    Add(L"Beta");  // off the Today screen already: no question
    Add(L"Odd");   // its Enabled is no number: no question either
    EXPECT_EQ(offered_, (Names{L"Alpha", L"Beta", L"Odd"}));
    ASSERT_TRUE(Added(L"Beta") && Added(L"Odd"));
    EXPECT_EQ(std::make_pair(Added(L"Beta")->order, Added(L"Beta")->enabled), std::make_pair(DWORD(9), DWORD(1)));
    EXPECT_STREQ(Added(L"Odd")->dll.c_str(), L"") << "no DLL value";
    EXPECT_EQ(Listed().back(), L"Odd");
    EXPECT_TRUE(ListView_GetCheckState(Control(kList), 6));

    Add(L"Beta", 40749, IDOK);
    Add(L"Alpha", 40736, IDNO);
    Add(L"Alpha", 0, 0, IDCANCEL);
    EXPECT_EQ(Listed().size(), 7u) << "refused, declined, cancelled";
    EXPECT_EQ(Dump(HKEY_LOCAL_MACHINE, kItems), before);
    EXPECT_EQ(TodayReloadCount(), reloads);

    Add(L"Alpha", 40736, IDYES);
    ASSERT_TRUE(Added(L"Alpha"));
    EXPECT_STREQ(Added(L"Alpha")->dll.c_str(), L"alpha.dll");
    EXPECT_EQ(TodayReloadCount(), reloads + 1);
    before[L"\\Alpha|Enabled"] = "4:" + std::string(4, '\0');
    EXPECT_EQ(Dump(HKEY_LOCAL_MACHINE, kItems), before);
}

TEST_F(TabsPage, ChooserWithNothingOrHundredsOfItems) {
    Open(10);
    ModalScript script;
    script.Then([] { return Answer(L"Today Plug-in", L"", IDOK); })
        .Then([] { return Answer(L"Selection Missing", L"No Today screen plugin is selecetd. Please select a Today "
                                                       L"screen plugin from the selection combo-box.", IDOK); })
        .Then([] { return Answer(L"Today Plug-in", L"", IDCANCEL); });
    script.Play([&] { Click(kAdd); });

    const std::wstring longest(255, L'L');
    Names names = {longest};
    for (int i = 0; i < 300; ++i) names.insert(L"Item" + std::to_wstring(i));
    for (const std::wstring& name : names) RegPutDword(HKEY_LOCAL_MACHINE, Item(name).c_str(), L"Type", 4);
    Add(longest, 40736, IDYES);
    EXPECT_EQ(offered_, names) << "none lost or twice";
    ShowEverySectionCloseAndSave();
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, (kTabs + L"\\" + longest).c_str(), L"Type", 1);
    EXPECT_REG_DWORD(HKEY_LOCAL_MACHINE, Item(longest).c_str(), L"Enabled", 0);
}

TEST_F(TabsPage, ValuesRoundTripThroughBothSections) {
    using Value = std::pair<const wchar_t*, DWORD>;
    for (Value value : {Value{L"NotesTabOrder", 2}, {L"TasksTabOrder", 3}, {L"MailTabEnabled", 0},
                        {L"DfltTabTimeOut", 4}, {L"DfltTab", 3}, {L"DfltTabOnStartup", 1}})
        RegPutDword(HKEY_CURRENT_USER, kTabs.c_str(), value.first, value.second);
    for (Value value : {Value{L"Order", 7}, {L"Type", 1}, {L"Enabled", 1}})
        RegPutDword(HKEY_CURRENT_USER, (kTabs + L"\\Weather").c_str(), value.first, value.second);
    RegPutString(HKEY_CURRENT_USER, (kTabs + L"\\Weather").c_str(), L"DLL", L"weather.dll");
    RegPutDword(HKEY_CURRENT_USER, (kTabs + L"\\Contacts").c_str(), L"Kept", 5);
    auto before = Dump(HKEY_CURRENT_USER, kTabs);
    Open(10);
    ShowEverySectionCloseAndSave();
    EXPECT_EQ(Dump(HKEY_CURRENT_USER, kTabs), before);
}

}  // namespace
