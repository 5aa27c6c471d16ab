#pragma once
// The two main-menu commands' work on settings backup files ("*.qlsb"), without any window: the
// commands choose the file, call these, and show the messages.
//
// Export command: proposes BackupFileName(today) in the save dialog; ExportSettings(path); on true
// shows text 40208 + " \"" + path + "\"" with caption 40209.
// Import command: ImportSettings(path); on false shows 40212/40213 and stays open; on true shows
// 40214/40215, posts the settings-changed message and destroys the main window.
#include <windows.h>

#include "support/wide_string.h"

// "QL_Backup_" + the date as "yyyy_MM_dd" (user default locale).
WString BackupFileName(const SYSTEMTIME& date);
// The same for today's local date.
WString BackupFileName();

// Writes the product tree, the categories and the filters of the running program to `path`.
// False when the file cannot be created (nothing is written then) or a write fails.
bool ExportSettings(const wchar_t* path);

// Reads a backup into the registry. False when the file cannot be opened (nothing changed) or is
// not a backup: the first line is not empty, or a key cannot be created part-way, and then the
// product key is already deleted if its header was read and the keys read so far stay written;
// the settings record is not reloaded. On success the settings record is reloaded, the category
// colours and masks are written back to the registry and the filters file is rewritten from the
// imported filter list.
bool ImportSettings(const wchar_t* path);
