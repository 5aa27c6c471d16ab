#pragma once
// Drives a modal dialog from inside its own loop: a thread timer plays steps, a step returning false is
// tried again on the next tick; a step that never completes fails the test and ends the thread's dialogs.
#include <windows.h>
#include <commctrl.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

using Texts = std::vector<std::wstring>;

inline std::wstring WindowText(HWND window) {
    wchar_t text[1024] = L"";
    return GetWindowTextW(window, text, 1024), text;
}

inline bool ClassIs(HWND window, const wchar_t* name) {
    wchar_t className[32] = L"";
    return GetClassNameW(window, className, 32) && _wcsicmp(className, name) == 0;
}

class ModalScript {
public:
    using Step = std::function<bool()>;

    ModalScript& Then(Step step) { return steps_.push_back(std::move(step)), *this; }

    // Runs `open`, which enters a modal loop and returns when it ends, while the steps play.
    void Play(const std::function<void()>& open, int maxTicks = 1000) {
        ModalScript* outer = std::exchange(current_, this);
        maxTicks_ = maxTicks;
        UINT_PTR timer = SetTimer(nullptr, 0, 10, &ModalScript::Tick);
        open();
        KillTimer(nullptr, timer);
        current_ = outer;
        EXPECT_EQ(next_, steps_.size()) << "the dialog ended before step " << next_ + 1 << " of " << steps_.size();
    }

    // The visible dialogs and message boxes of this thread titled `title` (any when null), topmost first.
    static std::vector<HWND> ThreadDialogs(const wchar_t* title) {
        std::vector<HWND> found;
        for (HWND window = GetTopWindow(nullptr); window; window = GetWindow(window, GW_HWNDNEXT))
            if (GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId() && IsWindowVisible(window) &&
                ClassIs(window, L"#32770") && (!title || WindowText(window) == title))
                found.push_back(window);
        return found;
    }

    static HWND FindDialog(const wchar_t* title) {
        std::vector<HWND> found = ThreadDialogs(title);
        return found.empty() ? nullptr : found.front();
    }

private:
    static void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD) {
        ModalScript* script = std::exchange(current_, nullptr);  // a step's own modal loop plays nothing
        if (!script) return;
        if (++script->ticks_ == script->maxTicks_ + 1) ADD_FAILURE() << "step " << script->next_ + 1 << " hangs";
        if (script->ticks_ > script->maxTicks_)
            for (HWND dialog : ThreadDialogs(nullptr)) EndDialog(dialog, 0);
        else if (script->next_ < script->steps_.size() && script->steps_[script->next_]())
            ++script->next_;
        current_ = script;
    }

    inline static ModalScript* current_ = nullptr;
    std::vector<Step> steps_;
    size_t next_ = 0;
    int ticks_ = 0, maxTicks_ = 1000;
};

// The texts of a message box's static controls, joined by line feeds.
inline std::wstring StaticTexts(HWND window) {
    std::wstring texts;
    for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        if (ClassIs(child, L"static")) texts += WindowText(child) + L"\n";
    return texts;
}

inline Texts ListTexts(HWND list) {
    Texts texts(ListView_GetItemCount(list));
    for (int i = 0; i < static_cast<int>(texts.size()); ++i) {
        wchar_t text[MAX_PATH] = L"";
        ListView_GetItemText(list, i, 0, text, MAX_PATH);
        texts[i] = text;
    }
    return texts;
}

inline std::wstring SelectedText(HWND list) {
    int index = ListView_GetNextItem(list, -1, LVNI_SELECTED);
    return index < 0 ? L"<none>" : ListTexts(list)[index];
}
