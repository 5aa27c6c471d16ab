#include "page_fixture.h"

namespace {

const wchar_t kPim[] = L"Software\\Orvane\\Quillory\\CustomPIM";
const wchar_t kAgendaOne[] = L"SOFTWARE\\Developer One\\Agenda One";
enum { kSoftware = 1, kOverrideIcons = 2, kOverrideColours = 3, kLeaveAFRunning = 4, kHideABC = 5 };

class PimPage : public PageFixture {
protected:
    void SetUp() override { PageFixture::SetUp(), RegRemoveTree(HKEY_CURRENT_USER, L"SOFTWARE\\Developer One"); }
    void TearDown() override { PageFixture::TearDown(), RegRemoveTree(HKEY_CURRENT_USER, L"SOFTWARE\\Developer One"); }
    std::vector<bool> OptionsEnabled() {
        return {Enabled(kOverrideIcons), Enabled(kOverrideColours), Enabled(kLeaveAFRunning), Enabled(kHideABC)};
    }
};

TEST_F(PimPage, DetectedApplicationsDecideTheListTheStoredCodeAndTheOptions) {
    RegPutDword(HKEY_CURRENT_USER, kPim, L"PimSw", 3);  // Agenda One, which is not installed
    Open(9);
    EXPECT_EQ(Entries(kSoftware), Texts{L"Pocket Outlook"});
    EXPECT_EQ(OptionsEnabled(), std::vector<bool>(4, false));
    CloseAndSave();
    EXPECT_REG_ABSENT(HKEY_CURRENT_USER, kPim, L"PimSw");

    RegPutDword(HKEY_LOCAL_MACHINE, kAgendaFusionPath, L"VerMajor", 5);
    RegPutDword(HKEY_CURRENT_USER, kPim, L"HideABCVals", 0);
    Open(9);
    EXPECT_EQ(Entries(kSoftware), (Texts{L"Pocket Outlook", L"Agenda Fusion"}));
    Choose(kSoftware, 1);
    EXPECT_EQ(OptionsEnabled(), (std::vector<bool>{true, true, false, true})) << "as for Pocket Informant";
    Click(kOverrideColours);
    CloseAndSave();
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kPim, L"PimSw", 2);
    EXPECT_REG_DWORD(HKEY_CURRENT_USER, kPim, L"OverridePimCatColros", 1);

    RegPutString(HKEY_CURRENT_USER, kAgendaOne, L"InstallPath", L"\\Program Files\\Agenda One");
    RegPutDword(HKEY_CURRENT_USER, kPocketInformantPath, L"version", 7);
    EXPECT_TRUE(RoundTripKeeps(9, kProductPath, L"", [&] {
        EXPECT_EQ(Selected(kSoftware), 2) << "the entry whose code PimSw holds";
        EXPECT_EQ(OptionsEnabled(), std::vector<bool>(4, true));
    }));
}

}  // namespace
