// The file and folder browser on real folders: what is listed and in which order, moving into and
// out of folders, OK and Cancel in each variant, the name checks of Save File, and the folder the
// next browser opens in.
#include <windows.h>
#include <commctrl.h>

#include <random>
#include <string>
#include <vector>

#include "browser_steps.h"
#include "common/test_support.h"
#include "dialogs/file_browser.h"
#include "modal_script.h"
#include "support/app_state.h"

namespace {

using Texts = std::vector<std::wstring>;

class FileBrowserTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        g_app.instance = GetModuleHandleW(nullptr);
        g_app.languageLibrary = LoadLibraryW((TestBinDir() + L"\\QLEngRc.dll").c_str());
        g_app.displayLibrary = LoadLibraryW((TestBinDir() + L"\\LowDpiRes.dll").c_str());
    }

    static void MakeFolder(const std::wstring& path) { CreateDirectoryW(path.c_str(), nullptr); }
    static void MakeFile(const std::wstring& path) { WriteBytes(path, "x"); }

    static BrowserRequest Request(BrowserKind kind) {
        BrowserRequest request;
        request.kind = kind;
        request.extension.assign(L"qlsb");
        request.description.assign(L"QL Settings Backup (qlsb)");
        request.result.assign(L"untouched");
        return request;
    }
};

std::wstring Slash(const std::wstring& folder) { return folder + L"\\"; }

// Every item shows a shell icon; all folders share one, so do all files of one type, and the
// image list holds nothing else.
void ExpectOneIconPerKind(HWND list) {
    int folderImage = -1;
    int fileImage = -1;
    for (int i = 0; i < ListView_GetItemCount(list); ++i) {
        LVITEMW item = {};
        item.mask = LVIF_IMAGE | LVIF_PARAM;
        item.iItem = i;
        ListView_GetItem(list, &item);
        EXPECT_GE(item.iImage, 0) << "item " << i;
        int& shared = (item.lParam & FileBrowserDialog::kFolderBit) ? folderImage : fileImage;
        if (shared < 0) shared = item.iImage;
        EXPECT_EQ(item.iImage, shared) << "item " << i;
    }
    if (folderImage >= 0 && fileImage >= 0) EXPECT_NE(folderImage, fileImage);
    int kinds = (folderImage >= 0) + (fileImage >= 0);
    EXPECT_EQ(ImageList_GetImageCount(ListView_GetImageList(list, LVSIL_SMALL)), kinds);
}

}  // namespace

TEST_F(FileBrowserTest, ListsFoldersFirstThenFilesEndingInTheExtension) {
    ScratchFolder root(L"browser_order");
    std::wstring longName(200, L'm');
    for (const wchar_t* folder : {L"beta", L"Alpha", L"zed", L"Cargo.qlsb", longName.c_str(), L"\u00C4rger"})
        MakeFolder(root.file(folder));
    for (const wchar_t* file : {L"b.qlsb", L"A.qlsb", L"data.QLSB", L"notes.txt", L"c.qlsb.txt", L"C.qlsb"})
        MakeFile(root.file(file));
    Texts folders = {L"Alpha", L"\u00C4rger", L"beta", L"Cargo.qlsb", longName, L"zed"};
    Texts withFiles = folders;
    for (const wchar_t* file : {L"A.qlsb", L"b.qlsb", L"C.qlsb"}) withFiles.push_back(file);

    struct Case {
        BrowserKind kind;
        const wchar_t* title;
        Texts expected;
    } cases[] = {{BrowserKind::LoadFile, L"Load File", withFiles},
                 {BrowserKind::SaveFile, L"Save File", withFiles},
                 {BrowserKind::SelectFolder, L"Select Folder", folders}};
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.title, c.title + wcslen(c.title)));
        SetBrowserLastFolder(root.path().c_str());
        BrowserRequest request = Request(c.kind);
        ModalScript script;
        script.Then([&] {
            BrowserWindows browser = FindBrowser(c.title);
            if (!browser.dialog) return false;
            EXPECT_EQ(ListTexts(browser.list), c.expected);
            EXPECT_EQ(SelectedText(browser.list), c.expected.front());
            EXPECT_EQ(WindowText(browser.path), Slash(root.path()));
            EXPECT_EQ(browser.extension != nullptr, c.kind != BrowserKind::SelectFolder);
            EXPECT_EQ(browser.name != nullptr, c.kind == BrowserKind::SaveFile);
            if (browser.extension) {
                EXPECT_EQ(WindowText(browser.extension), L"QL Settings Backup (qlsb)");
            }
            EXPECT_EQ(GetFocus(), c.kind == BrowserKind::SaveFile ? browser.name : browser.list);
            ExpectOneIconPerKind(browser.list);
            PressCancel(browser.dialog);
            return true;
        });
        bool confirmed = true;
        script.Play([&] { confirmed = RunFileBrowser(&request); });
        EXPECT_FALSE(confirmed);
    }
}

