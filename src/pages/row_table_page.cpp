#include "pages/row_table_page.h"

#include <cwchar>

#include "support/display_scale.h"

RowTablePage::RowTablePage(const PageSection* sections, int sectionCount, const PageRow* rows, int rowCount,
                           int controlCount)
    : sections_(sections),
      sectionCount_(sectionCount),
      rows_(rows),
      rowCount_(rowCount),
      pageControlCount_(controlCount) {}

int RowTablePage::GetSectionCount() { return sectionCount_; }

UINT RowTablePage::GetSectionTitleId(int index) {
    return index >= 0 && index < sectionCount_ ? sections_[index].titleId : 0;
}

int RowTablePage::GetControlCount() { return pageControlCount_; }

void RowTablePage::CreateControls(HWND) {
    const int kMostSections = 8;
    int tops[kMostSections];
    for (int& top : tops) top = ScaleForDisplay(kSectionTop);
    for (int i = 0; i < rowCount_; ++i) {
        const PageRow& row = rows_[i];
        if (row.section < 0 || row.section >= kMostSections) continue;
        int& top = tops[row.section];
        DWORD value = row.setting ? row.setting->value : 0;
        switch (row.kind) {
        case kChoiceRow:
            top += CreateComboRow(row.label, row.control, row.textId, row.items, row.itemCount,
                                  static_cast<int>(value), top, false);
            break;
        case kNumberRow:
            top += CreateComboRow(row.label, row.control, row.textId, nullptr, 0, 0, top, false);
            for (int number = 1; number <= row.itemCount; ++number) {
                wchar_t text[12];
                swprintf(text, 12, L"%d", number);
                AddComboText(row.control, text);
            }
            SelectIfListed(row.control, value);
            break;
        case kCheckRow:
            top += CreateCheckBox(row.control, row.textId, value != 0, top);
            break;
        case kPageRow:
            top += CreatePageRow(row, top);
            break;
        }
    }
}

void RowTablePage::ShowSection(HWND, int showCommand) {
    int section = CurrentSection();
    if (section < 0 || section >= sectionCount_) return;
    ShowControls(sections_[section].firstControl, sections_[section].lastControl, showCommand);
}

void RowTablePage::StoreValues(HWND) {
    for (int i = 0; i < rowCount_; ++i) {
        const PageRow& row = rows_[i];
        switch (row.kind) {
        case kChoiceRow:
        case kNumberRow:
            SetInt(*row.setting, static_cast<DWORD>(Selection(row.control)));
            break;
        case kCheckRow:
            SetInt(*row.setting, IsChecked(row.control) ? 1 : 0);
            break;
        case kPageRow:
            StorePageRow(row);
            break;
        }
    }
}

int RowTablePage::CreatePageRow(const PageRow&, int) { return 0; }

void RowTablePage::StorePageRow(const PageRow&) {}

int RowTablePage::AddComboText(int combo, const wchar_t* text) {
    HWND box = control(combo);
    return box ? static_cast<int>(SendMessageW(box, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text))) : -1;
}

void RowTablePage::SelectIfListed(int combo, DWORD index) {
    HWND box = control(combo);
    if (box && index < static_cast<DWORD>(SendMessageW(box, CB_GETCOUNT, 0, 0))) SendMessageW(box, CB_SETCURSEL, index, 0);
}
