// Seeded malformed scheme files loaded one after another: none crashes, the lists keep their
// records and the filters their titles, and the registry changes under Colors and Fonts only.
#include "common/test_support.h"
#include "files/colour_schemes.h"
#include "files_test_support.h"
#include "registry_text_generator.h"
#include "settings/settings_test_util.h"
#include "support/app_state.h"

namespace {

// The user's registry less the two keys a scheme replaces.
RegSnapshot OutsideTheLook() {
    RegSnapshot snapshot = Snapshot(HKEY_CURRENT_USER, L"");
    for (const wchar_t* look : {L"software\\orvane\\quillory\\colors", L"software\\orvane\\quillory\\fonts"})
        for (auto it = snapshot.begin(); it != snapshot.end();) {
            std::wstring key = it->first;
            for (wchar_t& c : key) c = towlower(c);
            bool below = key.compare(0, wcslen(look), look) == 0 && (key.size() == wcslen(look) || key[wcslen(look)] == L'\\');
            it = below ? snapshot.erase(it) : ++it;
        }
    return snapshot;
}

TEST(ColourSchemesFuzzTest, MalformedSchemesChangeOnlyTheLook) {
    RemoveProductKeys();
    RegPutDword(HKEY_CURRENT_USER, kCalendarPath, L"dNumOfDays", 3);
    RegPutDword(HKEY_CURRENT_USER, L"Software\\Orvane\\Quillory\\Categories", L"CatColor.Name", 9);
    RegPutDword(HKEY_CURRENT_USER, kFontsPath, L"FontCalTaskslfHeight", 20);
    ScratchFolder product(L"schemes_fuzz");
    CreateDirectoryW((product.path() + L"\\Schemes").c_str(), nullptr);
    for (const wchar_t* name : {L"Name", L"%d", L"Color"}) AddCategory(g_categories, name);
    MakeDefaultFilters(g_filters);
    std::wstring filterTitles = InListOrder(g_filters, [](const FilterRecord& r) { return r.title.c_str(); }, L"|");
    LoadSettings();
    RegSnapshot before = OutsideTheLook();

    Generator generator(20240611);
    int loaded = 0;
    for (int i = 0; i < 1000; ++i) {
        g_settings.productFolder.assign(product.path().c_str());
        WriteBytes(product.file(L"Schemes\\Fuzz.scm"), generator.file());
        if (LoadSchemeFile(L"Fuzz.scm") == SchemeLoadResult::kLoaded) ++loaded;
        ASSERT_EQ(g_categories.count, 3) << "file " << i;
        ASSERT_EQ(g_filters.count, 32) << "file " << i;
    }
    EXPECT_GT(loaded, 100);
    EXPECT_EQ(InListOrder(g_filters, [](const FilterRecord& r) { return r.title.c_str(); }, L"|"), filterTitles);
    EXPECT_TRUE(before == OutsideTheLook());

    ClearCategories(g_categories);
    if (g_app.languageLibrary) FreeLibrary(g_app.languageLibrary);
    g_app.languageLibrary = nullptr;
    RemoveProductKeys();
    RegRemoveTree(HKEY_CURRENT_USER, L"Software\\QLFuzz");
}

}  // namespace
