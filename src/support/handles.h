#pragma once
// Small owners for Win32 handles and C files: each releases its handle once, copying is deleted.
#include <windows.h>
#include <commctrl.h>

#include <cstdio>

template <typename Handle, typename Traits>
class UniqueHandle {
public:
    UniqueHandle() : handle_(Traits::invalid()) {}
    explicit UniqueHandle(Handle handle) : handle_(handle) {}
    ~UniqueHandle() { reset(); }
    UniqueHandle(const UniqueHandle&) = delete;
    UniqueHandle& operator=(const UniqueHandle&) = delete;
    UniqueHandle(UniqueHandle&& other) noexcept : handle_(other.release()) {}
    UniqueHandle& operator=(UniqueHandle&& other) noexcept {
        if (this != &other) reset(other.release());
        return *this;
    }

    Handle get() const { return handle_; }
    Handle* out() {
        reset();
        return &handle_;
    }
    explicit operator bool() const { return handle_ != Traits::invalid(); }
    Handle release() {
        Handle handle = handle_;
        handle_ = Traits::invalid();
        return handle;
    }
    void reset(Handle handle = Traits::invalid()) {
        if (handle_ != Traits::invalid()) Traits::close(handle_);
        handle_ = handle;
    }

private:
    Handle handle_;
};

struct RegKeyTraits {
    static HKEY invalid() { return nullptr; }
    static void close(HKEY key) { RegCloseKey(key); }
};
template <typename GdiHandle>
struct GdiObjectTraits {
    static GdiHandle invalid() { return nullptr; }
    static void close(GdiHandle object) { DeleteObject(object); }
};
struct ImageListTraits {
    static HIMAGELIST invalid() { return nullptr; }
    static void close(HIMAGELIST list) { ImageList_Destroy(list); }
};
struct MemoryDcTraits {
    static HDC invalid() { return nullptr; }
    static void close(HDC dc) { DeleteDC(dc); }
};
struct FileTraits {
    static FILE* invalid() { return nullptr; }
    static void close(FILE* file) { fclose(file); }
};
struct FindTraits {
    static HANDLE invalid() { return INVALID_HANDLE_VALUE; }
    static void close(HANDLE find) { FindClose(find); }
};
struct FileHandleTraits {
    static HANDLE invalid() { return INVALID_HANDLE_VALUE; }
    static void close(HANDLE file) { CloseHandle(file); }
};
struct LibraryTraits {
    static HMODULE invalid() { return nullptr; }
    static void close(HMODULE module) { FreeLibrary(module); }
};

using RegKey = UniqueHandle<HKEY, RegKeyTraits>;
using Font = UniqueHandle<HFONT, GdiObjectTraits<HFONT>>;
using Bitmap = UniqueHandle<HBITMAP, GdiObjectTraits<HBITMAP>>;
using Brush = UniqueHandle<HBRUSH, GdiObjectTraits<HBRUSH>>;
using ImageList = UniqueHandle<HIMAGELIST, ImageListTraits>;
using MemoryDc = UniqueHandle<HDC, MemoryDcTraits>;
using File = UniqueHandle<FILE*, FileTraits>;
using FindHandle = UniqueHandle<HANDLE, FindTraits>;
using FileHandle = UniqueHandle<HANDLE, FileHandleTraits>;
using Library = UniqueHandle<HMODULE, LibraryTraits>;

// Selects an object into a device context for the guard's lifetime.
class DcSelection {
public:
    DcSelection(HDC dc, HGDIOBJ object) : dc_(dc), previous_(SelectObject(dc, object)) {}
    ~DcSelection() { SelectObject(dc_, previous_); }
    DcSelection(const DcSelection&) = delete;
    DcSelection& operator=(const DcSelection&) = delete;

private:
    HDC dc_;
    HGDIOBJ previous_;
};

// A window's device context from GetDC, released on destruction.
class WindowDc {
public:
    explicit WindowDc(HWND window) : window_(window), dc_(GetDC(window)) {}
    ~WindowDc() { ReleaseDC(window_, dc_); }
    WindowDc(const WindowDc&) = delete;
    WindowDc& operator=(const WindowDc&) = delete;
    HDC get() const { return dc_; }

private:
    HWND window_;
    HDC dc_;
};
