#pragma once
// A printf-style formatter that is given no arguments at all. It interprets a text the way
// wsprintfW interprets a format, but every directive that would consume an argument gets a zero
// (numbers) or an empty text (strings, characters), so no directive ever reads memory that does
// not exist. Used where a line of a file is deliberately run through a format.

// Formats `format` into `out` (room for `capacity` characters, terminator included; capacity must
// be at least 1). Returns the number of characters written; the output is cut at capacity - 1.
int FormatWithoutArguments(const wchar_t* format, wchar_t* out, int capacity);
