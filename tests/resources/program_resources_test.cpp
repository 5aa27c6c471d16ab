// The program's own resources (icon, accelerators, dialog templates) and the images of the two
// display libraries, read from the built files the way the program loads them.
#include <set>
#include <string>
#include <vector>

#include "common/test_support.h"

#include <commctrl.h>

#include "display/display_ids.h"
#include "program_ids.h"
#include "string_ids.h"

namespace {

// ---- Program module --------------------------------------------------------------------------
class ProgramModule : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        module_ = LoadLibraryExW((TestBinDir() + L"\\ql_options.exe").c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    }
    static void TearDownTestSuite() {
        if (module_) FreeLibrary(module_);
        module_ = nullptr;
    }
    void SetUp() override { ASSERT_NE(module_, nullptr) << "ql_options.exe beside the test program"; }

    static const BYTE* Resource(const wchar_t* type, UINT id, DWORD* size) {
        HRSRC found = FindResourceW(module_, MAKEINTRESOURCEW(id), type);
        if (!found) return nullptr;
        *size = SizeofResource(module_, found);
        return static_cast<const BYTE*>(LockResource(LoadResource(module_, found)));
    }

    static HMODULE module_;
};

HMODULE ProgramModule::module_ = nullptr;

#pragma pack(push, 2)
struct IconGroupHeader {
    WORD reserved;
    WORD type;
    WORD count;
};
struct IconGroupEntry {
    BYTE width;
    BYTE height;
    BYTE colours;
    BYTE reserved;
    WORD planes;
    WORD bitCount;
    DWORD bytes;
    WORD id;
};
#pragma pack(pop)

TEST_F(ProgramModule, IconHasSmallAndLargeImagesWithAlpha) {
    DWORD size = 0;
    const BYTE* group = Resource(RT_GROUP_ICON, IDI_PROGRAM, &size);
    ASSERT_NE(group, nullptr);
    const auto* header = reinterpret_cast<const IconGroupHeader*>(group);
    ASSERT_EQ(header->type, 1);
    ASSERT_EQ(size, sizeof(IconGroupHeader) + header->count * sizeof(IconGroupEntry));
    std::set<int> sizes;
    const auto* entries = reinterpret_cast<const IconGroupEntry*>(group + sizeof(IconGroupHeader));
    for (int i = 0; i < header->count; ++i) {
        sizes.insert(entries[i].width);
        EXPECT_EQ(entries[i].bitCount, 32);
        DWORD imageSize = 0;
        const BYTE* image = Resource(RT_ICON, entries[i].id, &imageSize);
        ASSERT_NE(image, nullptr) << "image " << entries[i].id;
        EXPECT_EQ(imageSize, entries[i].bytes);
        // A BITMAPINFOHEADER of the image and its mask, stacked (twice the height).
        const auto* info = reinterpret_cast<const BITMAPINFOHEADER*>(image);
        EXPECT_EQ(info->biWidth, entries[i].width);
        EXPECT_EQ(info->biHeight, 2 * entries[i].width);
    }
    EXPECT_EQ(sizes, (std::set<int>{16, 32}));
}

TEST_F(ProgramModule, AcceleratorsSendNoCommandThatEndsTheProgram) {
    HACCEL table = LoadAcceleratorsW(module_, L"QL_OPTIONS");
    ASSERT_NE(table, nullptr);
    ACCEL entries[16];
    int count = CopyAcceleratorTableW(table, entries, 16);
    ASSERT_GE(count, 1);
    bool about = false;
    for (int i = 0; i < count; ++i) {
        EXPECT_NE(entries[i].cmd, IDM_DONE) << "Done saves and ends the program";
        EXPECT_NE(entries[i].cmd, IDM_CANCEL);
        EXPECT_NE(entries[i].cmd, IDM_IMPORT_SETTINGS) << "import ends the program";
        if (entries[i].cmd == IDM_ABOUT && entries[i].key == VK_F1) about = true;
    }
    EXPECT_TRUE(about);
    DestroyAcceleratorTable(table);
}

INT_PTR CALLBACK QuietDialogProc(HWND, UINT, WPARAM, LPARAM) { return FALSE; }