TEST_F(FileBrowserTest, EnteringAFolderAndGoingUpLeavesTheFolderSelected) {
    ScratchFolder root(L"browser_walk");
    MakeFolder(root.file(L"Backups"));
    MakeFolder(root.file(L"Archive"));
    MakeFolder(root.file(L"Other"));
    MakeFolder(root.file(L"Backups\\inner"));
    MakeFolder(root.file(L"Backups\\first"));
    MakeFile(root.file(L"Backups\\x.qlsb"));
    MakeFile(root.file(L"Backups\\inner\\deep.qlsb"));
    std::wstring backups = Slash(root.file(L"Backups"));
    SetBrowserLastFolder(backups.c_str());

    BrowserRequest request = Request(BrowserKind::LoadFile);
    request.title.assign(L"Import QL Settings");
    ModalScript script;
    BrowserWindows browser;
    script
        .Then([&] {
            browser = FindBrowser(L"Import QL Settings");
            if (!browser.dialog) return false;
            EXPECT_EQ(ListTexts(browser.list), (Texts{L"first", L"inner", L"x.qlsb"}));
            ActivateItem(browser.list, L"x.qlsb");  // a file is only chosen with OK
            EXPECT_EQ(WindowText(browser.path), backups);
            ActivateItem(browser.list, L"inner");
            EXPECT_EQ(WindowText(browser.path), backups + L"inner\\");
            EXPECT_EQ(ListTexts(browser.list), Texts{L"deep.qlsb"});
            EXPECT_EQ(SelectedText(browser.list), L"deep.qlsb");
            SendMessageW(browser.dialog, WM_HOTKEY, 0, MAKELPARAM(0, VK_ESCAPE));  // pressed, not released
            EXPECT_EQ(WindowText(browser.path), backups + L"inner\\");
            PressBack(browser.dialog);
            EXPECT_EQ(WindowText(browser.path), backups);
            EXPECT_EQ(SelectedText(browser.list), L"inner");
            EXPECT_EQ(GetFocus(), browser.list);
            TapUpFolder(browser);
            EXPECT_EQ(WindowText(browser.path), Slash(root.path()));
            EXPECT_EQ(ListTexts(browser.list), (Texts{L"Archive", L"Backups", L"Other"}));
            ExpectOneIconPerKind(browser.list);  // each fill starts a new image list
            EXPECT_EQ(SelectedText(browser.list), L"Backups");
            PressCancel(browser.dialog);
            return true;
        });
    bool confirmed = true;
    script.Play([&] { confirmed = RunFileBrowser(&request); });
    EXPECT_FALSE(confirmed);
    EXPECT_STREQ(request.result.c_str(), L"untouched");
    EXPECT_STREQ(BrowserLastFolder().c_str(), backups.c_str()) << "Cancel keeps the last folder";
}

