#include "support/wide_string.h"

#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <cwchar>

namespace {

const int kInitialCapacity = 64;
const int kHeadRoom = 4;
const int kGrowth = 64;
const int kLoadBufferChars = 1024;

// Formatting goes through one buffer for the whole process: the program has one UI thread.
wchar_t g_formatBuffer[WString::kFormatBufferChars];

wchar_t* AllocateChars(int count) {
    return static_cast<wchar_t*>(malloc(static_cast<size_t>(count) * sizeof(wchar_t)));
}

}  // namespace

WString::WString() : buffer_(AllocateChars(kInitialCapacity)), capacity_(kInitialCapacity), length_(0) {
    buffer_[0] = 0;
}

WString::WString(const wchar_t* text) : WString() { assign(text); }

WString::WString(const WString& other) : WString() { assign(other.c_str()); }

WString& WString::operator=(const WString& other) {
    if (this != &other) assign(other.c_str());
    return *this;
}

WString::~WString() { free(buffer_); }

void WString::assign(const wchar_t* text) {
    if (!text) text = L"";
    int n = static_cast<int>(wcslen(text));
    // Assigning needs the text and its terminator, n + 1 characters, plus the head-room.
    if (n + 1 + kHeadRoom > capacity_) {
        // The old content is not needed, and `text` cannot lie inside a buffer this small.
        free(buffer_);
        capacity_ = n + kGrowth;
        buffer_ = AllocateChars(capacity_);
    }
    length_ = n;
    memmove(buffer_, text, (static_cast<size_t>(n) + 1) * sizeof(wchar_t));
}

const wchar_t* WString::append(const wchar_t* text) {
    if (!text) return buffer_;
    int n = static_cast<int>(wcslen(text));
    int total = length_ + n;
    if (total + kHeadRoom > capacity_) {
        int newCapacity = total + kGrowth;
        wchar_t* grown = AllocateChars(newCapacity);
        memcpy(grown, buffer_, static_cast<size_t>(length_) * sizeof(wchar_t));
        // `text` may point into the old buffer, so that buffer is freed only after the copy.
        memcpy(grown + length_, text, static_cast<size_t>(n) * sizeof(wchar_t));
        free(buffer_);
        buffer_ = grown;
        capacity_ = newCapacity;
    } else {
        memmove(buffer_ + length_, text, static_cast<size_t>(n) * sizeof(wchar_t));
    }
    length_ = total;
    buffer_[length_] = 0;
    return buffer_;
}

void WString::format(const wchar_t* format, ...) {
    va_list args;
    va_start(args, format);
    // Bounded: at most kFormatBufferChars - 1 characters are written; a longer result is cut
    // there and terminated by hand, because the bounded form leaves no terminator on overflow.
    int written = _vsnwprintf(g_formatBuffer, kFormatBufferChars - 1, format, args);
    va_end(args);
    if (written < 0 || written >= kFormatBufferChars - 1) written = kFormatBufferChars - 1;
    g_formatBuffer[written] = 0;
    assign(g_formatBuffer);
}

int WString::load(HINSTANCE module, UINT id) {
    wchar_t text[kLoadBufferChars];
    text[0] = 0;
    int count = module ? LoadStringW(module, id, text, kLoadBufferChars) : 0;
    if (count <= 0) {
        count = 0;
        text[0] = 0;
    }
    assign(text);
    return count;
}

// ---- SharedString ----------------------------------------------------------------------------
// A block is laid out as: 32-bit reference count, 32-bit length, the characters, a terminator.
// The string points at the characters, so it can be handed on as a plain zero-terminated text.

namespace {

struct SharedBlockHeader {
    volatile LONG references;
    uint32_t length;
};
static_assert(sizeof(SharedBlockHeader) == 8, "characters start 8 bytes into the block");

struct SharedEmptyBlock {
    SharedBlockHeader header;
    wchar_t terminator[2];
};
SharedEmptyBlock g_sharedEmpty = {{0, 0}, {0, 0}};
volatile LONG g_liveBlocks = 0;

wchar_t* EmptyText() { return g_sharedEmpty.terminator; }

SharedBlockHeader* HeaderOf(const wchar_t* text) {
    return reinterpret_cast<SharedBlockHeader*>(
        reinterpret_cast<char*>(const_cast<wchar_t*>(text)) - sizeof(SharedBlockHeader));
}

}  // namespace

const wchar_t* SharedEmptyText() { return EmptyText(); }

SharedString::SharedString() : text_(EmptyText()) {}

SharedString::SharedString(const SharedString& other) : text_(other.text_) {
    if (!isSharedEmpty()) InterlockedIncrement(&HeaderOf(text_)->references);
}

SharedString& SharedString::operator=(const SharedString& other) {
    if (text_ == other.text_) return *this;
    release();
    text_ = other.text_;
    if (!isSharedEmpty()) InterlockedIncrement(&HeaderOf(text_)->references);
    return *this;
}

SharedString::~SharedString() { release(); }

int SharedString::set(const wchar_t* text, int count) {
    if (text && count == -1) count = static_cast<int>(wcslen(text));
    if (!text || count <= 0) {
        release();
        return text ? count : 0;
    }
    // (count + 5) characters: 4 for the header, 1 for the terminator.
    char* block = static_cast<char*>(malloc((static_cast<size_t>(count) + 5) * sizeof(wchar_t)));
    SharedBlockHeader* header = reinterpret_cast<SharedBlockHeader*>(block);
    header->references = 1;
    header->length = static_cast<uint32_t>(count);
    wchar_t* chars = reinterpret_cast<wchar_t*>(block + sizeof(SharedBlockHeader));
    chars[count] = 0;
    memcpy(chars, text, static_cast<size_t>(count) * sizeof(wchar_t));
    InterlockedIncrement(&g_liveBlocks);
    release();
    text_ = chars;
    return count;
}

void SharedString::release() {
    if (!isSharedEmpty()) {
        SharedBlockHeader* header = HeaderOf(text_);
        if (InterlockedDecrement(&header->references) <= 0) {
            free(header);
            InterlockedDecrement(&g_liveBlocks);
        }
    }
    text_ = EmptyText();
}

int SharedString::length() const { return static_cast<int>(HeaderOf(text_)->length); }

bool SharedString::isSharedEmpty() const { return text_ == EmptyText(); }

int SharedString::referenceCount() const {
    return isSharedEmpty() ? 0 : static_cast<int>(HeaderOf(text_)->references);
}

long SharedString::liveBlocks() { return g_liveBlocks; }
