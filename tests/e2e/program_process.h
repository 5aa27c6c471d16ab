#pragma once
// The real program started as its own process, as a user starts it, and waiting for its windows.
#include <windows.h>

#include <string>

const wchar_t kInstalledProgram[] = L"C:\\Program Files\\Orvane\\Quillory\\ql_options.exe";

class ProgramProcess {
public:
    explicit ProgramProcess(const wchar_t* arguments = nullptr) {
        std::wstring commandLine = std::wstring(L"\"") + kInstalledProgram + L"\"";
        if (arguments) commandLine += std::wstring(L" ") + arguments;
        STARTUPINFOW startup = {sizeof startup};
        started_ = CreateProcessW(kInstalledProgram, &commandLine[0], nullptr, nullptr, FALSE, 0, nullptr, L"C:\\",
                                  &startup, &process_) != 0;
    }
    ~ProgramProcess() {
        if (!started_) return;
        if (WaitForSingleObject(process_.hProcess, 0) == WAIT_TIMEOUT) TerminateProcess(process_.hProcess, 1);
        CloseHandle(process_.hProcess);
        CloseHandle(process_.hThread);
    }
    ProgramProcess(const ProgramProcess&) = delete;
    ProgramProcess& operator=(const ProgramProcess&) = delete;
    DWORD id() const { return process_.dwProcessId; }
    // Exit code once the process ended within `ms`, or -1.
    long WaitExit(DWORD ms) {
        if (WaitForSingleObject(process_.hProcess, ms) != WAIT_OBJECT_0) return -1;
        DWORD code = 0;
        GetExitCodeProcess(process_.hProcess, &code);
        return static_cast<long>(code);
    }

private:
    bool started_ = false;
    PROCESS_INFORMATION process_ = {};
};

inline bool WaitForGone(HWND window, DWORD ms = 10000) {
    for (DWORD start = GetTickCount(); IsWindow(window) && GetTickCount() - start < ms;) Sleep(50);
    return !IsWindow(window);
}

// The top-level window of `className` titled `title` (either any when null) once it is visible, or null.
inline HWND WaitForShown(const wchar_t* className, const wchar_t* title = nullptr) {
    for (DWORD start = GetTickCount(); GetTickCount() - start < 20000; Sleep(50)) {
        HWND window = FindWindowW(className, title);
        if (window && IsWindowVisible(window)) return window;
    }
    return nullptr;
}

// Picks a page in the grid by typing the start of its title (key presses of repeat count 1), then
// Enter. The grid's type-ahead joins letters typed within half a second of the last, hence the pause.
inline HWND OpenPage(HWND main, const wchar_t* typed, const wchar_t* className) {
    Sleep(600);
    HWND grid = FindWindowExW(main, nullptr, L"SysListView32", nullptr);
    for (const wchar_t* letter = typed; *letter; ++letter) PostMessageW(grid, WM_CHAR, *letter, 1);
    PostMessageW(grid, WM_KEYDOWN, VK_RETURN, 1);
    return WaitForShown(className);
}

inline HWND PageControl(HWND page, int number) { return GetDlgItem(page, 0x1000 + number); }

// A page's or dialog's OK: it stores its values and closes.
inline bool PressOk(HWND window) { return PostMessageW(window, WM_COMMAND, IDOK, 0) && WaitForGone(window); }
