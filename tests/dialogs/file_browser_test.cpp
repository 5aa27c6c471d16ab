#include <random>

#include "browser_steps.h"
#include "common/test_support.h"
#include "support/app_state.h"

namespace {

using Step = std::function<bool(const BrowserWindows&)>;

class FileBrowserTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        g_app.instance = GetModuleHandleW(nullptr);
        g_app.languageLibrary = LoadLibraryW((TestBinDir() + L"\\QLEngRc.dll").c_str());
        g_app.displayLibrary = LoadLibraryW((TestBinDir() + L"\\LowDpiRes.dll").c_str());
    }
    void Make(std::initializer_list<std::wstring> names) {
        for (const std::wstring& name : names)
            if (name.back() == L'\\') CreateDirectoryW((root_ + name).c_str(), nullptr);
            else WriteBytes(root_ + name, "x");
    }
    // Opens the browser in `folder` while the steps play on it.
    bool Browse(BrowserKind kind, const std::wstring& folder, std::initializer_list<Step> steps) {
        static const wchar_t* const titles[] = {L"Load File", L"Save File", L"Select Folder"};
        SetBrowserLastFolder(folder.c_str());
        request_.kind = kind;
        const wchar_t* title = request_.title.c_str()[0] ? request_.title.c_str() : titles[static_cast<int>(kind)];
        BrowserWindows b = {};
        ModalScript script;
        script.Then([&] { return (b = FindBrowser(title)).dialog != nullptr; });
        for (const auto& step : steps) script.Then([&b, step] { return step(b); });
        bool confirmed = false;
        script.Play([&] { confirmed = RunFileBrowser(&request_); });
        return confirmed;
    }
    ScratchFolder scratch_{L"browser"};
    std::wstring root_ = scratch_.path() + L"\\";
    BrowserRequest request_;
    FileBrowserTest() {
        request_.extension.assign(L"qlsb");
        request_.description.assign(L"QL Settings Backup (qlsb)");
        request_.result.assign(L"untouched");
    }
};

TEST_F(FileBrowserTest, ListsFoldersFirstThenFilesEndingInTheExtensionAndCancelKeepsAll) {
    Make({L"beta\\", L"Alpha\\", L"zed\\", L"Cargo.qlsb\\", L"\u00C4rger\\", L"b.qlsb", L"A.qlsb", L"data.QLSB",
          L"notes.txt", L"c.qlsb.txt", L"C.qlsb"});
    Texts folders = {L"Alpha", L"\u00C4rger", L"beta", L"Cargo.qlsb", L"zed"}, all = folders;
    all.insert(all.end(), {L"A.qlsb", L"b.qlsb", L"C.qlsb"});
    request_.initialName.assign(L"QL_Backup_2024_01_31");
    for (BrowserKind kind : {BrowserKind::LoadFile, BrowserKind::SaveFile, BrowserKind::SelectFolder}) {
        bool save = kind == BrowserKind::SaveFile, foldersOnly = kind == BrowserKind::SelectFolder;
        EXPECT_FALSE(Browse(kind, root_, {[&](const BrowserWindows& b) {
            EXPECT_EQ(ListTexts(b.list), foldersOnly ? folders : all);
            EXPECT_EQ(SelectedText(b.list), L"Alpha");
            EXPECT_EQ(WindowText(b.path) + L"|" + WindowText(b.extension) + L"|" + WindowText(b.name),
                      root_ + (foldersOnly ? L"||" : save ? L"|QL Settings Backup (qlsb)|QL_Backup_2024_01_31"
                                                          : L"|QL Settings Backup (qlsb)|"));
            EXPECT_EQ(GetFocus(), save ? b.name : b.list);
            ActivateItem(b.list, L"Alpha");
            return Press(b.dialog, IDCANCEL);
        }})) << static_cast<int>(kind);
        EXPECT_STREQ(request_.result.c_str(), L"untouched");
        EXPECT_EQ(BrowserLastFolder().c_str(), root_) << "Cancel keeps the last folder";
    }
}

