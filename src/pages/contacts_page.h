#pragma once
// Page 4: the contacts tab: its search-bar alphabet, how names are written, what the action
// button and a tap do, line breaking, folding, counters and the layout of the list.
#include "pages/row_table_page.h"

class ContactSettingsWin : public RowTablePage {
public:
    ContactSettingsWin();

    void ShowSection(HWND window, int showCommand) override;
    LRESULT OnCommand(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    int CreatePageRow(const PageRow& row, int top) override;
    void StorePageRow(const PageRow& row) override;

private:
    void ApplyLayoutRule();
};

SettingsPage* CreateContactsPage();
