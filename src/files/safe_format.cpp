#include "files/safe_format.h"

namespace {

class BoundedOutput {
public:
    BoundedOutput(wchar_t* out, int capacity) : out_(out), room_(capacity - 1) {}
    bool full() const { return length_ >= room_; }
    void put(wchar_t c) {
        if (!full()) out_[length_++] = c;
    }
    void put(const wchar_t* text) {
        while (*text && !full()) out_[length_++] = *text++;
    }
    void repeat(wchar_t c, int count) {
        for (int i = 0; i < count && !full(); ++i) out_[length_++] = c;
    }
    int finish() {
        out_[length_] = 0;
        return length_;
    }

private:
    wchar_t* out_;
    int room_;
    int length_ = 0;
};

struct Directive {
    bool leftAlign = false;
    bool zeroPad = false;
    int width = 0;
    bool hasPrecision = false;
    int precision = 0;
    wchar_t type = 0;
};

bool IsDigit(wchar_t c) { return c >= L'0' && c <= L'9'; }

// Widths beyond this could never show in any buffer the program formats into.
const int kMaxWidth = 4096;

int ReadNumber(const wchar_t*& f) {
    int number = 0;
    while (IsDigit(*f)) {
        number = number * 10 + (*f++ - L'0');
        if (number > kMaxWidth) number = kMaxWidth;
    }
    return number;
}

// Reads the directive after a '%'; leaves `f` after its type character (or at the terminator).
Directive ReadDirective(const wchar_t*& f) {
    Directive d;
    for (;; ++f) {
        if (*f == L'-') d.leftAlign = true;
        else if (*f == L'0') d.zeroPad = true;
        else if (*f != L'#') break;
    }
    d.width = ReadNumber(f);
    if (*f == L'.') {
        ++f;
        d.hasPrecision = true;
        d.precision = ReadNumber(f);
    }
    for (;;) {
        if (*f == L'l' || *f == L'h' || *f == L'w' || *f == L'L') ++f;
        else if (f[0] == L'I' && f[1] == L'6' && f[2] == L'4') f += 3;
        else break;
    }
    if (*f) d.type = *f++;
    return d;
}

bool IsNumberType(wchar_t type) {
    switch (type) {
        case L'd': case L'i': case L'u': case L'x': case L'X': case L'p': case L'o':
            return true;
        default:
            return false;
    }
}

bool TakesArgument(wchar_t type) {
    switch (type) {
        case L's': case L'S': case L'c': case L'C': case L'n':
            return true;
        default:
            return IsNumberType(type);
    }
}

void EmitDirective(const Directive& d, BoundedOutput& out) {
    wchar_t literal[2] = {d.type, 0};
    const wchar_t* body = L"";
    int bodyLength = 0;
    int zeros = 0;
    if (IsNumberType(d.type)) {
        body = L"0";
        bodyLength = 1;
        if (d.hasPrecision && d.precision > 1) zeros = d.precision - 1;
    } else if (!TakesArgument(d.type)) {
        // Not a directive after all: the character stands for itself.
        body = literal;
        bodyLength = 1;
    }
    int padding = d.width - bodyLength - zeros;
    if (padding < 0) padding = 0;
    if (d.leftAlign) {
        out.repeat(L'0', zeros);
        out.put(body);
        out.repeat(L' ', padding);
    } else if (d.zeroPad && IsNumberType(d.type)) {
        out.repeat(L'0', padding + zeros);
        out.put(body);
    } else {
        out.repeat(L' ', padding);
        out.repeat(L'0', zeros);
        out.put(body);
    }
}

}  // namespace

int FormatWithoutArguments(const wchar_t* format, wchar_t* out, int capacity) {
    BoundedOutput output(out, capacity);
    const wchar_t* f = format;
    while (*f && !output.full()) {
        if (*f != L'%') {
            output.put(*f++);
            continue;
        }
        ++f;
        if (*f == L'%') {
            output.put(L'%');
            ++f;
            continue;
        }
        Directive d = ReadDirective(f);
        if (!d.type) break;
        EmitDirective(d, output);
    }
    return output.finish();
}