TEST_F(FileBrowserTest, WalkingThroughFoldersThenOkInLoadFileAndSelectFolder) {
    Make({L"Archive\\", L"Backups\\", L"Backups\\inner\\", L"Backups\\first\\", L"Backups\\x.qlsb",
          L"Backups\\inner\\deep.qlsb"});
    request_.title.assign(L"Import QL Settings");
    EXPECT_TRUE(Browse(BrowserKind::LoadFile, root_ + L"Backups\\", {
        [&](const BrowserWindows& b) {
            EXPECT_EQ(ListTexts(b.list), (Texts{L"first", L"inner", L"x.qlsb"}));
            ActivateItem(b.list, L"x.qlsb");  // a file is only chosen with OK
            ActivateItem(b.list, L"inner");
            EXPECT_EQ(SelectedText(b.list), L"deep.qlsb");
            PressBack(b.dialog);
            EXPECT_EQ(SelectedText(b.list), L"inner");
            PressBack(b.dialog);
            EXPECT_EQ(ListTexts(b.list), (Texts{L"Archive", L"Backups"}));
            EXPECT_EQ(SelectedText(b.list), L"Backups");
            return Press(b.dialog, IDOK);  // a folder is selected: nothing happens
        },
        [](auto& b) { return ActivateItem(b.list, L"Backups"), PickItem(b.list, 2), Press(b.dialog, IDOK); },
    }));
    EXPECT_EQ(request_.result.c_str(), root_ + L"Backups\\x.qlsb");
    EXPECT_EQ(BrowserLastFolder().c_str(), root_ + L"Backups\\");

    EXPECT_TRUE(Browse(BrowserKind::SelectFolder, root_ + L"gone\\", {[&](const BrowserWindows& b) {
        EXPECT_EQ(ListTexts(b.list), Texts{}) << "an unlistable folder, and no message about it";
        EXPECT_EQ(ModalScript::ThreadDialogs(nullptr).size(), 1u);
        PressBack(b.dialog);
        ActivateItem(b.list, L"Archive");
        return Press(b.dialog, IDOK);
    }}));
    EXPECT_EQ(request_.result.c_str(), root_ + L"Archive\\");
}

// Each name brings its message (in the caller's texts every other time) or ends as folder + name + ".qlsb".
TEST_F(FileBrowserTest, SaveFileNameRulesOnSeededNames) {
    Texts names = {L"", L"bad?name", L"sub\\x", L"backup.qlsb"};
    std::mt19937 random(20240131);
    for (int i = 0; i < 8; ++i) {
        names.emplace_back(random() % 6, L' ');
        for (wchar_t& c : names.back()) c = L"/:*?\"<>|\\ ab.Z"[random() % 14];
    }
    size_t next = 0;
    for (bool own = false; next < names.size(); own = !own) {
        request_.illegalNameMessage.assign(own ? L"Not like that" : L"");
        request_.errorCaption.assign(own ? L"Name trouble" : L"");
        std::wstring expected, message;
        bool confirmed = Browse(BrowserKind::SaveFile, root_, {[&](const BrowserWindows& b) {
            HWND box = ModalScript::FindDialog(own ? L"Name trouble" : L"File Name Error");
            if (box && !message.empty()) {
                EXPECT_NE(StaticTexts(box).find(message), std::wstring::npos) << "name " << next;
                PostMessageW(box, WM_COMMAND, IDOK, 0), message.clear();
            }
            if (box || !message.empty()) return false;
            if (next == names.size()) return Press(b.dialog, IDCANCEL);
            const std::wstring& name = names[next++];
            SetWindowTextW(b.name, name.c_str());
            Press(b.dialog, IDOK);
            if (name.empty()) message = L"File name value is missing";
            else if (name.find_first_of(L"/:*?\"<>|") != std::wstring::npos)
                message = own ? L"Not like that" : L"File name include illegal characters";
            else expected = root_ + name + L".qlsb";
            return !expected.empty();
        }});
        EXPECT_EQ(confirmed ? std::wstring(request_.result.c_str()) : L"", expected);
    }
}

}  // namespace
