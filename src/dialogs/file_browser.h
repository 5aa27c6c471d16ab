#pragma once
// The program's own full-screen file and folder browser, in three variants: pick an existing
// file of one extension, choose a folder and type a file name, or pick a folder. The folder last
// confirmed in any of them is where the next one opens.
#include <windows.h>

#include <vector>

#include "dialogs/dialog_base.h"
#include "support/handles.h"
#include "support/wide_string.h"

enum class BrowserKind { LoadFile, SaveFile, SelectFolder };

// Made by the caller, read by the dialog; `result` carries the chosen path back.
struct BrowserRequest {
    BrowserKind kind = BrowserKind::LoadFile;
    HWND owner = nullptr;
    // Where the menu bar and the images come from; null means the language library and the
    // display library of the application.
    HINSTANCE menuInstance = nullptr;
    HINSTANCE imageInstance = nullptr;
    UINT menuBarId = 149;
    UINT buttonImagesId = 114;
    UINT upFolderImageId = 138;

    WString title;        // empty: "Load File", "Save File" or "Select Folder"
    WString extension;    // without the dot, e.g. "qlsb"; matched case-sensitively
    WString description;  // shown in the extension field, e.g. "QL Settings Backup (qlsb)"
    WString initialName;  // Save File: the proposed name

    // Texts in the user's language; each one left empty falls back to English.
    WString fileNameLabel;
    WString extensionLabel;
    WString emptyNameMessage;
    WString illegalNameMessage;
    WString errorCaption;

    WString result;  // on OK: the chosen file path, or the folder with its trailing backslash
};

// Fills the request's label and message texts from `languageLibrary` (an id it lacks leaves its
// text empty, so the English default is used).
void LoadBrowserTexts(HMODULE languageLibrary, BrowserRequest* request);

// Runs the browser the request names; true when the user confirmed, with request->result set.
// Cancel leaves request->result and the last folder unchanged.
bool RunFileBrowser(BrowserRequest* request);

// The folder every browser opens in (always ending with a backslash; "\" at first).
const WString& BrowserLastFolder();
void SetBrowserLastFolder(const wchar_t* folder);

// Ids of the browser's controls.
const int kBrowserNameField = 1001;
const int kBrowserExtensionField = 1002;
const int kBrowserPathField = 1003;
const int kBrowserList = 1004;

class FileBrowserDialog : public DialogBase {
public:
    FileBrowserDialog(HINSTANCE instance, BrowserRequest* request);
    ~FileBrowserDialog() override;

    INT_PTR DialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
    void CreateMenuBar(HWND window) override;
    SharedString GetTitle() override;
    void OnPaint(HWND window, HDC dc, const PAINTSTRUCT& paint) override;
    void Layout(HWND window, int width, int height) override;
    BOOL OnInitDialog(HWND window) override;
    void OnHotKey(WPARAM wParam, LPARAM lParam) override;

    virtual void OnLButtonDown(int x, int y);
    virtual bool OnNotify(const NMHDR* header);
    virtual bool OnCommand(WPARAM wParam, LPARAM lParam);
    virtual void OnOk() = 0;
    virtual bool AcceptEntry(bool isFolder, const wchar_t* name, const wchar_t* extension);
    virtual void FillList();
    virtual void GoUp();
    virtual void ActivateItem();
    virtual const wchar_t* DefaultTitle() = 0;
    virtual DWORD MenuBarFlags();

    const WString& currentFolder() const { return currentFolder_; }

    // An item's parameter: a running number in the low 16 bits, this bit for a folder.
    static const LPARAM kFolderBit = 0x10000;

protected:
    // The controls every variant has; `initialFocus` is where the keyboard starts.
    void AddPathAndList(HWND window, HWND initialFocus);
    HWND AddLabeledField(HWND window, const WString& label, const wchar_t* fallback, const wchar_t* text,
                         bool readOnly, int id, HWND* labelOut);
    void SelectItem(int index);
    int SelectedItem(wchar_t* name, int capacity, LPARAM* parameter) const;
    void Confirm(const wchar_t* result);
    HINSTANCE MenuInstance() const;
    HINSTANCE ImageInstance() const;

    BrowserRequest* request_;
    WString currentFolder_;
    HWND window_ = nullptr;
    HWND list_ = nullptr;
    HIMAGELIST smallIcons_ = nullptr;  // owned by the list
    HWND pathField_ = nullptr;
    HWND nameLabel_ = nullptr;
    HWND nameField_ = nullptr;
    HWND extensionLabel_ = nullptr;
    HWND extensionField_ = nullptr;
    HWND initialFocus_ = nullptr;
    HWND menuBar_ = nullptr;
    RECT upRect_ = {};
    WNDPROC previousListProc_ = nullptr;
    ImageList buttonImages_;
    Bitmap upBitmap_;

private:
    // An icon already in the image list, for the files of one extension.
    struct TypeIcon {
        WString extension;
        int image;
    };

    int AddEntries(HWND shadow);
    int SmallIconFor(const wchar_t* name, DWORD attributes);
    int AddShellIcon(const wchar_t* name, DWORD attributes, bool byTypeOnly);

    std::vector<TypeIcon> typeIcons_;
    int folderIcon_ = kNoIconYet;
    static const int kNoIconYet = -2;
    void PlaceRow(HWND label, HWND field, int width, int* y);
};

class LoadFileDialog : public FileBrowserDialog {
public:
    using FileBrowserDialog::FileBrowserDialog;
    void CreateControls(HWND window) override;
    void OnOk() override;
    const wchar_t* DefaultTitle() override { return L"Load File"; }
};

class SaveFileDialog : public FileBrowserDialog {
public:
    using FileBrowserDialog::FileBrowserDialog;
    void CreateControls(HWND window) override;
    void OnOk() override;
    const wchar_t* DefaultTitle() override { return L"Save File"; }
    DWORD MenuBarFlags() override;

private:
    static LRESULT CALLBACK ListProc(HWND list, UINT message, WPARAM wParam, LPARAM lParam);
};

class SelectFolderDialog : public FileBrowserDialog {
public:
    using FileBrowserDialog::FileBrowserDialog;
    void CreateControls(HWND window) override;
    void OnOk() override;
    bool AcceptEntry(bool isFolder, const wchar_t* name, const wchar_t* extension) override;
    const wchar_t* DefaultTitle() override { return L"Select Folder"; }
};
