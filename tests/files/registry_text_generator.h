#pragma once
// Seeded malformed registry texts for the fuzz tests of the backup and scheme readers: whole
// documents with sections and value lines built from troublesome atoms, mutated, re-encoded,
// cut short or replaced by random bytes.
#include <random>
#include <utility>
#include <string>

#include "common/test_support.h"

class Generator {
public:
    explicit Generator(unsigned seed) : random_(seed) {}

    std::string file() {
        switch (pick(20)) {
            case 0: return randomBytes();
            case 1: return utf8(document());
            case 2: return bigEndian(document());
            default: break;
        }
        std::wstring text = document();
        int mutations = pick(4);
        for (int i = 0; i < mutations; ++i) mutate(text);
        if (pick(15) == 0) text = L"\xFEFF" + text;
        if (pick(15) == 0) text = crLf(text);
        std::string bytes = Utf16Bytes(text);
        if (pick(20) == 0 && !bytes.empty()) bytes.pop_back();
        return bytes;
    }

private:
    int pick(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }

    std::wstring headerName() {
        static const wchar_t* names[] = {L"Software\\QLFuzz\\A", L"Software\\QLFuzz\\B", L"Software\\QLFuzz\\A\\Sub",
                                         L"Software\\QLFuzz\\%s%n\\C", L"Software\\Orvane\\Quillory",
                                         L"Software\\Orvane\\Quillory\\Colors", L"::Categories::", L"::Filters::",
                                         L"Software\\QLFuzz\\" };
        return names[pick(9)];
    }

    std::wstring atom() {
        static const wchar_t* atoms[] = {L"Name", L"%d", L"%s", L"%n", L"%999999d", L"%.9999s", L"%ls%hs%c",
                                         L"%", L"\"=\"", L"\"", L"=", L"=dword:", L"dword:", L"[", L"]",
                                         L"\\", L"not_the_same", L"-1", L"4294967295", L"99999999999999",
                                         L"\x4E2D\x6587", L"\xD800", L"\xFFFF", L"Color", L"Category", L" "};
        int choice = pick(30);
        if (choice < 26) return atoms[choice];
        if (choice == 26) return std::wstring(100 + pick(200), L'n');
        if (choice == 27) return std::wstring(1000 + pick(3000), static_cast<wchar_t>(L'a' + pick(26)));
        if (choice == 28) return std::to_wstring(static_cast<int>(random_()));
        return std::wstring(1, static_cast<wchar_t>(1 + pick(0xFFFE)));
    }

    std::wstring word() {
        std::wstring text;
        int n = 1 + pick(3);
        for (int i = 0; i < n; ++i) text += atom();
        return text;
    }

    std::wstring valueLine() {
        switch (pick(8)) {
            case 0: case 1: return L"\"" + word() + L"\"=\"" + word() + L"\"\n";
            case 2: case 3: return L"\"" + word() + L"\"=dword:" + atom() + L"\n";
            case 4: return L"\"Category\"=\"" + word() + L"\"\n\"FiltersFlag\"=dword:" + atom() +
                           L"\n\"Color\"=dword:" + atom() + L"\n";
            case 5: return L"\"FilterName\"=\"" + word() + L"\"\n\"Index\"=dword:" + std::to_wstring(pick(40)) +
                           L"\n\"VisibleState\"=dword:" + atom() + L"\n\"IncludeUncategorized\"=dword:1\n";
            case 6: return word() + L"\n";
            default: return L"\n";
        }
    }

    std::wstring document() {
        std::wstring text = pick(10) ? L"\n" : L"";
        int sections = 1 + pick(4);
        for (int s = 0; s < sections; ++s) {
            text += L"[" + headerName() + L"]\n";
            int lines = pick(7);
            for (int i = 0; i < lines; ++i) text += valueLine();
            if (pick(8)) text += L"\n";
        }
        return text;
    }

    void mutate(std::wstring& text) {
        if (text.empty()) return;
        size_t at = random_() % text.size();
        switch (pick(5)) {
            case 0: text.erase(at, 1 + pick(20)); break;
            case 1: text.insert(at, atom()); break;
            case 2: text.resize(at); break;
            case 3: text.insert(at, text.substr(at, pick(200))); break;
            default: {
                static const wchar_t special[] = {L'[', L']', L'"', L'=', L'\n', L'%', L'\\', 0, 0xD800, L'\r'};
                text[at] = special[pick(10)];
                break;
            }
        }
    }

    std::string randomBytes() {
        std::string bytes(pick(3000), '\0');
        for (char& b : bytes) b = static_cast<char>(random_());
        if (pick(2)) bytes.insert(0, std::string("\n\0", 2));
        return bytes;
    }

    static std::string utf8(const std::wstring& text) {
        std::string out;
        for (wchar_t c : text) {
            if (c < 0x80) out.push_back(static_cast<char>(c));
            else out += "\xC3\xA9";
        }
        return out;
    }

    static std::string bigEndian(const std::wstring& text) {
        std::string bytes = Utf16Bytes(text);
        for (size_t i = 0; i + 1 < bytes.size(); i += 2) std::swap(bytes[i], bytes[i + 1]);
        return bytes;
    }

    static std::wstring crLf(const std::wstring& text) {
        std::wstring out;
        for (wchar_t c : text) {
            if (c == L'\n') out += L'\r';
            out += c;
        }
        return out;
    }

    std::mt19937 random_;
};
