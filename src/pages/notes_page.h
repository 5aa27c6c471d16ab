#pragma once
// Page 3: the notes tab: its search-bar alphabet, the preview, line breaking, folding, counters,
// the kinds of files scanned as notes and the folders scanned. The folder list is kept directly in
// the registry, one string value per folder named "0", "1", ... in list order.
#include "pages/row_table_page.h"
#include "support/wide_string.h"

// HKEY_CURRENT_USER path of the notes folders.
extern const wchar_t kNotesFoldersKeyPath[];
// HKEY_CURRENT_USER key of the Jotterly lists product; present when its ListsPath is not empty.
extern const wchar_t kJotterlyKeyPath[];

class NotesSettingsWin : public RowTablePage {
public:
    NotesSettingsWin();

    LRESULT OnCommand(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;

    // Adds `folder` as a row unless a row has exactly that text. With `needIcon` the folder is
    // added only when the shell gives it an icon. Returns whether a row was added.
    bool AddFolder(const wchar_t* folder, bool needIcon);

protected:
    int CreatePageRow(const PageRow& row, int top) override;
    void StorePageRow(const PageRow& row) override;

private:
    int CreateFileTypeBoxes(int top);
    void StoreFileTypes(IntSetting& setting);
    void CreateFolderList();
    void FillFolders();
    void StoreFolders();
    void ChooseFolder(HWND window);
    void RemoveSelectedFolder(HWND window);
    int FolderIcon(const wchar_t* folder);
};

SettingsPage* CreateNotesPage();
