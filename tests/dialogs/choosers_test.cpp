#include <random>

#include "common/bitmap_bytes.h"
#include "common/test_support.h"
#include "dialogs/browser_steps.h"
#include "dialogs/icon_chooser.h"
#include "files/icon_sets.h"
#include "settings/settings_test_util.h"
#include "shell/application.h"
#include "shell/item_icons.h"
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
        request_.extension.assign(L"qlsb");
        request_.description.assign(L"QL Settings Backup (qlsb)");
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
};

TEST_F(FileBrowserTest, ListsFoldersFirstThenFilesEndingInTheExtensionAndCancelKeepsAll) {
    Make({L"beta\\", L"Alpha\\", L"zed\\", L"Cargo.qlsb\\", L"\u00C4rger\\", L"b.qlsb", L"A.qlsb", L"data.QLSB",
          L"notes.txt", L"c.qlsb.txt", L"C.qlsb"});
    Texts folders = {L"Alpha", L"\u00C4rger", L"beta", L"Cargo.qlsb", L"zed"}, all = folders;
    all.insert(all.end(), {L"A.qlsb", L"b.qlsb", L"C.qlsb"});
    request_.initialName.assign(L"QL_Backup_2024_01_31");
    request_.result.assign(L"untouched");
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
            ActivateItem(b.list, L"x.qlsb");  // a file is only chosen with OK
            ActivateItem(b.list, L"inner");
            EXPECT_EQ(SelectedText(b.list), L"deep.qlsb");
            PressBack(b.dialog);
            PressBack(b.dialog);
            EXPECT_EQ(SelectedText(b.list), L"Backups") << "back in the parent, on the folder left";
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

using Pixels = std::vector<DWORD>;
const COLORREF kSetColour = RGB(200, 30, 60);

// Image `index` of the list drawn on black, row by row.
Pixels ImagePixels(HIMAGELIST images, int index) {
    int side = 0;
    ImageList_GetIconSize(images, &side, &side);
    DWORD* bits = nullptr;
    HBITMAP target = CreateTopDownDib(side, side, &bits);
    HDC dc = CreateCompatibleDC(nullptr);
    HGDIOBJ old = SelectObject(dc, target);
    ImageList_Draw(images, index, dc, 0, 0, ILD_NORMAL);
    GdiFlush();
    Pixels pixels(bits, bits + side * side);
    SelectObject(dc, old), DeleteDC(dc), DeleteObject(target);
    return pixels;
}

class IconChooser : public ::testing::Test {
protected:
    void SetUp() override {
        InitCommonControlsForProgram();
        RegRemoveTree(HKEY_CURRENT_USER, kIconSetKeyPath);
        LoadSettings();  // this takes the language library away: it is loaded after
        g_settings.productFolder.assign(folder_.path().c_str());
        g_app.languageLibrary = LoadLibraryW((TestBinDir() + L"\\QLEngRc.dll").c_str());
        g_app.displayLibrary = LoadLibraryW((TestBinDir() + L"\\LowDpiRes.dll").c_str());
    }
    void TearDown() override { FreeItemIcons(); }
    // Notes the chooser's entries and those drawn like entry `same`, picks `pick` and presses `command`.
    void Run(const wchar_t* title, const std::function<void()>& open, int pick, int command = IDOK, int same = 0) {
        ModalScript().Then([&] {
            HWND dialog = ModalScript::FindDialog(title), list = GetDlgItem(dialog, kIconChooserList);
            if (!list) return false;
            offered_ = ListTexts(list), selected_ = SelectedText(list), sameAs_.clear();
            auto picture = [list](int row) {
                LVITEMW item = {LVIF_IMAGE, row};
                ListView_GetItem(list, &item);
                return ImagePixels(ListView_GetImageList(list, LVSIL_NORMAL), item.iImage);
            };
            for (int row = 0; row < static_cast<int>(offered_.size()); ++row)
                if (picture(row) == picture(same)) sameAs_.push_back(offered_[row]);
            PickItem(list, pick);
            return PostMessageW(dialog, WM_COMMAND, command, 0) != FALSE;
        }).Play(open);
    }
    ScratchFolder folder_{L"icon_chooser"};
    Texts offered_, sameAs_;
    std::wstring selected_;
};

TEST_F(IconChooser, CategoryIconsShowBrokenPicturesAsNoneAndEachWayOfLeavingAnswers) {
    std::string good = PlainBitmap(12, 12, RGB(0, 0, 255));
    WriteBytes(folder_.file(L"Good.bmp"), good);
    WriteBytes(folder_.file(L"cut.bmp"), good.substr(0, good.size() - 7));
    WriteBytes(folder_.file(L"Text.bmp"), "not a bitmap");
    WriteBytes(folder_.file(L"Note.txt"), good);
    std::vector<WString> folders = {WString(L"C:\\no such folder"), WString(folder_.path().c_str())};
    std::wstring current = folder_.file(L"Good.bmp");
    WString chosen(L"unchanged");
    auto open = [&] { ChooseCategoryIcon(nullptr, folders, current.c_str(), &chosen); };

    Run(L"Category Icon", open, 3);
    EXPECT_EQ(offered_, (Texts{L"No icon", L"cut", L"Good", L"Text"}));
    EXPECT_EQ(selected_, L"Good") << "the current icon";
    EXPECT_EQ(sameAs_, (Texts{L"No icon", L"cut", L"Text"})) << "broken pictures look like none";
    EXPECT_EQ(chosen.c_str(), folder_.file(L"Text.bmp"));
    Run(L"Category Icon", open, 0, IDCANCEL);
    EXPECT_EQ(chosen.c_str(), folder_.file(L"Text.bmp")) << "cancelled";
    Run(L"Category Icon", open, -1);
    EXPECT_EQ(chosen.c_str(), current) << "nothing selected: the choice stays";
    Run(L"Category Icon", open, 0);
    EXPECT_STREQ(chosen.c_str(), L"") << "no icon";
}

TEST_F(IconChooser, TheChosenSetIsKeptAndDrawnByTheItemIconTable) {
    CreateDirectoryW(IconSetsFolder().c_str(), nullptr);
    auto strip = [](int x, int) { return x % 16 < 8 ? kSetColour : RGB(255, 0, 255); };
    WriteBytes(IconSetPath(L"Flat.bmp").c_str(), BitmapFileBytes(9 * 16, 16, strip));
    WriteBytes(IconSetPath(L"Short.bmp").c_str(), BitmapFileBytes(8 * 16, 16, strip));
    WriteBytes(IconSetPath(L"Junk.bmp").c_str(), "BM junk");
    auto open = [] { ChooseIconSet(nullptr); };

    Run(L"Icon Set", open, 1, IDOK, 2);
    EXPECT_EQ(offered_, (Texts{L"Standard", L"Flat", L"Junk", L"Short"}));
    EXPECT_EQ(selected_, L"Standard");
    EXPECT_EQ(sameAs_, (Texts{L"Junk", L"Short"})) << "eight icons are no set";
    EXPECT_REG_STRING(HKEY_CURRENT_USER, kIconSetKeyPath, kIconSetValueName, L"Flat.bmp");
    LoadItemIcons();
    ASSERT_EQ(ImageList_GetImageCount(ItemIcons()), 9);
    EXPECT_EQ(ColourOfDibPixel(ImagePixels(ItemIcons(), 8)[8 * 16 + 2]), kSetColour);

    Run(L"Icon Set", open, 3, IDCANCEL);
    EXPECT_EQ(selected_, L"Flat");
    Run(L"Icon Set", open, 0);
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kIconSetKeyPath, kIconSetValueName);
}

}  // namespace
