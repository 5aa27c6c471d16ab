#pragma once
// Drives a modal dialog from inside its own message loop: a thread timer plays steps while the loop
// runs; a step returns false to be tried again on the next tick. Steps that take too long fail the
// test and end every dialog of the thread, so a broken dialog cannot hang the test.
#include <windows.h>
#include <commctrl.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

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
        std::pair<const wchar_t*, std::vector<HWND>> search(title, {});
        EnumThreadWindows(GetCurrentThreadId(), [](HWND window, LPARAM data) -> BOOL {
            auto* search = reinterpret_cast<std::pair<const wchar_t*, std::vector<HWND>>*>(data);
            wchar_t className[32] = L"", text[256] = L"";
            GetClassNameW(window, className, 32);
            GetWindowTextW(window, text, 256);
            if (wcscmp(className, L"#32770") == 0 && IsWindowVisible(window) &&
                (!search->first || wcscmp(text, search->first) == 0))
                search->second.push_back(window);
            return TRUE;
        }, reinterpret_cast<LPARAM>(&search));
        return search.second;
    }

    static HWND FindDialog(const wchar_t* title) {
        std::vector<HWND> found = ThreadDialogs(title);
        return found.empty() ? nullptr : found.front();
    }

private:
    static void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD) {
        ModalScript* script = current_;
        if (!script || script->busy_) return;
        script->busy_ = true;
        if (++script->ticks_ > script->maxTicks_) {
            if (script->ticks_ == script->maxTicks_ + 1)
                ADD_FAILURE() << "step " << script->next_ + 1 << " never completed";
            for (HWND dialog : ThreadDialogs(nullptr)) EndDialog(dialog, 0);
        } else if (script->next_ < script->steps_.size() && script->steps_[script->next_]()) {
            ++script->next_;
        }
        script->busy_ = false;
    }

    inline static ModalScript* current_ = nullptr;
    std::vector<Step> steps_;
    size_t next_ = 0;
    int ticks_ = 0, maxTicks_ = 1000;
    bool busy_ = false;
};

inline std::wstring WindowText(HWND window) {
    wchar_t text[1024] = L"";
    return GetWindowTextW(window, text, 1024), text;
}

// The texts of a message box's static controls, joined by line feeds.
inline std::wstring StaticTexts(HWND window) {
    std::wstring texts;
    wchar_t className[32];
    for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        if (GetClassNameW(child, className, 32) && _wcsicmp(className, L"static") == 0)
            texts += WindowText(child) + L"\n";
    return texts;
}

inline std::vector<std::wstring> ListTexts(HWND list) {
    std::vector<std::wstring> texts(ListView_GetItemCount(list));
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
