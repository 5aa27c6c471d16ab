#pragma once
// Page 5: how the messages (mail) tab behaves and looks.
#include "pages/row_table_page.h"

class MessagesSettingsWin : public RowTablePage {
public:
    MessagesSettingsWin();
};

SettingsPage* CreateMessagesPage();
