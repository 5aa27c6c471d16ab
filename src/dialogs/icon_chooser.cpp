#include "dialogs/icon_chooser.h"

#include <commctrl.h>

#include <algorithm>
#include <cwchar>
#include <utility>

#include "dialogs/ok_cancel_bar.h"
#include "display/display_ids.h"
#include "files/icon_sets.h"
#include "images/bitmap_file.h"
#include "images/icon_strip.h"
#include "platform/shell.h"
#include "program_ids.h"
#include "string_ids.h"
#include "support/app_state.h"
#include "support/display_scale.h"
#include "support/language_text.h"

namespace {

// What differs between the two modes.
struct ModeTexts {
    UINT titleId;
    UINT firstEntryId;
};
const ModeTexts kCategoryIconTexts = {IDS_ICON_CHOOSER_TITLE, IDS_ICON_NONE};
const ModeTexts kIconSetTexts = {IDS_ICON_SET_TITLE, IDS_ICON_SET_STANDARD};

const ModeTexts& TextsOf(IconChooserMode mode) {
    return mode == IconChooserMode::CategoryIcon ? kCategoryIconTexts : kIconSetTexts;
}

const wchar_t kPictureExtension[] = L".bmp";
const int kExtensionLength = 4;
const COLORREF kCategoryIconKey = 0x0000FF00;  // green is transparent in category icons
const COLORREF kNoIconFrame = 0x00A0A0A0;
const COLORREF kNoIconStroke = 0x002828C8;
const int kPictureSide = 32;   // large icons, in design units
const int kPreviewIcons = 4;   // an icon set is shown by its first four icons, two by two
const DWORD kIconListStyle = WS_CHILD | WS_VISIBLE | WS_BORDER | WS_TABSTOP | LVS_ICON | LVS_SINGLESEL |
                         LVS_AUTOARRANGE | LVS_SHOWSELALWAYS;

bool EndsWithPictureExtension(const wchar_t* name) {
    size_t length = wcslen(name);
    return length > kExtensionLength && _wcsicmp(name + length - kExtensionLength, kPictureExtension) == 0;
}

bool NameSortsBefore(const IconChoice& a, const IconChoice& b) {
    return CompareStringW(LOCALE_USER_DEFAULT, NORM_IGNORECASE, a.name.c_str(), -1, b.name.c_str(), -1) ==
           CSTR_LESS_THAN;
}

// folder + "\" + name, the separator only when the folder does not end with one.
WString InFolder(const WString& folder, const wchar_t* name) {
    WString path(folder.c_str());
    if (path.empty() || path.c_str()[path.length() - 1] != L'\\') path.append(L"\\");
    path.append(name);
    return path;
}

void AddFolderPictures(const WString& folder, std::vector<IconChoice>* choices) {
    WString pattern = InFolder(folder, L"*");
    pattern.append(kPictureExtension);
    WIN32_FIND_DATAW found;
    FindHandle search(FindFirstFileW(pattern.c_str(), &found));
    if (!search) return;
    std::vector<IconChoice> pictures;
    do {
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) || !EndsWithPictureExtension(found.cFileName)) continue;
        IconChoice choice;
        choice.path = InFolder(folder, found.cFileName);
        found.cFileName[wcslen(found.cFileName) - kExtensionLength] = L'\0';
        choice.name.assign(found.cFileName);
        pictures.push_back(choice);
    } while (FindNextFileW(search.get(), &found));
    std::stable_sort(pictures.begin(), pictures.end(), NameSortsBefore);
    choices->insert(choices->end(), pictures.begin(), pictures.end());
}

// A grey square crossed out: the picture of "none", and of every picture that cannot be shown.
void DrawNoIcon(HDC dc, int side) {
    int inset = side / 6;
    Brush frame(CreateSolidBrush(kNoIconFrame));
    RECT square = {inset, inset, side - inset, side - inset};
    FrameRect(dc, &square, frame.get());
    UniqueHandle<HPEN, GdiObjectTraits<HPEN>> stroke(CreatePen(PS_SOLID, ScaleForDisplay(2), kNoIconStroke));
    DcSelection pen(dc, stroke.get());
    MoveToEx(dc, square.left + 1, square.bottom - 2, nullptr);
    LineTo(dc, square.right - 2, square.top + 1);
}