std::wstring ClassOf(HWND window) {
    wchar_t name[64] = {};
    GetClassNameW(window, name, 64);
    return name;
}

struct ExpectedControl {
    int id;
    const wchar_t* windowClass;
};

struct ExpectedDialog {
    UINT id;
    std::vector<ExpectedControl> controls;
};

const std::vector<ExpectedDialog>& ExpectedDialogs() {
    static const std::vector<ExpectedDialog> dialogs = {
        {IDD_FONT_DIALOG,
         {{IDC_FONT_BOLD, L"Button"}, {IDC_FONT_ITALIC, L"Button"}, {IDC_FONT_UNDERLINE, L"Button"},
          {IDC_FONT_STRIKEOUT, L"Button"}, {IDC_FONT_SIZE_COMBO, L"ComboBox"}, {IDC_FONT_SIZE_LABEL, L"Static"},
          {IDC_FONT_COLOR_LABEL, L"Static"}, {IDC_FONT_SET_COLOR, L"Button"}}},
        {IDD_FILTER_NAME,
         {{IDC_FILTER_NAME_LABEL, L"Static"}, {IDC_FILTER_NAME_EDIT, L"Edit"}, {IDOK, L"Button"},
          {IDCANCEL, L"Button"}}},
        {IDD_TODAY_PLUGIN_CHOOSER,
         {{IDC_PLUGIN_COMBO, L"ComboBox"}, {IDC_PLUGIN_INTRO, L"Static"}, {IDC_PLUGIN_NOTE, L"Static"}}},
        {IDD_ALPHABET_SELECTION, {}},
        {IDD_ICON_CHOOSER, {}},
    };
    return dialogs;
}

TEST_F(ProgramModule, DialogTemplatesCreateTheControlsTheProgramAddresses) {
    for (const ExpectedDialog& expected : ExpectedDialogs()) {
        SCOPED_TRACE(testing::Message() << "dialog " << expected.id);
        DWORD size = 0;
        const BYTE* bytes = Resource(RT_DIALOG, expected.id, &size);
        ASSERT_NE(bytes, nullptr);
        ASSERT_GE(size, sizeof(DLGTEMPLATE));
        const auto* header = reinterpret_cast<const DLGTEMPLATE*>(bytes);
        ASSERT_NE(*reinterpret_cast<const WORD*>(bytes + 2), 0xFFFF) << "plain template, not extended";
        EXPECT_EQ(header->dwExtendedStyle & 0x80000000u, 0u) << "0x80000000 is no caption OK button here";
        EXPECT_EQ(static_cast<size_t>(header->cdit), expected.controls.size());

        HWND dialog = CreateDialogIndirectParamW(GetModuleHandleW(nullptr),
                                                 reinterpret_cast<const DLGTEMPLATE*>(bytes), nullptr,
                                                 QuietDialogProc, 0);
        ASSERT_NE(dialog, nullptr) << GetLastError();
        for (const ExpectedControl& control : expected.controls) {
            HWND child = GetDlgItem(dialog, control.id);
            ASSERT_NE(child, nullptr) << "control " << control.id;
            EXPECT_EQ(_wcsicmp(ClassOf(child).c_str(), control.windowClass), 0) << "control " << control.id;
        }
        DestroyWindow(dialog);
    }
}

// ---- Display libraries -------------------------------------------------------------------------
struct ImageSpec {
    UINT id;
    int imageWidth;  // at 96 dpi
    int imageHeight;
    int images;
    COLORREF mask;
};

const ImageSpec kImages[] = {
    {IDB_MENU_BUTTONS, QL_MENU_BUTTON_SIZE, QL_MENU_BUTTON_SIZE, 2, QL_MENU_BUTTON_MASK},
    {IDB_PAGE_ICONS, QL_PAGE_ICON_SIZE, QL_PAGE_ICON_SIZE, QL_PAGE_ICON_COUNT, QL_PAGE_ICON_MASK},
    {IDB_UP_FOLDER, QL_UP_FOLDER_SIZE, QL_UP_FOLDER_SIZE, 1, QL_UP_FOLDER_MASK},
    {IDB_ITEM_ICONS, QL_ITEM_ICON_SIZE, QL_ITEM_ICON_SIZE, QL_ITEM_ICON_COUNT, QL_ITEM_ICON_MASK},
    {IDB_PREVIEW_ARROWS, QL_PREVIEW_ARROWS_WIDTH / 2, QL_PREVIEW_ARROWS_HEIGHT, 2, QL_PREVIEW_ARROWS_MASK},
};

