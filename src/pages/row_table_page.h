#pragma once
// A page that is mostly tables: its sections (title and the range of control numbers each one
// shows) and its rows (what each row is, which controls it makes and which setting it holds).
// Rows are built in table order, each section from the top down, and stored in the same order.
// Choice, number and check rows are built and stored here; a page builds and stores its own
// kinds of rows in CreatePageRow and StorePageRow.
#include "settings/settings.h"
#include "shell/settings_page.h"

struct PageSection {
    UINT titleId;
    int firstControl, lastControl;
};

enum PageRowKind {
    kChoiceRow,  // drop-down list of the item string ids, holds the selection index
    kNumberRow,  // drop-down list of "1" to itemCount, holds the selection index (the number less one)
    kCheckRow,   // check box (label and control are the same number), holds 1 when checked, else 0
    kPageRow,    // built and stored by the page itself
};

struct PageRow {
    PageRowKind kind;
    int section;
    int label;
    int control;
    UINT textId;
    IntSetting* setting;  // may be null for a page's own row
    const UINT* items;
    int itemCount;
};

#define PAGE_ITEMS(list) list, static_cast<int>(sizeof list / sizeof list[0])
#define PAGE_TABLE(table) table, static_cast<int>(sizeof table / sizeof table[0])

class RowTablePage : public SettingsPage {
public:
    RowTablePage(const PageSection* sections, int sectionCount, const PageRow* rows, int rowCount, int controlCount);

    int GetSectionCount() override;
    UINT GetSectionTitleId(int index) override;
    int GetControlCount() override;
    void CreateControls(HWND window) override;
    // Shows the controls of the section selected in the section tabs; any other index does nothing.
    void ShowSection(HWND window, int showCommand) override;
    void StoreValues(HWND window) override;

    static const int kSectionTop = 8;

protected:
    // Builds a row of kind kPageRow at `top`; returns the height it takes.
    virtual int CreatePageRow(const PageRow& row, int top);
    virtual void StorePageRow(const PageRow& row);

    // Adds a text to a combo box; returns its index.
    int AddComboText(int combo, const wchar_t* text);
    // Selects entry `index` when the list has that many entries; otherwise leaves no selection.
    void SelectIfListed(int combo, DWORD index);

private:
    const PageSection* sections_;
    int sectionCount_;
    const PageRow* rows_;
    int rowCount_;
    int pageControlCount_;
};
