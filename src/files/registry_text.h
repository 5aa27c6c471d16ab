#pragma once
// The registry text format of settings backups and colour schemes: section headers "[name]",
// one line per value ("name"="text" or "name"=dword:number), an empty line before every header,
// and two special sections, "::Categories::" and "::Filters::", that carry the in-memory category
// and filter lists. All registry paths are relative to the current user's root.
#include <windows.h>

#include "files/text_stream.h"
#include "support/wide_string.h"

struct CategoryList;
struct FilterList;

// ---- writing --------------------------------------------------------------------------------

// Writes the key (created when missing; an empty path is the current user's root) and,
// depth-first, every key below it: a key's REG_SZ and REG_DWORD values come before its sub-keys.
// A key's values end at the first one whose name does not fit 256 characters or whose data does
// not fit 256 bytes. Every line is written whole, however long.
void WriteRegistryTree(const wchar_t* keyPath, Utf16TextWriter& out);
void WriteCategoriesSection(const CategoryList& categories, Utf16TextWriter& out);
void WriteFiltersSection(const FilterList& filters, Utf16TextWriter& out);
// The key tree, then the categories section, then the filters section.
void WriteBackupFile(const wchar_t* keyPath, const CategoryList& categories, const FilterList& filters,
                     Utf16TextWriter& out);

// ---- reading --------------------------------------------------------------------------------

enum SectionKind { kKeySection = 0, kCategoriesSection = 1, kFiltersSection = 2 };

// Reads a whole text: the first line must be exactly "\n". A header naming the product key
// deletes that key with everything below it first. Key sections are written to the registry,
// the special sections update the lists in place (they never add or remove records). False when
// the first line is wrong or a key section's key can be neither opened nor created; whatever was
// written before that stays written.
bool ReadRegistryTextFile(Utf16TextReader& in, CategoryList& categories, FilterList& filters);

// "[name]" followed by one more character (the line feed): at least 3 characters, '[' first and
// ']' last but one.
bool ParseSectionHeader(const wchar_t* line, WString& name);
SectionKind ClassifySection(const wchar_t* name);
// Writes the section's value lines into the key, up to an empty line or the end of the text. An
// empty path names the current user's root itself. False when the key can be neither opened nor
// created.
bool ReadKeySection(const wchar_t* keyPath, Utf16TextReader& in);
void ReadCategoriesSection(Utf16TextReader& in, CategoryList& categories);
void ReadFiltersSection(Utf16TextReader& in, FilterList& filters);

// "name"="text" with one character (the line feed) after the closing quote. On a wrong shape
// both parts are empty and the result is false.
bool ParseStringLine(const wchar_t* line, WString& name, WString& text);
// "name"=dword:number. The name is the rest of the line after its first character, run through
// a format without arguments into 128 characters and cut two characters before the line's first
// '='; the number is read in `base` right after "=dword:". False (value 0) when the line has no
// '=' or fewer than 8 characters from "=dword" to its end.
bool ParseDwordLine(const wchar_t* line, WString& name, DWORD& value, int base);
