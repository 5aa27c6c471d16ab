#pragma once
// Page 9: which personal information manager Quillory works with (the device's own Pocket
// Outlook data, or Pocket Informant, Agenda Fusion or Agenda One when installed) and four
// options for those applications.
#include "pages/row_table_page.h"

class PIMSettingsWin : public RowTablePage {
public:
    PIMSettingsWin();

    void CreateControls(HWND window) override;
    LRESULT OnCommand(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    int CreatePageRow(const PageRow& row, int top) override;
    void StorePageRow(const PageRow& row) override;

private:
    void UpdateOptionEnabling();
};

SettingsPage* CreatePimPage();
