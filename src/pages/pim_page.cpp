#include "pages/pim_page.h"

#include "settings/key_table.h"
#include "settings/registry_values.h"
#include "string_ids.h"
#include "support/app_state.h"
#include "support/wide_string.h"

namespace {

enum Control {
    kSoftwareLabel, kSoftware, kOverrideIcons, kOverrideColours, kLeaveAFRunning, kHideABC,
    kControlCount
};

const PageSection kSections[] = {
    {IDS_PIM_SECTION_SOFTWARE, kSoftwareLabel, kSoftware},
    {IDS_PIM_SECTION_OPTIONS, kOverrideIcons, kHideABC},
};

constexpr CustomPimSettings& kPim = g_settings.customPim;

const PageRow kRows[] = {
    {kPageRow, 0, kSoftwareLabel, kSoftware, IDS_PIM_SOFTWARE_LABEL, &kPim.PimSw},
    {kCheckRow, 1, kOverrideIcons, kOverrideIcons, IDS_PIM_OVERRIDE_ICONS, &kPim.OverridePimCatIcons},
    {kCheckRow, 1, kOverrideColours, kOverrideColours, IDS_PIM_OVERRIDE_COLORS, &kPim.OverridePimCatColros},
    {kCheckRow, 1, kLeaveAFRunning, kLeaveAFRunning, IDS_PIM_LEAVE_AF_RUNNING, &kPim.LeaveAFRunning},
    {kCheckRow, 1, kHideABC, kHideABC, IDS_PIM_HIDE_ABC, &kPim.HideABCVals},
};

// Codes of the applications, as PimSw stores them.
enum PimCode : DWORD { kPocketOutlook = 0, kPocketInformant = 1, kAgendaFusion = 2, kAgendaOne = 3 };

// Each test opens the application's key for reading only; a key that cannot be opened means the
// application is not installed.
bool PocketInformantInstalled() {
    return ReadDword(KeyRoot(kKeyPocketInformant), KeyPath(kKeyPocketInformant), L"version", 0) != 0;
}

bool AgendaFusionInstalled() {
    return ReadDword(KeyRoot(kKeyAgendaFusion), KeyPath(kKeyAgendaFusion), L"VerMajor", 0) != 0;
}

// The install path must fit a path buffer of MAX_PATH characters, terminator included.
bool AgendaOneInstalled() {
    WString path;
    return ReadString(HKEY_CURRENT_USER, L"SOFTWARE\\Developer One\\Agenda One", L"InstallPath", path, L"") &&
           !path.empty() && path.length() < MAX_PATH;
}

bool AlwaysPresent() { return true; }

struct PimApplication {
    UINT textId;
    PimCode code;
    bool (*installed)();
};

const PimApplication kApplications[] = {
    {IDS_PIM_POCKET_OUTLOOK, kPocketOutlook, AlwaysPresent},
    {IDS_PIM_POCKET_INFORMANT, kPocketInformant, PocketInformantInstalled},
    {IDS_PIM_AGENDA_FUSION, kAgendaFusion, AgendaFusionInstalled},
    {IDS_PIM_AGENDA_ONE, kAgendaOne, AgendaOneInstalled},
};

}  // namespace

PIMSettingsWin::PIMSettingsWin() : RowTablePage(PAGE_TABLE(kSections), PAGE_TABLE(kRows), kControlCount) {}

void PIMSettingsWin::CreateControls(HWND window) {
    RowTablePage::CreateControls(window);
    UpdateOptionEnabling();
}

// Pocket Outlook is listed and selected first; every installed application follows, and the one
// whose code PimSw holds is selected. An application no longer installed leaves Pocket Outlook.
int PIMSettingsWin::CreatePageRow(const PageRow& row, int top) {
    int height = CreateComboRow(row.label, row.control, row.textId, nullptr, 0, 0, top, false);
    HWND combo = control(row.control);
    if (!combo) return height;
    for (const PimApplication& application : kApplications) {
        if (!application.installed()) continue;
        WString name;
        name.load(g_app.languageLibrary, application.textId);
        int index = AddComboText(row.control, name.c_str());
        if (index < 0) continue;
        SendMessageW(combo, CB_SETITEMDATA, index, application.code);
        if (application.code == kPocketOutlook || application.code == row.setting->value)
            SendMessageW(combo, CB_SETCURSEL, index, 0);
    }
    return height;
}

// The list's item data is the application's code, which replaces the index OnCommand stored.
void PIMSettingsWin::StorePageRow(const PageRow& row) {
    HWND combo = control(row.control);
    LRESULT code = combo ? SendMessageW(combo, CB_GETITEMDATA, Selection(row.control), 0) : CB_ERR;
    SetInt(*row.setting, static_cast<DWORD>(code));
}

// While the page is open PimSw holds the list index, not the application's code: with Agenda
// Fusion as the second entry the options are enabled as for Pocket Informant until the page is
// left. This is deliberate and kept.
LRESULT PIMSettingsWin::OnCommand(HWND, UINT, WPARAM wParam, LPARAM lParam) {
    if (ControlNumberOf(reinterpret_cast<HWND>(lParam)) == kSoftware && HIWORD(wParam) == CBN_SELENDOK) {
        SetInt(kPim.PimSw, static_cast<DWORD>(Selection(kSoftware)));
        UpdateOptionEnabling();
    }
    return 0;
}

void PIMSettingsWin::UpdateOptionEnabling() {
    DWORD pim = kPim.PimSw.value;
    bool otherApplication = pim == kPocketInformant || pim == kAgendaFusion;
    EnableControl(kOverrideIcons, otherApplication);
    EnableControl(kOverrideColours, otherApplication);
    EnableControl(kLeaveAFRunning, pim == kAgendaFusion);
    EnableControl(kHideABC, otherApplication);
}

SettingsPage* CreatePimPage() { return new PIMSettingsWin; }