TEST_F(FileBrowserTest, GoingUpStopsAtARoot) {
    for (const wchar_t* rootFolder : {L"C:\\", L"\\"}) {
        SetBrowserLastFolder(rootFolder);
        BrowserRequest request = Request(BrowserKind::SelectFolder);
        ModalScript script;
        script.Then([&] {
            BrowserWindows browser = FindBrowser(L"Select Folder");
            if (!browser.dialog) return false;
            Texts before = ListTexts(browser.list);
            EXPECT_FALSE(before.empty());
            PressBack(browser.dialog);
            TapUpFolder(browser);
            EXPECT_EQ(WindowText(browser.path), rootFolder);
            EXPECT_EQ(ListTexts(browser.list), before);
            PressOk(browser.dialog);
            return true;
        });
        bool confirmed = false;
        script.Play([&] { confirmed = RunFileBrowser(&request); });
        EXPECT_TRUE(confirmed);
        EXPECT_STREQ(request.result.c_str(), rootFolder);
    }
}

TEST_F(FileBrowserTest, LoadFileOkTakesOnlyASelectedFile) {
    ScratchFolder root(L"browser_load");
    MakeFolder(root.file(L"sub"));
    MakeFile(root.file(L"a.qlsb"));
    MakeFolder(root.file(L"start"));
    SetBrowserLastFolder(root.file(L"start").c_str());

    BrowserRequest request = Request(BrowserKind::LoadFile);
    ModalScript script;
    BrowserWindows browser;
    script
        .Then([&] {
            browser = FindBrowser(L"Load File");
            if (!browser.dialog) return false;
            TapUpFolder(browser);
            EXPECT_EQ(SelectedText(browser.list), L"start");
            PressOk(browser.dialog);  // a folder is selected: nothing happens
            return true;
        })
        .Then([&] {
            EXPECT_TRUE(IsWindow(browser.dialog));
            PickItem(browser.list, -1);
            PressOk(browser.dialog);  // nothing selected: nothing happens
            return true;
        })
        .Then([&] {
            EXPECT_TRUE(IsWindow(browser.dialog));
            EXPECT_EQ(WindowText(browser.path), Slash(root.path()));
            PickItem(browser.list, FindItem(browser.list, L"a.qlsb"));
            PressOk(browser.dialog);
            return true;
        });
    bool confirmed = false;
    script.Play([&] { confirmed = RunFileBrowser(&request); });
    EXPECT_TRUE(confirmed);
    EXPECT_EQ(std::wstring(request.result.c_str()), root.file(L"a.qlsb"));
    EXPECT_EQ(std::wstring(BrowserLastFolder().c_str()), Slash(root.path()));
}

TEST_F(FileBrowserTest, SaveFileRefusesEmptyAndIllegalNamesAndAppendsTheExtension) {
    ScratchFolder root(L"browser_save");
    SetBrowserLastFolder(root.path().c_str());
    BrowserRequest request = Request(BrowserKind::SaveFile);
    request.initialName.assign(L"QL_Backup_2024_01_31");
    ModalScript script;
    BrowserWindows browser;
    auto typeAndOk = [&](const wchar_t* name) {
        SetWindowTextW(browser.name, name);
        PressOk(browser.dialog);
        return true;
    };
    auto answerMessage = [&](const wchar_t* expected) {
        return [&, expected] {
            HWND box = ModalScript::FindDialog(L"File Name Error");
            if (!box) return false;
            EXPECT_NE(StaticTexts(box).find(expected), std::wstring::npos) << "got: "
                                                                           << std::string(StaticTexts(box).begin(),
                                                                                          StaticTexts(box).end());
            PostMessageW(box, WM_COMMAND, IDOK, 0);
            return true;
        };
    };
    auto stillOpen = [&] {
        if (ModalScript::FindDialog(L"File Name Error")) return false;
        EXPECT_TRUE(IsWindowVisible(browser.dialog));
        return true;
    };
    script
        .Then([&] {
            browser = FindBrowser(L"Save File");
            if (!browser.dialog) return false;
            EXPECT_EQ(WindowText(browser.name), L"QL_Backup_2024_01_31");
            return typeAndOk(L"");
        })
        .Then(answerMessage(L"File name value is missing"))
        .Then(stillOpen)
        .Then([&] { return typeAndOk(L"bad?name"); })
        .Then(answerMessage(L"File name include illegal characters"))
        .Then(stillOpen)
        .Then([&] { return typeAndOk(L"backup.qlsb"); });
    bool confirmed = false;
    script.Play([&] { confirmed = RunFileBrowser(&request); });
    EXPECT_TRUE(confirmed);
    EXPECT_EQ(std::wstring(request.result.c_str()), root.file(L"backup.qlsb.qlsb"));
}

