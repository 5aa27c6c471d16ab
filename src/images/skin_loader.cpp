// Finding a skin picture: TGA or bitmap files in a folder, then the program's resources.
#include "images/skin_image.h"
#include "platform/shell.h"
#include "support/wide_string.h"

namespace {

WString FolderFile(const wchar_t* folder, const wchar_t* name, const wchar_t* suffix) {
    WString path(folder);
    path.append(L"\\");
    path.append(name);
    path.append(suffix);
    return path;
}

bool KeepBitmap(SkinImage& image, HBITMAP bitmap) {
    BITMAP info;
    if (!bitmap || !GetObjectW(bitmap, sizeof info, &info)) {
        if (bitmap) DeleteObject(bitmap);
        return false;
    }
    image.bitmap = bitmap;
    image.bitmapWidth = info.bmWidth;
    image.bitmapHeight = info.bmHeight;
    return true;
}

bool LoadFromFolder(SkinImage& image, const wchar_t* folder, const wchar_t* name, bool allowHigh) {
    if (LoadTgaFile(image, FolderFile(folder, name, L".tga").c_str()) == S_OK) return true;
    HBITMAP bitmap = SHLoadDIBitmap(FolderFile(folder, name, L".bmp").c_str());
    if (!bitmap && allowHigh) bitmap = SHLoadDIBitmap(FolderFile(folder, name, L"_high.bmp").c_str());
    return KeepBitmap(image, bitmap);
}

bool ResourceNameGiven(const wchar_t* name) { return name && (IS_INTRESOURCE(name) || *name); }

}  // namespace

bool LoadSkinImage(SkinImage& image, const wchar_t* folder, const wchar_t* name, HMODULE module,
                   const wchar_t* resourceName, int bitmapId, COLORREF keyColor, bool allowHigh) {
    ReleaseSkinImage(image);
    ReleaseSkinBitmap(image);
    image.keyColor = keyColor;
    if (folder && *folder && name && LoadFromFolder(image, folder, name, allowHigh)) return true;
    if (ResourceNameGiven(resourceName) && LoadTgaResource(image, module, resourceName) == S_OK) return true;
    if (bitmapId == -1) return false;
    return KeepBitmap(image, LoadBitmapW(module, MAKEINTRESOURCEW(bitmapId)));
}
