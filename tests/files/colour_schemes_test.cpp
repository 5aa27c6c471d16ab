// Scheme files: what a save writes, byte by byte, and what a load replaces, keeps and refuses.
#include "common/test_support.h"
#include "files/colour_schemes.h"
#include "files/registry_text.h"
#include "files_test_support.h"
#include "settings/settings_test_util.h"

namespace {

const wchar_t kColours[] = L"Software\\Orvane\\Quillory\\Colors";

class ColourSchemes : public ::testing::Test {
protected:
    void SetUp() override {
        RemoveProductKeys();
        LoadSettings();
        UseFolder();
        MakeDefaultFilters(g_filters);
        AddCategory(g_categories, L"Home", 5, 0xFF);
    }
    void TearDown() override {
        ClearCategories(g_categories);
        RemoveProductKeys();
    }
    // Loading reloads the record, and with it the program folder.
    void UseFolder() { g_settings.productFolder.assign(product_.path().c_str()); }
    void PutScheme(const wchar_t* name, const std::wstring& text) {
        CreateDirectoryW(SchemesFolder().c_str(), nullptr);
        WriteBytes(SchemeFilePath(name).c_str(), Utf16Bytes(text));
    }
    ScratchFolder product_{L"schemes_product"};
};

TEST_F(ColourSchemes, SaveWritesTheTwoTreesAndTheCategoriesAndNeverOverwrites) {
    RegPutDword(HKEY_CURRENT_USER, kColours, L"SeperatorLineClr", 0x123456);
    RegPutString(HKEY_CURRENT_USER, (std::wstring(kColours) + L"\\Extra").c_str(), L"Name", L"x");
    RegPutDword(HKEY_CURRENT_USER, kFontsPath, L"FontCalTaskslfColor", 0xFFFFFFFF);
    RegPutDword(HKEY_CURRENT_USER, kCalendarPath, L"dNumOfDays", 3);
    EXPECT_TRUE(ListSchemeFiles().empty()) << "no folder yet";

    ASSERT_EQ(SaveSchemeFile(L"Mine"), SchemeSaveResult::kSaved);
    std::string saved = ReadBytes(SchemeFilePath(L"Mine.scm").c_str());
    EXPECT_EQ(Printable(WideFromUtf16(saved)),
              Printable(L"\n[Software\\Orvane\\Quillory\\Colors]\n\"SeperatorLineClr\"=dword:1193046\n"
                        L"\n[Software\\Orvane\\Quillory\\Colors\\Extra]\n\"Name\"=\"x\"\n"
                        L"\n[Software\\Orvane\\Quillory\\Fonts]\n\"FontCalTaskslfColor\"=dword:-1\n"
                        L"\n[::Categories::]\n\"Category\"=\"Home\"\n\"FiltersFlag\"=dword:5\n\"Color\"=dword:255\n"));
    Utf16TextWriter backupWriter;
    WriteRegistryTree(kColours, backupWriter);
    WriteRegistryTree(kFontsPath, backupWriter);
    WriteCategoriesSection(g_categories, backupWriter);
    EXPECT_EQ(saved, backupWriter.bytes());

    RegPutDword(HKEY_CURRENT_USER, kColours, L"SeperatorLineClr", 7);
    EXPECT_EQ(SaveSchemeFile(L"Mine"), SchemeSaveResult::kExists);
    EXPECT_EQ(SaveSchemeFile(L""), SchemeSaveResult::kNoName);
    EXPECT_EQ(ReadBytes(SchemeFilePath(L"Mine.scm").c_str()), saved) << "an existing scheme is never overwritten";
    ASSERT_EQ(ListSchemeFiles().size(), 1u);
    EXPECT_STREQ(ListSchemeFiles()[0].c_str(), L"Mine.scm");
}

TEST_F(ColourSchemes, LoadReplacesColoursAndFontsWhollyAndReadsNothingElse) {
    RegPutDword(HKEY_CURRENT_USER, kColours, L"ShadowFontColor", 1);
    RegPutDword(HKEY_CURRENT_USER, kFontsPath, L"FontCalTaskslfHeight", 20);
    RegPutDword(HKEY_CURRENT_USER, kFontsPath, L"FontMsgsTitleslfWeight", 400);
    RegPutDword(HKEY_CURRENT_USER, kCalendarPath, L"dNumOfDays", 3);
    RegSnapshot others = Snapshot(HKEY_CURRENT_USER, kCalendarPath);
    PutScheme(L"NoFonts.scm", L"\n[Software\\Orvane\\Quillory\\Colors]\n\"SeperatorLineClr\"=dword:255\n"
                              L"\n[Software\\Orvane\\Quillory]\n\n[Software\\Orvane\\Quillory\\Calendar]\n"
                              L"\"dNumOfDays\"=dword:9\n\n[]\n\"Root\"=\"x\"\n\n[::Filters::]\n\"FilterName\"=\"X\"\n"
                              L"\"Index\"=dword:0\n\"VisibleState\"=dword:0\n\"IncludeUncategorized\"=dword:1\n"
                              L"\n[::Categories::]\n\"Category\"=\"Home\"\n\"FiltersFlag\"=dword:2\n\"Color\"=dword:-1\n");
    std::wstring filterTitle = g_filters.head->title.c_str();

    ASSERT_EQ(LoadSchemeFile(L"NoFonts.scm"), SchemeLoadResult::kLoaded);
    EXPECT_EQ(RegValueCountTree(HKEY_CURRENT_USER, kFontsPath), 0u);
    for (Setting* setting : g_settings.fonts.settings()) {
        std::string name = Narrow(setting->valueName.c_str());
        if (auto* number = dynamic_cast<IntSetting*>(setting)) EXPECT_EQ(number->value, number->defaultValue) << name;
        if (auto* text = dynamic_cast<StringSetting*>(setting))
            EXPECT_STREQ(text->value.c_str(), text->defaultValue.c_str()) << name;
        if (auto* font = dynamic_cast<FontSetting*>(setting))
            for (IntSetting* part : {&font->weight, &font->italic, &font->height, &font->colour})
                EXPECT_EQ(part->value, part->defaultValue) << name;
    }
    EXPECT_EQ(g_settings.fonts.FontMsgsTitles.weight.value, 700u);
    EXPECT_EQ(g_settings.colors.SeperatorLineClr.value, 255u);
    EXPECT_EQ(g_settings.colors.ShadowFontColor.value, 0xFFFFFFFFu) << "the old colour is gone";
    EXPECT_TRUE(others == Snapshot(HKEY_CURRENT_USER, kCalendarPath)) << "other keys are not read";
    EXPECT_FALSE(RegValueExists(HKEY_CURRENT_USER, nullptr, L"Root"));
    EXPECT_EQ(std::wstring(g_filters.head->title.c_str()), filterTitle) << "a scheme carries no filters";
    EXPECT_EQ(g_categories.head->filterMask, 2u);
    EXPECT_EQ(g_categories.head->colour, 0xFFFFFFFFu);
    EXPECT_EQ(RegValueCountTree(HKEY_CURRENT_USER, L"Software\\Orvane\\Quillory\\Categories"), 0u)
        << "category colours reach the registry only when the settings are saved";

    UseFolder();
    RegPutDword(HKEY_CURRENT_USER, kFontsPath, L"FontCalTaskslfHeight", 20);
    PutScheme(L"Bad.scm", L"[Software\\Orvane\\Quillory\\Colors]\n\"ShadowFontColor\"=dword:1\n");
    EXPECT_EQ(LoadSchemeFile(L"Missing.scm"), SchemeLoadResult::kCannotOpen);
    EXPECT_TRUE(RegKeyExists(HKEY_CURRENT_USER, kFontsPath)) << "a file that cannot be opened changes nothing";
    EXPECT_EQ(LoadSchemeFile(L"Bad.scm"), SchemeLoadResult::kRejected);
    EXPECT_FALSE(RegKeyExists(HKEY_CURRENT_USER, kFontsPath));
    EXPECT_FALSE(RegKeyExists(HKEY_CURRENT_USER, kColours));
    EXPECT_EQ(g_settings.colors.SeperatorLineClr.value, 255u) << "the record is not reloaded";
}

}  // namespace
