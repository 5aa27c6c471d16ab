#pragma once
// Answers the next message box (or any "#32770" dialog) a process shows (this one unless told
// otherwise), from a watcher thread, and remembers its text and caption.
#include <windows.h>

#include <string>

class DialogAnswerer {
public:
    // `command` is the button to press: IDYES, IDNO, IDOK, IDCANCEL...
    explicit DialogAnswerer(int command, DWORD timeoutMs = 10000, DWORD processId = GetCurrentProcessId());
    ~DialogAnswerer();
    DialogAnswerer(const DialogAnswerer&) = delete;
    DialogAnswerer& operator=(const DialogAnswerer&) = delete;

    // Waits for the watcher; true when a dialog was found and answered.
    bool Wait();
    const std::wstring& caption() const { return caption_; }
    const std::wstring& text() const { return text_; }

private:
    static DWORD WINAPI Watch(void* self);
    int command_;
    DWORD timeoutMs_;
    DWORD processId_;
    HANDLE thread_ = nullptr;
    bool answered_ = false;
    std::wstring caption_;
    std::wstring text_;
};
