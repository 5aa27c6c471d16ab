#pragma once
// Page 6: the special events tab (birthdays, anniversaries and other dated events): how far
// ahead events are shown and announced, date and contact formats, the span of appointments
// searched, four additional filter categories, and the tab's look.
#include "pages/row_table_page.h"

class SEventsSettingsWin : public RowTablePage {
public:
    SEventsSettingsWin();

protected:
    int CreatePageRow(const PageRow& row, int top) override;
    void StorePageRow(const PageRow& row) override;

private:
    int CreateDateFormatRow(const PageRow& row, int top);
    int CreateDaySpanRow(const PageRow& row, int top);
    int CreateCategoryRow(const PageRow& row, StringSetting& setting, int top);
};

SettingsPage* CreateSEventsPage();
