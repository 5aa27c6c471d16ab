// The Tabs page and its Today plug-in chooser, driven through the real controls on a seeded
// registry; the record and the registry are read back afterwards.
#include <windows.h>
#include <commctrl.h>

#include <windowsx.h>

#include <map>
#include <set>
#include <string>

#include "dialogs/modal_script.h"
#include "platform/device_window.h"
#include "settings/settings_test_util.h"
#include "shell/application.h"
#include "shell/page_factory.h"
#include "shell/settings_page.h"
#include "support/app_state.h"

namespace {

enum { kList, kUp, kDown, kAdd, kRemove, kTimeOut = 6, kDefaultTab = 8, kAtStart = 9 };
const wchar_t kItems[] = L"SOFTWARE\\Microsoft\\Today\\Items";

// Every value of a tree as "sub\path|name" -> type and bytes.
using Values = std::map<std::wstring, std::pair<DWORD, std::string>>;
void Dump(HKEY root, const std::wstring& path, Values& out, const std::wstring& prefix = L"") {
    HKEY key;
    if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return;
    wchar_t name[300];
    BYTE data[1024];
    for (DWORD i = 0, n = 300, size = 1024, type; RegEnumValueW(key, i, name, &n, nullptr, &type, data, &size) == 0;
         ++i, n = 300, size = 1024)
        out[prefix + L"|" + name] = {type, std::string(reinterpret_cast<char*>(data), size)};
    for (DWORD i = 0, n = 300; RegEnumKeyExW(key, i, name, &n, nullptr, nullptr, nullptr, nullptr) == 0; ++i, n = 300)
        Dump(root, path + L"\\" + name, out, prefix + L"\\" + name);
    RegCloseKey(key);
}

class TabsPage : public ::testing::Test {
protected:
    void SetUp() override {
        InitCommonControlsForProgram();
        RemoveProductKeys();
        ClearTodayItems();
        g_app = AppState();
        g_app.instance = GetModuleHandleW(nullptr);
        g_app.pixelsPerInchX = g_app.pixelsPerInchY = 96;
        owner_ = CreateWindowExW(0, TestWindowClass(L"TabsOwner", DefWindowProcW), L"QL Options",
                                 WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 260, 340, nullptr, nullptr, g_app.instance,
                                 nullptr);
    }
    void TearDown() override {
        Close();
        DestroyWindow(owner_);
        if (g_app.languageLibrary) FreeLibrary(g_app.languageLibrary);
        g_app.languageLibrary = nullptr;
        RemoveProductKeys();
        ClearTodayItems();
    }
    static void ClearTodayItems() {
        wchar_t name[300];
        HKEY key;
        if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, kItems, 0, KEY_READ, &key) != ERROR_SUCCESS) return;
        std::set<std::wstring> names;
        for (DWORD i = 0, n = 300; RegEnumKeyExW(key, i, name, &n, nullptr, nullptr, nullptr, nullptr) == 0; ++i, n = 300)
            if (_wcsicmp(name, L"Quillory") != 0) names.insert(name);
        RegCloseKey(key);
        for (const std::wstring& item : names) RegRemoveTree(HKEY_LOCAL_MACHINE, (std::wstring(kItems) + L"\\" + item).c_str());
    }
    static std::wstring Item(const std::wstring& name) { return std::wstring(kItems) + L"\\" + name; }
    void Open(bool load = true) {
        if (load) LoadSettings();
        page_ = CreatePage(owner_, 10);
        ASSERT_NE(page_, nullptr);
    }
    void Close() {
        if (page_) DestroyWindow(page_->window());  // the page stores its values here
        delete page_;
        page_ = nullptr;
    }
    HWND Control(int number) { return page_->control(number); }
    void Click(int number) { SendMessageW(Control(number), BM_CLICK, 0, 0); }
    void Select(int row) { ListView_SetItemState(Control(kList), row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED); }
    bool Checked(int row) { return ListView_GetCheckState(Control(kList), row) != 0; }
    std::vector<std::wstring> Rows() { return ListTexts(Control(kList)); }
    TabEntry* Entry(DWORD kind, const wchar_t* name) { return g_settings.tabSettings.tabs.findByKindAndName(kind, name); }
    std::wstring Library(UINT id) {
        WString text;
        text.load(g_app.languageLibrary, id);
        return text.c_str();
    }
    // Clicks Add; `choose` runs in the chooser (given its window), `answer` (if any) answers the
    // message box that follows with its caption, text and the button to press.
    void Add(std::function<void(HWND)> choose, UINT caption = 0, const std::wstring& text = L"", int button = 0) {
        ModalScript script;
        HWND chooser = nullptr;
        script.Then([&] { return (chooser = ModalScript::FindDialog(L"Today Plug-in")) != nullptr; }).Then([&] {
            choose(chooser);
            return true;
        });
        if (caption)
            script.Then([&, caption] {
                HWND box = ModalScript::FindDialog(Library(caption).c_str());
                if (!box) return false;
                EXPECT_NE(StaticTexts(box).find(text + L"\n"), std::wstring::npos) << StaticTexts(box);
                PostMessageW(box, WM_COMMAND, button, 0);
                return true;
            });
        script.Play([&] { Click(kAdd); });
    }
    static std::vector<std::wstring> Offered(HWND chooser) {
        HWND combo = GetDlgItem(chooser, 1085);
        std::vector<std::wstring> names;
        for (int i = 0, n = ComboBox_GetCount(combo); i < n; ++i) {
            wchar_t text[300] = {};
            SendMessageW(combo, CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(text));
            names.push_back(text);
        }
        return names;
    }
    static std::function<void(HWND)> Pick(const std::wstring& name, int command = IDOK) {
        return [name, command](HWND chooser) {
            SendMessageW(GetDlgItem(chooser, 1085), CB_SELECTSTRING, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(name.c_str()));
            PostMessageW(chooser, WM_COMMAND, command, 0);
        };
    }

    HWND owner_ = nullptr;
    SettingsPage* page_ = nullptr;
};

