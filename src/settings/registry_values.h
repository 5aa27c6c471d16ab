#pragma once
// Reading registry values with a fallback, and writing them only when they differ from their
// default (a value equal to its default is deleted instead).
#include <windows.h>

#include "support/wide_string.h"

// The four bytes stored under `name` in an open key, whatever the value's type; `defaultValue`
// when the key is null, the value is missing or it is longer than four bytes. A value shorter
// than four bytes is zero-extended.
DWORD ReadDword(HKEY key, const wchar_t* name, DWORD defaultValue);
// The same, opening `root`\`path` for reading first (the key is not created).
DWORD ReadDword(HKEY root, const wchar_t* path, const wchar_t* name, DWORD defaultValue);

// Reads the value's bytes, whatever its registry type, as UTF-16 text into `out`, up to its first
// zero character or its end (a value without terminator, or of an odd size, ends there; a trailing
// odd byte is dropped); returns 1. When the key is null or the value cannot be read, `out` takes
// `defaultValue` (null counts as empty) and the result is 0.
int ReadString(HKEY key, const wchar_t* name, WString& out, const wchar_t* defaultValue);
// The same, opening `root`\`path` for reading first (the key is not created).
int ReadString(HKEY root, const wchar_t* path, const wchar_t* name, WString& out, const wchar_t* defaultValue);

// Writes `value` as REG_DWORD unless it equals `defaultValue`, in which case the value is deleted.
void WriteDwordOrDelete(HKEY key, const wchar_t* name, DWORD value, DWORD defaultValue);
// Writes `value` as REG_SZ (terminator included) unless it equals `defaultValue` exactly
// (case-sensitive; null counts as empty), in which case the value is deleted.
void WriteStringOrDelete(HKEY key, const wchar_t* name, const wchar_t* value, const wchar_t* defaultValue);

// A system colour from HKLM SOFTWARE\Microsoft\Color: the DWORD value named by the index in
// decimal, else entry `index` of the SHColor array (only when the array is strictly longer than
// index * 4 + 4 bytes), else the default. Only the red, green and blue bytes are kept.
COLORREF ReadSystemColour(int index, COLORREF defaultColour);
