// Scheme files: what a save writes, byte by byte, and what a load replaces, keeps and refuses.
#include "common/test_support.h"
#include "files/colour_schemes.h"
#include "files_test_support.h"
#include "settings/settings_test_util.h"

namespace {

const wchar_t kColours[] = L"Software\\Orvane\\Quillory\\Colors";

TEST(ColourSchemesTest, SaveWritesTheLookOnceAndLoadReplacesColoursAndFontsWholly) {
    ScratchFolder product(L"schemes_product");
    RemoveProductKeys();
    LoadSettings();
    g_settings.productFolder.assign(product.path().c_str());
    MakeDefaultFilters(g_filters);
    AddCategory(g_categories, L"Home", 5, 0xFF);
    RegPutDword(HKEY_CURRENT_USER, kColours, L"ShadowFontColor", 0x123456);
    RegPutDword(HKEY_CURRENT_USER, kFontsPath, L"FontCalTaskslfHeight", 20);
    RegPutDword(HKEY_CURRENT_USER, kCalendarPath, L"dNumOfDays", 3);
    EXPECT_TRUE(ListSchemeFiles().empty()) << "no folder yet";
    ASSERT_EQ(SaveSchemeFile(L"Mine"), SchemeSaveResult::kSaved);
    EXPECT_EQ(ReadBytes(SchemeFilePath(L"Mine.scm").c_str()),
              Utf16Bytes(L"\n[Software\\Orvane\\Quillory\\Colors]\n\"ShadowFontColor\"=dword:1193046\n"
                         L"\n[Software\\Orvane\\Quillory\\Fonts]\n\"FontCalTaskslfHeight\"=dword:20\n"
                         L"\n[::Categories::]\n\"Category\"=\"Home\"\n\"FiltersFlag\"=dword:5\n\"Color\"=dword:255\n"));
    EXPECT_EQ(SaveSchemeFile(L"Mine"), SchemeSaveResult::kExists);
    EXPECT_EQ(SaveSchemeFile(L""), SchemeSaveResult::kNoName);
    EXPECT_TRUE(ListSchemeFiles().size() == 1 && ListSchemeFiles()[0].c_str() == std::wstring(L"Mine.scm"));

    WriteBytes(SchemeFilePath(L"Look.scm").c_str(), Utf16Bytes(
        L"\n[Software\\Orvane\\Quillory\\Colors]\n\"SeperatorLineClr\"=dword:255\n\n[Software\\Orvane\\Quillory]\n"
        L"\n[Software\\Orvane\\Quillory\\ColorsX]\n\"X\"=dword:1\n\n[Software\\Orvane\\Quillory\\Fonts\\Sub]\n\"Y\"=dword:2\n"
        L"\n[Software\\Orvane\\Quillory\\Calendar]\n\"dNumOfDays\"=dword:9\n\n[::Filters::]\n"
        L"\"FilterName\"=\"X\"\n\"Index\"=dword:0\n\"VisibleState\"=dword:0\n\"IncludeUncategorized\"=dword:1\n"
        L"\n[::Categories::]\n\"Category\"=\"Home\"\n\"FiltersFlag\"=dword:2\n\"Color\"=dword:-1\n"));
    ASSERT_EQ(LoadSchemeFile(L"Look.scm"), SchemeLoadResult::kLoaded);
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kFontsPath, L"FontCalTaskslfHeight");
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, (kFontsPath + std::wstring(L"\\Sub")).c_str(), L"Y", 2);
    EXPECT_FALSE(RegKeyExists(HKEY_CURRENT_USER, (kColours + std::wstring(L"X")).c_str()));
    EXPECT_EQ(g_settings.fonts.FontCalTasks.height.value, g_settings.fonts.FontCalTasks.height.defaultValue);
    EXPECT_TRUE(g_settings.colors.SeperatorLineClr.value == 255 && g_settings.colors.ShadowFontColor.value == 0xFFFFFFFF);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kCalendarPath, L"dNumOfDays", 3);  // other keys are not read
    EXPECT_TRUE(AreDefaultFilters(g_filters)) << "a scheme carries no filters";
    EXPECT_TRUE(g_categories.head->filterMask == 2 && g_categories.head->colour == 0xFFFFFFFF);

    g_settings.productFolder.assign(product.path().c_str());
    RegPutDword(HKEY_CURRENT_USER, kFontsPath, L"FontCalTaskslfHeight", 20);
    WriteBytes(SchemeFilePath(L"Bad.scm").c_str(), Utf16Bytes(L"[Software\\Orvane\\Quillory\\Colors]\n"));
    EXPECT_EQ(LoadSchemeFile(L"Missing.scm"), SchemeLoadResult::kCannotOpen);
    EXPECT_EQ(LoadSchemeFile(L"Bad.scm"), SchemeLoadResult::kRejected);
    EXPECT_FALSE(RegKeyExists(HKEY_CURRENT_USER, kFontsPath) || RegKeyExists(HKEY_CURRENT_USER, kColours));
    EXPECT_EQ(g_settings.colors.SeperatorLineClr.value, 255u) << "the record is not reloaded";
    ClearCategories(g_categories);
    RemoveProductKeys();
}

}  // namespace
