#include <algorithm>
#include <string>
#include <vector>

#include "common/test_support.h"
#include "display/display_ids.h"

namespace {

INT_PTR CALLBACK QuietDialogProc(HWND, UINT, WPARAM, LPARAM) { return FALSE; }

TEST(ProgramModule, DialogTemplatesCreateTheControlsTheProgramAddresses) {
    struct Dialog { UINT id; std::vector<std::pair<int, const wchar_t*>> controls; };
    const Dialog dialogs[] = {
        {210, {{1090, L"Button"}, {1087, L"Button"}, {1088, L"Button"}, {1089, L"Button"}, {1085, L"ComboBox"},
               {1006, L"Static"}, {1002, L"Static"}, {1091, L"Button"}}},
        {306, {{1001, L"Static"}, {1000, L"Edit"}, {IDOK, L"Button"}, {IDCANCEL, L"Button"}}},
        {311, {{1085, L"ComboBox"}, {1002, L"Static"}, {1006, L"Static"}}},
        {312, {}}, {313, {}},
    };
    HMODULE program = LoadLibraryExW((TestBinDir() + L"\\ql_options.exe").c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    for (const Dialog& expected : dialogs) {
        HWND dialog = CreateDialogParamW(program, MAKEINTRESOURCEW(expected.id), nullptr, QuietDialogProc, 0);
        ASSERT_NE(dialog, nullptr) << expected.id << " from ql_options.exe beside the test program";
        for (const auto& control : expected.controls) {
            wchar_t name[64] = {};
            GetClassNameW(GetDlgItem(dialog, control.first), name, 64);
            EXPECT_EQ(_wcsicmp(name, control.second), 0) << expected.id << ": control " << control.first;
        }
        DestroyWindow(dialog);
    }
    FreeLibrary(program);
}

// Each strip holds its images side by side at the library's scale, each on its mask colour and all different.
TEST(DisplayLibraries, StripsHoldDistinctImagesOnTheirMaskColour) {
    struct Strip { UINT id; int width, height, images; COLORREF mask; };
    const Strip strips[] = {{114, 16, 16, 2, 0x00C6CFDE},
                            {116, 32, 32, 12, 0x0000FF00},
                            {220, 10, 12, 2, RGB(255, 0, 0)},
                            {138, QL_UP_FOLDER_SIZE, QL_UP_FOLDER_SIZE, 1, QL_UP_FOLDER_MASK},
                            {140, QL_ITEM_ICON_SIZE, QL_ITEM_ICON_SIZE, QL_ITEM_ICON_COUNT, QL_ITEM_ICON_MASK}};
    HDC dc = CreateCompatibleDC(nullptr);
    for (int scale : {1, 2}) {
        HMODULE library =
            LoadLibraryW((TestBinDir() + (scale == 1 ? L"\\LowDpiRes.dll" : L"\\HighDpiRes.dll")).c_str());
        for (const Strip& strip : strips) {
            int w = strip.width * scale, h = strip.height * scale;
            HGDIOBJ previous = SelectObject(dc, LoadImageW(library, MAKEINTRESOURCEW(strip.id), IMAGE_BITMAP, 0, 0, 0));
            BITMAP info = {};
            GetObjectW(GetCurrentObject(dc, OBJ_BITMAP), sizeof info, &info);
            ASSERT_TRUE(info.bmWidth == w * strip.images && info.bmHeight == h) << strip.id << " at scale " << scale;
            std::vector<std::vector<COLORREF>> images(strip.images);
            for (int x = 0; x < info.bmWidth; ++x)
                for (int y = 0; y < h; ++y) images[x / w].push_back(GetPixel(dc, x, y));
            DeleteObject(SelectObject(dc, previous));
            for (int image = 0; image < strip.images; ++image) {
                long masked = std::count(images[image].begin(), images[image].end(), strip.mask);
                EXPECT_TRUE(masked > 0 && masked < w * h * 7 / 8) << strip.id << " at " << scale << ": image " << image;
                for (int other = 0; other < image; ++other) EXPECT_NE(images[image], images[other]) << image;
            }
        }
        FreeLibrary(library);
    }
    DeleteDC(dc);
}

}  // namespace
