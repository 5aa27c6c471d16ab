#pragma once
// The wide-character text streams of the registry text format. On disk the text is UTF-16
// little-endian code units with no byte-order mark; lines are whatever the writer puts in (the
// format ends every line with a single line feed). The same bytes are produced on every build.
#include <cstdio>
#include <string>

#include "support/wide_string.h"

// Collects UTF-16LE bytes in memory; when opened on a file it writes them there in blocks.
class Utf16TextWriter {
public:
    Utf16TextWriter() = default;
    ~Utf16TextWriter();
    Utf16TextWriter(const Utf16TextWriter&) = delete;
    Utf16TextWriter& operator=(const Utf16TextWriter&) = delete;

    // Creates (or empties) the file; false, with nothing written, when it cannot be created.
    bool open(const wchar_t* path);
    // Writes the remaining bytes and closes the file; false when any write failed.
    bool close();

    // Writes `length` code units of `text` (no terminator).
    void write(const wchar_t* text, int length);
    void write(const wchar_t* text);

    // Memory-only writer: everything written so far.
    const std::string& bytes() const { return bytes_; }

private:
    void flush();

    std::string bytes_;
    FILE* file_ = nullptr;
    bool failed_ = false;
};

// Reads lines from UTF-16LE bytes held in memory. A line comes back whole, however long, with its
// line feed (the last line of a text may have none), so that every line the writer wrote is read
// back as it was. A trailing odd byte is not a character and is ignored.
class Utf16TextReader {
public:
    Utf16TextReader() = default;
    explicit Utf16TextReader(std::string bytes) : bytes_(std::move(bytes)) {}

    // Reads the whole file; false when it cannot be opened.
    bool open(const wchar_t* path);
    // Back to the first line.
    bool rewind();
    // The next line; false at the end of the text. A line holding a NUL character ends there,
    // as a zero-terminated text would.
    bool readLine(WString& line);

private:
    std::string bytes_;
    size_t position_ = 0;
    std::wstring line_;  // kept between calls so that its room is reused
};
