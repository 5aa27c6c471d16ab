#pragma once
// Colour schemes: named snapshots of the product's look (every colour setting, every font setting,
// and each category's colour and filter mask), kept as "<name>.scm" files in the Schemes folder of
// the program folder, in the registry text format of settings backups. The Colours page lists,
// saves, loads and deletes them; this module does the file and registry work, without windows.
#include <windows.h>

#include <string>
#include <vector>

#include "files/text_stream.h"
#include "support/wide_string.h"

struct CategoryList;

// "<program folder>\Schemes".
WString SchemesFolder();
// "<program folder>\Schemes\<fileName>".
WString SchemeFilePath(const wchar_t* fileName);

// The names of the folder's "*.scm" files, with their extension, in the file system's order.
// Empty when the folder does not exist.
std::vector<WString> ListSchemeFiles();

// A scheme's text: the Colors tree, the Fonts tree, then the categories section.
void WriteSchemeText(const CategoryList& categories, Utf16TextWriter& out);

enum class SchemeSaveResult { kSaved, kNoName, kExists };
// Saves the running program's look as "<name>.scm", creating the folder when needed. An empty
// name or an existing file writes nothing. A file that cannot be created is not reported: the
// result is kSaved and nothing is written.
SchemeSaveResult SaveSchemeFile(const wchar_t* name);

enum class SchemeLoadResult { kLoaded, kCannotOpen, kRejected };
// Loads a scheme file of the folder. Once the file is open, the Colors and Fonts keys are deleted
// with everything below them and the file is read: its Colors and Fonts trees become the
// registry's, its categories section updates the colour and mask of the listed categories (in
// memory only). On success the settings record is reloaded. When the file is not a registry text
// (kRejected) the two keys stay deleted and the record is not reloaded.
SchemeLoadResult LoadSchemeFile(const wchar_t* fileName);

// What loading reads of a scheme text: its first line, the key sections of the Colors and Fonts
// trees and the categories sections, each with all of its lines; every other section (another
// key, the product key itself, the filters) is left out whole. The lines kept are the file's own
// bytes, so the reader sees them exactly as it would in the file.
std::string SchemeSectionsOnly(const std::string& bytes);

// Deletes the scheme file; whether that succeeded is not examined.
void DeleteSchemeFile(const wchar_t* fileName);