TEST_F(TabsPage, RowsStoreOrdersFromTwoAndMovesCarryTheirCheckBoxes) {
    LoadSettings();
    TabList& tabs = g_settings.tabSettings.tabs;
    tabs.clear();
    tabs.add(kTabCalendar, 1, 1, L"Calendar");
    tabs.add(kTabTasks, 2, 1, L"Tasks");
    tabs.add(kTabNotes, 3, 0, L"Notes");
    tabs.add(kTabPlugIn, 4, 1, L"Clock");
    Open(false);
    EXPECT_EQ(Rows(), (std::vector<std::wstring>{L"Tasks", L"Notes", L"Clock"})) << "the calendar is not listed";
    Select(0);
    Click(kUp);
    Select(2);
    Click(kDown);
    EXPECT_EQ(Rows(), (std::vector<std::wstring>{L"Tasks", L"Notes", L"Clock"})) << "no move past either end";
    Select(0);
    Click(kDown);
    EXPECT_EQ(Rows(), (std::vector<std::wstring>{L"Notes", L"Tasks", L"Clock"}));
    EXPECT_FALSE(Checked(0));
    EXPECT_TRUE(Checked(1)) << "the check box moved with its tab";
    ListView_SetCheckState(Control(kList), 2, FALSE);
    Close();
    const std::pair<const wchar_t*, std::pair<DWORD, DWORD>> expected[] = {
        {L"Calendar", {1, 1}}, {L"Notes", {2, 0}}, {L"Tasks", {3, 1}}, {L"Clock", {4, 0}}};
    for (const auto& tab : expected)
        for (TabEntry* entry = tabs.head(); entry; entry = entry->next)
            if (entry->name.c_str() == std::wstring(tab.first))
                EXPECT_EQ(std::make_pair(entry->order, entry->enabled), tab.second) << tab.first;
}

