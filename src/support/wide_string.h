#pragma once
// The two string types of the program: WString, the everyday growable text that one owner
// holds, and SharedString, an immutable text shared by reference count.
#include <windows.h>
#include <cstdint>

class WString {
public:
    WString();
    explicit WString(const wchar_t* text);
    WString(const WString& other);
    WString& operator=(const WString& other);
    ~WString();

    const wchar_t* c_str() const { return buffer_; }
    int length() const { return length_; }
    int capacity() const { return capacity_; }
    bool empty() const { return length_ == 0; }

    void assign(const wchar_t* text);
    const wchar_t* append(const wchar_t* text);
    // printf-style formatting (wide %s takes a wide text); the result replaces the text.
    void format(const wchar_t* format, ...);
    // Loads string resource `id` of `module`; returns the number of characters (0 when the id
    // or the module is missing, and the string is then empty).
    int load(HINSTANCE module, UINT id);

    // Characters the shared formatting buffer holds, terminator included. A formatted result
    // longer than this is cut at the buffer's end.
    static const int kFormatBufferChars = 4096;

private:
    wchar_t* buffer_;
    int32_t capacity_;
    int32_t length_;
};

class SharedString {
public:
    SharedString();
    SharedString(const SharedString& other);
    SharedString& operator=(const SharedString& other);
    virtual ~SharedString();

    // Holds `count` characters of `text`; -1 means up to the terminator. A null text or a
    // count of 0 gives the shared empty text. Returns the count used.
    int set(const wchar_t* text, int count = -1);
    // Drops this holder's reference; the string is empty afterwards.
    void release();

    const wchar_t* c_str() const { return text_; }
    int length() const;
    bool isSharedEmpty() const;
    // Reference count of the block, 0 for the shared empty text.
    int referenceCount() const;
    // Blocks allocated and not yet freed, process-wide.
    static long liveBlocks();

private:
    wchar_t* text_;
};

// The one empty representation every empty SharedString points at; never counted or freed.
const wchar_t* SharedEmptyText();