// The picture as large as whole multiples of its size allow (or shrunk to fit), centred.
void DrawFitted(HDC dc, HBITMAP picture, int side) {
    BITMAP info = {};
    GetObjectW(picture, sizeof info, &info);
    int width = info.bmWidth, height = info.bmHeight < 0 ? -info.bmHeight : info.bmHeight;
    int room = side - 2 * ScaleForDisplay(2);
    int times = std::min(room / width, room / height);
    int drawnWidth = times >= 1 ? width * times : (width >= height ? room : std::max(1, width * room / height));
    int drawnHeight = times >= 1 ? height * times : (width >= height ? std::max(1, height * room / width) : room);
    TransparentImage(dc, (side - drawnWidth) / 2, (side - drawnHeight) / 2, drawnWidth, drawnHeight, picture, 0, 0,
                     width, height, kCategoryIconKey);
}

void DrawSetPreview(HDC dc, HBITMAP strip, int side) {
    int half = side / 2, icon = half - 2;
    for (int i = 0; i < kPreviewIcons; ++i)
        DrawStripImage(dc, strip, i, 1 + (i % 2) * half, 1 + (i / 2) * half, icon, QL_ITEM_ICON_MASK);
}

HBITMAP LoadBuiltInItemIcons() {
    if (!g_app.displayLibrary) return nullptr;
    return static_cast<HBITMAP>(
        LoadImageW(g_app.displayLibrary, MAKEINTRESOURCEW(IDB_ITEM_ICONS), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION));
}

bool SamePath(const WString& a, const WString& b) { return _wcsicmp(a.c_str(), b.c_str()) == 0; }

std::vector<IconChoice> WithFirstEntry(IconChooserMode mode, std::vector<IconChoice> pictures) {
    IconChoice first;
    first.name = LanguageText(TextsOf(mode).firstEntryId);
    pictures.insert(pictures.begin(), first);
    return pictures;
}

const wchar_t* FileNameOf(const wchar_t* path) {
    const wchar_t* slash = wcsrchr(path, L'\\');
    return slash ? slash + 1 : path;
}

}  // namespace

std::vector<IconChoice> ListPictureFiles(const std::vector<WString>& folders) {
    std::vector<IconChoice> choices;
    for (const WString& folder : folders)
        if (!folder.empty()) AddFolderPictures(folder, &choices);
    return choices;
}

IconChooserDialog::IconChooserDialog(HINSTANCE instance, IconChooserMode mode, std::vector<IconChoice> choices,
                                     const wchar_t* current)
    : DialogBase(instance, true), mode_(mode), choices_(std::move(choices)), current_(current ? current : L"") {
    chosen_ = current_;
}

INT_PTR IconChooserDialog::DialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_COMMAND:
        if (LOWORD(wParam) == IDOK) {
            Confirm(window);
            return 1;
        }
        if (LOWORD(wParam) == IDCANCEL) {
            EndDialog(window, 0);
            return 1;
        }
        break;
    case WM_NOTIFY: {
        const auto* header = reinterpret_cast<const NMHDR*>(lParam);
        if (header->hwndFrom == list_ && header->code == static_cast<UINT>(LVN_ITEMACTIVATE)) {
            Confirm(window);
            return 1;
        }
        break;
    }
    case WM_DESTROY:
        for (HWND* child : {&list_, &menuBar_}) {
            if (*child && IsWindow(*child)) DestroyWindow(*child);
            *child = nullptr;
        }
        break;
    }
    return DialogBase::DialogProc(window, message, wParam, lParam);
}

BOOL IconChooserDialog::OnInitDialog(HWND window) {
    window_ = window;
    return DialogBase::OnInitDialog(window);
}

void IconChooserDialog::CreateMenuBar(HWND window) { menuBar_ = CreateOkCancelBar(window, &buttonImages_); }

SharedString IconChooserDialog::GetTitle() {
    SharedString title;
    title.set(LanguageText(TextsOf(mode_).titleId).c_str());
    return title;
}

void IconChooserDialog::CreateControls(HWND window) {
    list_ = CreateChild(window, WC_LISTVIEWW, L"", kIconListStyle, false, kIconChooserList, 0);
    if (!list_) return;
    FillList();
    SetFocus(list_);
}