TEST_F(TabsPage, OnlyAddedPlugInsCanBeRemovedAndTheDefaultTabRowsStore) {
    RegPutDword(HKEY_CURRENT_USER, (std::wstring(kTabsPath) + L"\\Clock").c_str(), L"Enabled", 1);
    RegPutDword(HKEY_CURRENT_USER, (std::wstring(kTabsPath) + L"\\News").c_str(), L"Type", 1);
    RegPutDword(HKEY_CURRENT_USER, kTabsPath, L"DfltTabTimeOut", 3);
    RegPutDword(HKEY_CURRENT_USER, kTabsPath, L"DfltTabOnStartup", 1);
    Open();
    std::vector<std::wstring> rows = Rows();
    ASSERT_EQ(rows.size(), 7u);
    EXPECT_FALSE(IsWindowEnabled(Control(kRemove))) << "nothing selected";
    for (int row : {0, 5, 6}) {
        Select(row);
        EXPECT_EQ(IsWindowEnabled(Control(kRemove)) != FALSE, rows[row] == L"News") << rows[row];
    }
    Select(rows[5] == L"News" ? 5 : 6);
    Click(kRemove);
    EXPECT_EQ(Rows().size(), 6u);
    EXPECT_EQ(Entry(kTabPlugInTyped, L"News"), nullptr);
    EXPECT_FALSE(IsWindowEnabled(Control(kRemove)));

    EXPECT_EQ(ComboBox_GetCurSel(Control(kTimeOut)), 3);
    EXPECT_TRUE(Button_GetCheck(Control(kAtStart)));
    ComboBox_SetCurSel(Control(kTimeOut), 6);
    ComboBox_SetCurSel(Control(kDefaultTab), 5);
    Click(kAtStart);
    Close();
    TabSettingsGroup& settings = g_settings.tabSettings;
    EXPECT_EQ(settings.DfltTabTimeOut.value, 6u);
    EXPECT_EQ(settings.DfltTab.value, 5u);
    EXPECT_EQ(settings.DfltTabOnStartup.value, 0u);
    SaveSettings();
    EXPECT_FALSE(RegKeyExists(HKEY_CURRENT_USER, (std::wstring(kTabsPath) + L"\\News").c_str())) << "removed tab";
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, (std::wstring(kTabsPath) + L"\\Clock").c_str(), L"Enabled", 1);
}

TEST_F(TabsPage, ChooserOffersOtherPlugInsOfType4AndWritesOnlyWhatTheUserConfirmed) {
    RegPutDword(HKEY_LOCAL_MACHINE, Item(L"Quillory").c_str(), L"Type", 4);
    for (const wchar_t* name : {L"Alpha", L"Beta", L"Clock"})
        RegPutDword(HKEY_LOCAL_MACHINE, Item(name).c_str(), L"Type", name[0] == L'C' ? 1 : 4);
    RegPutString(HKEY_LOCAL_MACHINE, Item(L"Alpha").c_str(), L"DLL", L"alpha.dll");
    RegPutDword(HKEY_LOCAL_MACHINE, Item(L"Beta").c_str(), L"Enabled", 0);
    RegPutDword(HKEY_LOCAL_MACHINE, Item(L"Beta").c_str(), L"DLL", 7);         // not a text
    RegPutString(HKEY_LOCAL_MACHINE, Item(L"Text").c_str(), L"Type", L"4");    // not a number
    RegPutString(HKEY_LOCAL_MACHINE, Item(L"Odd").c_str(), L"Enabled", L"1");  // not a number either
    RegPutDword(HKEY_LOCAL_MACHINE, Item(L"Odd").c_str(), L"Type", 4);
    RegPutDword(HKEY_LOCAL_MACHINE, Item(L"NoType").c_str(), L"Enabled", 1);
    Values before;
    Dump(HKEY_LOCAL_MACHINE, kItems, before);
    Open();
    int reloads = TodayReloadCount();

    std::vector<std::wstring> offered;
    Add([&](HWND chooser) { offered = Offered(chooser), Pick(L"Beta")(chooser); });
    EXPECT_EQ(std::set<std::wstring>(offered.begin(), offered.end()), (std::set<std::wstring>{L"Alpha", L"Beta", L"Odd"}));
    TabEntry* beta = Entry(kTabPlugInTyped, L"Beta");
    ASSERT_NE(beta, nullptr) << "off the Today screen already: no question";
    EXPECT_EQ(std::make_pair(beta->order, beta->enabled), std::make_pair(DWORD(9), DWORD(1)));
    EXPECT_EQ(Rows().back(), L"Beta");
    EXPECT_TRUE(Checked(static_cast<int>(Rows().size()) - 1));

    Add(Pick(L"Odd"));  // its Enabled is no number: no question, nothing written
    EXPECT_STREQ(Entry(kTabPlugInTyped, L"Odd")->dll.c_str(), L"") << "no DLL value";
    Add(Pick(L"Beta"), 40750, Library(40749), IDOK);
    Add(Pick(L"Alpha"), 40737, Library(40736), IDNO);
    Add(Pick(L"Alpha", IDCANCEL));
    EXPECT_EQ(Rows().size(), 7u) << "Beta and Odd; then refused, declined, cancelled";
    Values after;
    Dump(HKEY_LOCAL_MACHINE, kItems, after);
    EXPECT_EQ(after, before);
    EXPECT_EQ(TodayReloadCount(), reloads);

    Add(Pick(L"Alpha"), 40737, Library(40736), IDYES);
    ASSERT_NE(Entry(kTabPlugInTyped, L"Alpha"), nullptr);
    EXPECT_STREQ(Entry(kTabPlugInTyped, L"Alpha")->dll.c_str(), L"alpha.dll");
    EXPECT_EQ(TodayReloadCount(), reloads + 1);
    after.clear();
    Dump(HKEY_LOCAL_MACHINE, kItems, after);
    before[L"\\Alpha|Enabled"] = {REG_DWORD, std::string(4, '\0')};
    EXPECT_EQ(after, before);
}