TEST_F(FileBrowserTest, SaveFileUsesTheCallersTextsAndAllowsABackslash) {
    ScratchFolder root(L"browser_save_texts");
    SetBrowserLastFolder(root.path().c_str());
    BrowserRequest request = Request(BrowserKind::SaveFile);
    request.title.assign(L"Export QL Settings");
    request.illegalNameMessage.assign(L"Not like that");
    request.errorCaption.assign(L"Name trouble");
    ModalScript script;
    BrowserWindows browser;
    script
        .Then([&] {
            browser = FindBrowser(L"Export QL Settings");
            if (!browser.dialog) return false;
            SetWindowTextW(browser.name, L"a|b");
            PressOk(browser.dialog);
            return true;
        })
        .Then([&] {
            HWND box = ModalScript::FindDialog(L"Name trouble");
            if (!box) return false;
            EXPECT_NE(StaticTexts(box).find(L"Not like that"), std::wstring::npos);
            PostMessageW(box, WM_COMMAND, IDOK, 0);
            return true;
        })
        .Then([&] {
            if (ModalScript::FindDialog(L"Name trouble")) return false;
            SetWindowTextW(browser.name, L"sub\\x");
            PressOk(browser.dialog);
            return true;
        });
    bool confirmed = false;
    script.Play([&] { confirmed = RunFileBrowser(&request); });
    EXPECT_TRUE(confirmed);
    EXPECT_EQ(std::wstring(request.result.c_str()), root.file(L"sub\\x.qlsb"));
}

// Seeded names from an alphabet of every refused character, the backslash and ordinary ones:
// each either brings the right message or ends the dialog with exactly that name.
TEST_F(FileBrowserTest, SaveFileNameChecksOnSeededNames) {
    ScratchFolder root(L"browser_save_seeded");
    std::mt19937 random(20240131);
    const std::wstring alphabet = L"/:*?\"<>|\\ ab.Z";
    std::vector<std::wstring> names;
    for (int i = 0; i < 40; ++i) {
        std::wstring name;
        int length = static_cast<int>(random() % 6);
        for (int k = 0; k < length; ++k) name += alphabet[random() % alphabet.size()];
        names.push_back(name);
    }
    auto refused = [](const std::wstring& name) {
        return name.empty() || name.find_first_of(L"/:*?\"<>|") != std::wstring::npos;
    };
    size_t next = 0;
    int accepted = 0;
    while (next < names.size()) {
        SetBrowserLastFolder(root.path().c_str());
        BrowserRequest request = Request(BrowserKind::SaveFile);
        std::wstring expectedResult;
        const wchar_t* expectedMessage = nullptr;
        // One step that types names until one is accepted (or the names run out): after each
        // refused name it answers the message box and types the next.
        ModalScript script;
        script.Then([&] {
            HWND dialog = FindBrowser(L"Save File").dialog;
            HWND box = ModalScript::FindDialog(L"File Name Error");
            if (!dialog) return false;
            if (expectedMessage) {
                if (!box) return false;
                EXPECT_NE(StaticTexts(box).find(expectedMessage), std::wstring::npos);
                PostMessageW(box, WM_COMMAND, IDOK, 0);
                expectedMessage = nullptr;
                return false;
            }
            if (box) return false;
            if (next == names.size()) {
                PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
                return true;
            }
            const std::wstring& name = names[next++];
            SetDlgItemTextW(dialog, kBrowserNameField, name.c_str());
            PostMessageW(dialog, WM_COMMAND, IDOK, 0);
            if (!refused(name)) {
                expectedResult = Slash(root.path()) + name + L".qlsb";
                return true;
            }
            expectedMessage = name.empty() ? L"File name value is missing" : L"File name include illegal characters";
            return false;
        });
        bool confirmed = false;
        script.Play([&] { confirmed = RunFileBrowser(&request); });
        EXPECT_EQ(confirmed, !expectedResult.empty());
        if (confirmed) {
            ++accepted;
            EXPECT_EQ(std::wstring(request.result.c_str()), expectedResult);
        }
    }
    EXPECT_GT(accepted, 0) << "the seed should give some acceptable names too";
}

