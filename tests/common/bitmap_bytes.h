#pragma once
// Bitmap files made by tests: 24-bit, bottom-up, every pixel the colour `paint` gives for (x, y).
#include <windows.h>

#include <functional>
#include <string>

inline std::string BitmapFileBytes(int width, int height, const std::function<COLORREF(int, int)>& paint) {
    int stride = (width * 3 + 3) & ~3;
    std::string pixels;
    for (int y = height - 1; y >= 0; --y) {
        std::string row;
        for (int x = 0; x < width; ++x) {
            COLORREF c = paint(x, y);
            row += {static_cast<char>(GetBValue(c)), static_cast<char>(GetGValue(c)), static_cast<char>(GetRValue(c))};
        }
        pixels += row + std::string(stride - row.size(), '\0');
    }
    BITMAPFILEHEADER file = {0x4D42, static_cast<DWORD>(54 + pixels.size()), 0, 0, 54};
    BITMAPINFOHEADER info = {40, width, height, 1, 24, BI_RGB, static_cast<DWORD>(pixels.size()), 2835, 2835, 0, 0};
    return std::string(reinterpret_cast<char*>(&file), 14) + std::string(reinterpret_cast<char*>(&info), 40) + pixels;
}

inline std::string PlainBitmap(int width, int height, COLORREF colour) {
    return BitmapFileBytes(width, height, [colour](int, int) { return colour; });
}