TEST_F(TabsPage, ChooserWithNothingOrHundredsOfItems) {
    Open();
    Add([&](HWND chooser) {
        EXPECT_TRUE(Offered(chooser).empty());
        ModalScript inner;
        inner.Then([] {
            HWND box = ModalScript::FindDialog(L"Selection Missing");
            if (box) PostMessageW(box, WM_COMMAND, IDOK, 0);
            return box && StaticTexts(box).find(L"No Today screen plugin is selecetd. Please select a Today screen "
                                                L"plugin from the selection combo-box.\n") != std::wstring::npos;
        });
        inner.Play([&] { SendMessageW(chooser, WM_COMMAND, IDOK, 0); });
        EXPECT_TRUE(IsWindow(chooser)) << "the chooser stays";
        PostMessageW(chooser, WM_COMMAND, IDCANCEL, 0);
    });
    std::wstring longest(255, L'L');
    std::set<std::wstring> names = {longest};
    for (int i = 0; i < 300; ++i) names.insert(L"Item" + std::to_wstring(i));
    for (const std::wstring& name : names) RegPutDword(HKEY_LOCAL_MACHINE, Item(name).c_str(), L"Type", 4);
    std::vector<std::wstring> offered;
    Add([&](HWND chooser) { offered = Offered(chooser), Pick(longest)(chooser); }, 40737, Library(40736), IDYES);
    EXPECT_EQ(offered.size(), names.size()) << "none lost or twice";
    EXPECT_EQ(std::set<std::wstring>(offered.begin(), offered.end()), names);
    Close();
    SaveSettings();
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, (std::wstring(kTabsPath) + L"\\" + longest).c_str(), L"Type", 1);
    EXPECT_REG_DWORD(HKEY_LOCAL_MACHINE, Item(longest).c_str(), L"Enabled", 0);
}

TEST_F(TabsPage, ValuesRoundTripThroughBothSections) {
    std::wstring tabs = kTabsPath;
    const std::pair<const wchar_t*, DWORD> seeded[] = {
        {L"NotesTabOrder", 2}, {L"TasksTabOrder", 3}, {L"MailTabEnabled", 0}, {L"DfltTabTimeOut", 4},
        {L"DfltTab", 3}, {L"DfltTabOnStartup", 1}};
    for (const auto& value : seeded) RegPutDword(HKEY_CURRENT_USER, tabs.c_str(), value.first, value.second);
    RegPutDword(HKEY_CURRENT_USER, (tabs + L"\\Weather").c_str(), L"Order", 7);
    RegPutDword(HKEY_CURRENT_USER, (tabs + L"\\Weather").c_str(), L"Type", 1);
    RegPutDword(HKEY_CURRENT_USER, (tabs + L"\\Weather").c_str(), L"Enabled", 1);
    RegPutString(HKEY_CURRENT_USER, (tabs + L"\\Weather").c_str(), L"DLL", L"weather.dll");
    RegPutDword(HKEY_CURRENT_USER, (tabs + L"\\Contacts").c_str(), L"Kept", 5);
    Values before, after;
    Dump(HKEY_CURRENT_USER, tabs, before);
    Open();
    for (int section : {1, 0}) {
        NMHDR change = {page_->sectionTabs(), 0, static_cast<UINT>(TCN_SELCHANGING)};
        SendMessageW(page_->window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&change));
        TabCtrl_SetCurSel(page_->sectionTabs(), section);
        change.code = static_cast<UINT>(TCN_SELCHANGE);
        SendMessageW(page_->window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&change));
        EXPECT_TRUE(IsWindowVisible(Control(section ? kAtStart : kList)));
        EXPECT_FALSE(IsWindowVisible(Control(section ? kList : kAtStart)));
    }
    Close();
    SaveSettings();
    Dump(HKEY_CURRENT_USER, tabs, after);
    EXPECT_EQ(after, before);
}

}  // namespace
