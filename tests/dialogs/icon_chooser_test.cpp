#include "common/bitmap_bytes.h"
#include "dialogs/browser_steps.h"
#include "dialogs/icon_chooser.h"
#include "files/icon_sets.h"
#include "settings/settings_test_util.h"
#include "shell/application.h"
#include "shell/item_icons.h"
#include "support/app_state.h"

namespace {

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
    void TearDown() override {
        FreeItemIcons();
        for (HMODULE* library : {&g_app.languageLibrary, &g_app.displayLibrary}) FreeLibrary(*library), *library = 0;
    }
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
