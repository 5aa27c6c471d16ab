#include "files/text_stream.h"

#include <cwchar>

namespace {

const size_t kFlushBytes = 64 * 1024;

}  // namespace

Utf16TextWriter::~Utf16TextWriter() { close(); }

bool Utf16TextWriter::open(const wchar_t* path) {
    close();
    bytes_.clear();
    failed_ = false;
    file_ = _wfopen(path, L"wb");
    return file_ != nullptr;
}

bool Utf16TextWriter::close() {
    if (!file_) return !failed_;
    flush();
    if (fclose(file_) != 0) failed_ = true;
    file_ = nullptr;
    return !failed_;
}

void Utf16TextWriter::write(const wchar_t* text, int length) {
    size_t start = bytes_.size();
    bytes_.resize(start + static_cast<size_t>(length) * 2);
    char* out = &bytes_[start];
    for (int i = 0; i < length; ++i) {
        unsigned unit = static_cast<unsigned>(text[i]) & 0xFFFF;
        *out++ = static_cast<char>(unit & 0xFF);
        *out++ = static_cast<char>(unit >> 8);
    }
    if (file_ && bytes_.size() >= kFlushBytes) flush();
}

void Utf16TextWriter::write(const wchar_t* text) { write(text, static_cast<int>(wcslen(text))); }

void Utf16TextWriter::flush() {
    if (!file_ || bytes_.empty()) return;
    if (fwrite(bytes_.data(), 1, bytes_.size(), file_) != bytes_.size()) failed_ = true;
    bytes_.clear();
}

bool Utf16TextReader::open(const wchar_t* path) {
    bytes_.clear();
    position_ = 0;
    FILE* file = _wfopen(path, L"rb");
    if (!file) return false;
    char block[64 * 1024];
    size_t got;
    while ((got = fread(block, 1, sizeof block, file)) > 0) bytes_.append(block, got);
    fclose(file);
    return true;
}

bool Utf16TextReader::rewind() {
    position_ = 0;
    return true;
}

bool Utf16TextReader::readLine(WString& line) {
    const unsigned char* data = reinterpret_cast<const unsigned char*>(bytes_.data());
    size_t end = bytes_.size() & ~static_cast<size_t>(1);
    if (position_ >= end) return false;
    line_.clear();
    while (position_ < end) {
        wchar_t c = static_cast<wchar_t>(data[position_] | (data[position_ + 1] << 8));
        position_ += 2;
        line_ += c;
        if (c == L'\n') break;
    }
    line.assign(line_.c_str());
    return true;
}
