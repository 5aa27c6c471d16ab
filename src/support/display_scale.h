#pragma once
// Every pixel size and position is designed for a 96 pixels-per-inch screen and passed through
// these. In VGA mode every value doubles; otherwise it scales by the screen's pixels per inch
// with rounding that is symmetric around zero.

int ScaleForDisplay(int value);
int ScaleForDisplayY(int value);

// Stores the VGA flag; reads the screen's pixels per inch the first time only.
void SetVgaMode(bool vga);
