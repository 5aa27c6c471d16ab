#pragma once
// A small control holding a row of markers, each a named item icon with a state (off, on, or
// fixed). Tapping toggles a marker and names it in a tool tip; in menu mode a tap opens a menu that
// picks one marker. The owner page hears of both through private messages.
#include <windows.h>

#include <vector>

#include "support/wide_string.h"

enum MarkerState { kMarkerOff = 0, kMarkerOn = 1, kMarkerFixed = 2 };

// Menu command of the marker with value v: kMarkerCommandBase + v (v from 0 to 30). The menu's
// first item ("None") has the command just below and chooses no marker: the owner is then told
// the value kNoMarker.
const UINT kMarkerCommandBase = 1144;
const int kNoMarker = -1;
const UINT kMarkerCommandLast = 1174;
const UINT kAllMarkersTextId = 40791;
const UINT_PTR kTipShowTimer = 9979;
const UINT_PTR kTipHideTimer = 9980;

class IconMarkerStrip {
public:
    IconMarkerStrip() = default;
    IconMarkerStrip(const IconMarkerStrip&) = delete;
    IconMarkerStrip& operator=(const IconMarkerStrip&) = delete;
    ~IconMarkerStrip();

    // Creates the strip as a child of `ownerPage`; `number` is reported back in the messages.
    HWND Create(HWND ownerPage, int number, int x, int y, int width, bool menuMode);
    void AddMarker(const wchar_t* name, int image, int value, MarkerState state);
    void RemoveMarker(int value);
    void Clear() { markers_.clear(); }

    HWND window() const { return window_; }
    int number() const { return number_; }
    int count() const { return static_cast<int>(markers_.size()); }
    int valueAt(int index) const { return markers_[index].value; }
    MarkerState stateAt(int index) const { return markers_[index].state; }
    // Index of the marker with this value, or -1.
    int IndexOfValue(int value) const;
    // Bits of the markers that are on or fixed, bit v for value v.
    DWORD OnSet() const;

    // Marker index under client x, or -1.
    int HitTest(int x) const;
    // What a tap at client point (x, y) does.
    void Tap(int x, int y);
    // What choosing the marker command of `value` from the menu does (kNoMarker: "None").
    void ChooseMarker(int value);
    // In menu mode: the value of the chosen marker (the one that is off), or kNoMarker.
    int ChosenValue() const;
    HWND toolTip() const { return toolTip_; }

private:
    struct Marker {
        WString name;
        int image;
        int value;
        MarkerState state;
    };
    static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void Paint();
    void PaintChoice(HDC dc);
    void ShowTip(const wchar_t* text, POINT tapInScreen);
    void HideTip();
    void OpenMenu();

    std::vector<Marker> markers_;
    HWND window_ = nullptr;
    HWND owner_ = nullptr;
    HWND toolTip_ = nullptr;
    int number_ = 0;
    bool menuMode_ = false;
};