TEST_F(FileBrowserTest, SaveFileUpKeyOnTheFirstItemGoesToTheNameField) {
    ScratchFolder root(L"browser_save_keys");
    MakeFolder(root.file(L"one"));
    MakeFolder(root.file(L"two"));
    SetBrowserLastFolder(root.path().c_str());
    BrowserRequest request = Request(BrowserKind::SaveFile);
    ModalScript script;
    script.Then([&] {
        BrowserWindows browser = FindBrowser(L"Save File");
        if (!browser.dialog) return false;
        SetFocus(browser.list);
        PickItem(browser.list, 1);
        SendMessageW(browser.list, WM_KEYDOWN, VK_UP, 0);
        EXPECT_EQ(GetFocus(), browser.list) << "Up from the second item stays in the list";
        EXPECT_EQ(SelectedText(browser.list), L"one");
        SendMessageW(browser.list, WM_KEYDOWN, VK_UP, 0);
        EXPECT_EQ(GetFocus(), browser.name);
        PressCancel(browser.dialog);
        return true;
    });
    script.Play([&] { RunFileBrowser(&request); });
}

TEST_F(FileBrowserTest, SelectFolderReturnsTheFolderWhereTheNextBrowserOpens) {
    ScratchFolder root(L"browser_folder");
    MakeFolder(root.file(L"Skins"));
    MakeFile(root.file(L"Skins\\s.qlsb"));
    SetBrowserLastFolder(root.path().c_str());
    BrowserRequest request = Request(BrowserKind::SelectFolder);
    request.title.assign(L"Select Skin Path");
    bool confirmed = BrowseOnce(&request, L"Select Skin Path", [&](const BrowserWindows& browser) {
        ActivateItem(browser.list, L"Skins");
        EXPECT_TRUE(ListTexts(browser.list).empty()) << "files are not offered";
        PressOk(browser.dialog);
    });
    EXPECT_TRUE(confirmed);
    std::wstring skins = Slash(root.file(L"Skins"));
    EXPECT_EQ(std::wstring(request.result.c_str()), skins);
    EXPECT_EQ(std::wstring(BrowserLastFolder().c_str()), skins);

    BrowserRequest next = Request(BrowserKind::LoadFile);
    BrowseOnce(&next, L"Load File", [&](const BrowserWindows& browser) {
        EXPECT_EQ(WindowText(browser.path), skins);
        EXPECT_EQ(ListTexts(browser.list), Texts{L"s.qlsb"});
        PressCancel(browser.dialog);
    });
}

TEST_F(FileBrowserTest, AnUnlistableFolderGivesAnEmptyListAndNoMessage) {
    ScratchFolder root(L"browser_missing");
    MakeFolder(root.file(L"here"));
    std::wstring missing = Slash(root.file(L"gone"));
    SetBrowserLastFolder(missing.c_str());
    BrowserRequest request = Request(BrowserKind::LoadFile);
    ModalScript script;
    script.Then([&] {
        BrowserWindows browser = FindBrowser(L"Load File");
        if (!browser.dialog) return false;
        EXPECT_EQ(ListTexts(browser.list), Texts{});
        EXPECT_EQ(WindowText(browser.path), missing);
        EXPECT_EQ(ModalScript::ThreadDialogs(nullptr).size(), 1u) << "no message box";
        PressOk(browser.dialog);  // nothing to take
        return true;
    }).Then([&] {
        BrowserWindows browser = FindBrowser(L"Load File");
        EXPECT_TRUE(browser.dialog);
        if (!browser.dialog) return true;
        PressBack(browser.dialog);
        EXPECT_EQ(ListTexts(browser.list), Texts{L"here"});
        PressCancel(browser.dialog);
        return true;
    });
    bool confirmed = true;
    script.Play([&] { confirmed = RunFileBrowser(&request); });
    EXPECT_FALSE(confirmed);
    EXPECT_STREQ(request.result.c_str(), L"untouched");
}