// The pixels of a bitmap as COLORREF values, rows from the top.
struct Pixels {
    int width = 0;
    int height = 0;
    std::vector<COLORREF> values;
    COLORREF at(int x, int y) const { return values[static_cast<size_t>(y) * width + x]; }
};

Pixels ReadPixels(HMODULE library, UINT id) {
    Pixels pixels;
    HBITMAP bitmap = static_cast<HBITMAP>(LoadImageW(library, MAKEINTRESOURCEW(id), IMAGE_BITMAP, 0, 0, 0));
    if (!bitmap) return pixels;
    BITMAP info = {};
    GetObjectW(bitmap, sizeof info, &info);
    pixels.width = info.bmWidth;
    pixels.height = info.bmHeight;
    BITMAPINFO request = TopDownDibInfo(info.bmWidth, info.bmHeight);
    std::vector<DWORD> bgra(static_cast<size_t>(info.bmWidth) * info.bmHeight);
    HDC dc = GetDC(nullptr);
    GetDIBits(dc, bitmap, 0, info.bmHeight, bgra.data(), &request, DIB_RGB_COLORS);
    ReleaseDC(nullptr, dc);
    DeleteObject(bitmap);
    for (DWORD value : bgra) pixels.values.push_back(ColourOfDibPixel(value));
    return pixels;
}

class DisplayLibrary : public ::testing::TestWithParam<int> {
protected:
    void SetUp() override {
        scale_ = GetParam();
        const wchar_t* name = scale_ == 1 ? L"\\LowDpiRes.dll" : L"\\HighDpiRes.dll";
        library_ = LoadLibraryW((TestBinDir() + name).c_str());
        ASSERT_NE(library_, nullptr);
    }
    void TearDown() override {
        if (library_) FreeLibrary(library_);
    }

    int scale_ = 1;
    HMODULE library_ = nullptr;
};

TEST_P(DisplayLibrary, StripsHoldTheirImagesAtThisResolutionEachOnItsMaskColourAndDistinct) {
    for (const ImageSpec& expected : kImages) {
        SCOPED_TRACE(testing::Message() << "bitmap " << expected.id);
        Pixels pixels = ReadPixels(library_, expected.id);
        int w = expected.imageWidth * scale_;
        int h = expected.imageHeight * scale_;
        ASSERT_EQ(pixels.width, w * expected.images);
        ASSERT_EQ(pixels.height, h);
        std::vector<std::vector<COLORREF>> images;
        for (int image = 0; image < expected.images; ++image) {
            std::vector<COLORREF> own;
            int transparent = 0;
            for (int y = 0; y < h; ++y) {
                for (int x = image * w; x < (image + 1) * w; ++x) {
                    own.push_back(pixels.at(x, y));
                    if (pixels.at(x, y) == expected.mask) ++transparent;
                }
            }
            int total = w * h;
            EXPECT_GT(transparent, 0) << "image " << image << " shows its mask colour somewhere";
            EXPECT_LT(transparent, total * 7 / 8) << "image " << image << " is drawn, not blank";
            for (const auto& other : images) EXPECT_NE(own, other) << "image " << image;
            images.push_back(own);
        }
    }
}

// Draws image `index` of an image list on white and reads the result back.
Pixels DrawOnWhite(HIMAGELIST list, int index, int width, int height) {
    Pixels pixels;
    DWORD* bits = nullptr;
    HDC dc = CreateCompatibleDC(nullptr);
    HBITMAP target = CreateTopDownDib(width, height, &bits);
    HGDIOBJ old = SelectObject(dc, target);
    PatBlt(dc, 0, 0, width, height, WHITENESS);
    ImageList_Draw(list, index, dc, 0, 0, ILD_NORMAL);
    GdiFlush();
    pixels.width = width;
    pixels.height = height;
    for (int i = 0; i < width * height; ++i) pixels.values.push_back(ColourOfDibPixel(bits[i]));
    SelectObject(dc, old);
    DeleteObject(target);
    DeleteDC(dc);
    return pixels;
}