void IconChooserDialog::FillList() {
    int side = ScaleForDisplay(kPictureSide);
    HIMAGELIST pictures = ImageList_Create(side, side, ILC_COLOR24, static_cast<int>(choices_.size()), 0);
    ListView_SetImageList(list_, pictures, LVSIL_NORMAL);  // the list owns it
    ListView_SetIconSpacing(list_, ScaleForDisplay(66), side + ScaleForDisplay(34));
    int selected = 0;
    for (size_t i = 0; i < choices_.size(); ++i) {
        Bitmap picture(MakePicture(choices_[i], side));
        LVITEMW item = {};
        item.mask = LVIF_TEXT | LVIF_IMAGE | LVIF_PARAM;
        item.iItem = static_cast<int>(i);
        item.pszText = const_cast<wchar_t*>(choices_[i].name.c_str());
        item.iImage = picture ? ImageList_Add(pictures, picture.get(), nullptr) : -1;
        item.lParam = static_cast<LPARAM>(i);
        ListView_InsertItem(list_, &item);
        if (i > 0 && SamePath(choices_[i].path, current_)) selected = static_cast<int>(i);
    }
    ListView_SetItemState(list_, selected, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    ListView_EnsureVisible(list_, selected, FALSE);
}

HBITMAP IconChooserDialog::MakePicture(const IconChoice& choice, int side) {
    HBITMAP cell = CreateColourBitmap(side, side);
    MemoryDc dc(CreateCompatibleDC(nullptr));
    if (!cell || !dc) return cell;
    DcSelection into(dc.get(), cell);
    RECT all = {0, 0, side, side};
    FillRect(dc.get(), &all, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    if (mode_ == IconChooserMode::CategoryIcon) {
        Bitmap picture(choice.path.empty() ? nullptr : LoadCheckedBitmap(choice.path.c_str()));
        picture ? DrawFitted(dc.get(), picture.get(), side) : DrawNoIcon(dc.get(), side);
    } else {
        Bitmap strip(choice.path.empty() ? LoadBuiltInItemIcons() : LoadCheckedBitmap(choice.path.c_str()));
        IsIconStrip(strip.get(), QL_ITEM_ICON_COUNT) ? DrawSetPreview(dc.get(), strip.get(), side)
                                                     : DrawNoIcon(dc.get(), side);
    }
    return cell;
}

void IconChooserDialog::Layout(HWND window, int width, int height) {
    int margin = ScaleForDisplay(6);
    if (!list_) return;
    MoveWindow(list_, margin, margin, width - 2 * margin, height - 2 * margin, TRUE);
    ListView_Arrange(list_, LVA_DEFAULT);  // the rows follow the new width
}

// Without a selection (a tap beside every icon) the choice stays what it was.
void IconChooserDialog::Confirm(HWND window) {
    int row = list_ ? ListView_GetNextItem(list_, -1, LVNI_SELECTED) : -1;
    LVITEMW item = {};
    item.mask = LVIF_PARAM;
    item.iItem = row;
    if (row >= 0 && ListView_GetItem(list_, &item) && item.lParam >= 0 &&
        static_cast<size_t>(item.lParam) < choices_.size())
        chosen_ = choices_[item.lParam].path;
    EndDialog(window, 1);
}

bool ChooseCategoryIcon(HWND owner, const std::vector<WString>& folders, const wchar_t* current, WString* chosen) {
    HINSTANCE instance = g_app.instance ? g_app.instance : GetModuleHandleW(nullptr);
    IconChooserDialog dialog(instance, IconChooserMode::CategoryIcon,
                             WithFirstEntry(IconChooserMode::CategoryIcon, ListPictureFiles(folders)), current);
    if (!RunModalFromTemplate(instance, IDD_ICON_CHOOSER, owner, &dialog)) return false;
    chosen->assign(dialog.chosen().c_str());
    return true;
}

bool ChooseIconSet(HWND owner) {
    HINSTANCE instance = g_app.instance ? g_app.instance : GetModuleHandleW(nullptr);
    WString inUse = ChosenIconSet();
    IconChooserDialog dialog(instance, IconChooserMode::IconSet,
                             WithFirstEntry(IconChooserMode::IconSet, ListPictureFiles({IconSetsFolder()})),
                             IconSetPath(inUse.c_str()).c_str());
    if (!RunModalFromTemplate(instance, IDD_ICON_CHOOSER, owner, &dialog)) return false;
    StoreIconSetChoice(FileNameOf(dialog.chosen().c_str()));
    return true;
}
