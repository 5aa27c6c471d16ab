#pragma once
// The alphabet selection: which alphabets the contacts search bar may offer. Four alphabets are
// built in and stand for a flag each; custom alphabets are text files in the CustomAlphabets
// folder of the installation, and the active ones are the values of the Contacts\Alphabets key.
#include <windows.h>

#include "dialogs/dialog_base.h"
#include "support/handles.h"
#include "support/wide_string.h"

// Flags of the built-in alphabets, and the one that stands for "any custom alphabet".
const DWORD kLatinAlphabet = 1;
const DWORD kCyrillicAlphabet = 2;
const DWORD kHebrewAlphabet = 4;
const DWORD kGreekAlphabet = 8;
const DWORD kCustomAlphabet = 16;

// What RunAlphabetSelection returns when the user cancels.
const INT_PTR kAlphabetSelectionCancelled = -1;

// Ids of the dialog's label and list.
const int kAlphabetLabel = 1001;
const int kAlphabetList = 1002;

// HKEY_CURRENT_USER path of the key whose value names are the active custom alphabets.
extern const wchar_t kAlphabetsKeyPath[];

// A name found in the CustomAlphabets folder names an alphabet when it is at least five
// characters long and the first '.', 't' or 'x' in it stands four characters before its end.
bool IsCustomAlphabetFileName(const wchar_t* name);

// The file of the custom alphabet `name`: installation folder \CustomAlphabets\ name .txt.
WString CustomAlphabetFile(const wchar_t* name);

// Shows the selection over `owner` with the flags of `activeLanguages` ticked. Returns the flags
// of the ticked built-in alphabets plus kCustomAlphabet when a custom one is ticked, after
// rewriting the Contacts\Alphabets key; kAlphabetSelectionCancelled when cancelled (nothing is
// written then).
INT_PTR RunAlphabetSelection(HWND owner, DWORD activeLanguages);

class AlphabetSelectionDialog : public DialogBase {
public:
    AlphabetSelectionDialog(HINSTANCE instance, DWORD activeLanguages);

    INT_PTR DialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
    BOOL OnInitDialog(HWND window) override;
    void CreateMenuBar(HWND window) override;
    SharedString GetTitle() override;
    void CreateControls(HWND window) override;
    void Layout(HWND window, int width, int height) override;

    // The flags chosen, or kAlphabetSelectionCancelled.
    INT_PTR result() const { return result_; }

private:
    void FillList();
    void AddRow(const wchar_t* text, LPARAM data, bool ticked);
    void AddCustomRows(HKEY activeKey);
    DWORD StoreTickedRows();

    DWORD activeLanguages_;
    INT_PTR result_ = kAlphabetSelectionCancelled;
    HWND window_ = nullptr;
    HWND label_ = nullptr;
    HWND list_ = nullptr;
    HWND menuBar_ = nullptr;
    ImageList buttonImages_;
};