bool Near(COLORREF a, COLORREF b) {
    return abs(GetRValue(a) - GetRValue(b)) <= 2 && abs(GetGValue(a) - GetGValue(b)) <= 2 &&
           abs(GetBValue(a) - GetBValue(b)) <= 2;
}

// Loaded as the program loads them (with a DIB section, without which a desktop image list keeps
// 16 colours), the strips split into their images, the mask colour shows what lies beneath and
// every other pixel keeps its colour.
TEST_P(DisplayLibrary, ImageListsShowTheImagesOverTheBackground) {
    struct Use {
        UINT id;
        int width;
        COLORREF mask;
        int expected;
    };
    const Use uses[] = {{IDB_MENU_BUTTONS, QL_MENU_BUTTON_SIZE, QL_MENU_BUTTON_MASK, 2},
                        {IDB_PAGE_ICONS, QL_PAGE_ICON_SIZE, QL_PAGE_ICON_MASK, QL_PAGE_ICON_COUNT},
                        {IDB_ITEM_ICONS, QL_ITEM_ICON_SIZE, QL_ITEM_ICON_MASK, QL_ITEM_ICON_COUNT}};
    for (const Use& use : uses) {
        SCOPED_TRACE(testing::Message() << "bitmap " << use.id);
        int size = use.width * scale_;
        HIMAGELIST list = ImageList_LoadImageW(library_, MAKEINTRESOURCEW(use.id), size, 0, use.mask, IMAGE_BITMAP,
                                               LR_CREATEDIBSECTION);
        ASSERT_NE(list, nullptr);
        ASSERT_EQ(ImageList_GetImageCount(list), use.expected);
        Pixels source = ReadPixels(library_, use.id);
        for (int image = 0; image < use.expected; ++image) {
            Pixels drawn = DrawOnWhite(list, image, size, size);
            int wrong = 0;
            for (int y = 0; y < size; ++y) {
                for (int x = 0; x < size; ++x) {
                    COLORREF original = source.at(image * size + x, y);
                    COLORREF expected = original == use.mask ? RGB(255, 255, 255) : original;
                    if (!Near(drawn.at(x, y), expected)) ++wrong;
                }
            }
            EXPECT_EQ(wrong, 0) << "image " << image;
        }
        ImageList_Destroy(list);
    }
}

INSTANTIATE_TEST_SUITE_P(Resolutions, DisplayLibrary, ::testing::Values(1, 2),
                         [](const ::testing::TestParamInfo<int>& info) {
                             return info.param == 1 ? std::string("LowDpi") : std::string("HighDpi");
                         });

TEST(DisplayLibraries, HighResolutionImagesAreDrawnNotDoubled) {
    HMODULE low = LoadLibraryW((TestBinDir() + L"\\LowDpiRes.dll").c_str());
    HMODULE high = LoadLibraryW((TestBinDir() + L"\\HighDpiRes.dll").c_str());
    ASSERT_NE(low, nullptr);
    ASSERT_NE(high, nullptr);
    for (const ImageSpec& expected : kImages) {
        Pixels small = ReadPixels(low, expected.id);
        Pixels large = ReadPixels(high, expected.id);
        ASSERT_EQ(large.width, small.width * 2) << expected.id;
        // A 2 x 2 block of the large image that is not one colour holds detail of its own.
        int detailed = 0, doubled = 0;
        for (int y = 0; y < small.height; ++y) {
            for (int x = 0; x < small.width; ++x) {
                COLORREF c = large.at(2 * x, 2 * y);
                bool uniform = large.at(2 * x + 1, 2 * y) == c && large.at(2 * x, 2 * y + 1) == c &&
                               large.at(2 * x + 1, 2 * y + 1) == c;
                if (!uniform) ++detailed;
                if (uniform && c == small.at(x, y)) ++doubled;
            }
        }
        EXPECT_GT(detailed, small.width * small.height / 20) << expected.id;
        EXPECT_LT(doubled, small.width * small.height) << expected.id;
    }
    FreeLibrary(low);
    FreeLibrary(high);
}

}  // namespace
