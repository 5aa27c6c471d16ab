#pragma once
// The device shell's interface (menu bar, dialog set-up, activation, input panel, images), with
// the device's names, values and field order. Desktop implementations live beside this header.
#include <windows.h>

// ---- Menu bar -----------------------------------------------------------------------------
struct SHMENUBARINFO {
    DWORD cbSize;
    HWND hwndParent;
    DWORD dwFlags;
    UINT nToolBarId;
    HINSTANCE hInstRes;
    int nBmpId;
    int cBmpImages;
    HWND hwndMB;
    COLORREF clrBk;
};

const DWORD SHCMBF_EMPTYBAR = 0x01;
const DWORD SHCMBF_HIDDEN = 0x02;
const DWORD SHCMBF_HIDESIPBUTTON = 0x04;
const DWORD SHCMBF_COLORBK = 0x08;
const DWORD SHCMBF_HMENU = 0x10;

const UINT SHCMBM_SETSUBMENU = WM_USER + 400;
const UINT SHCMBM_GETSUBMENU = WM_USER + 401;
const UINT SHCMBM_GETMENU = WM_USER + 402;
const UINT SHCMBM_OVERRIDEKEY = WM_USER + 403;
const UINT SHCMBM_SETBKCOLOR = WM_USER + 406;

// The size the device's 32-bit structure has; the desktop's own size is accepted too.
const DWORD kDeviceMenuBarInfoSize = 36;

BOOL SHCreateMenuBar(SHMENUBARINFO* info);

// ---- Dialog set-up ------------------------------------------------------------------------
struct SHINITDLGINFO {
    DWORD dwMask;
    HWND hDlg;
    DWORD dwFlags;
};

const DWORD SHIDIM_FLAGS = 0x1;
const DWORD SHIDIF_DONEBUTTON = 0x01;
const DWORD SHIDIF_SIZEDLG = 0x02;
const DWORD SHIDIF_SIZEDLGFULLSCREEN = 0x04;
const DWORD SHIDIF_SIPDOWN = 0x08;
const DWORD SHIDIF_FULLSCREENNOMENUBAR = 0x10;
const DWORD SHIDIF_EMPTYMENU = 0x20;
const DWORD SHIDIF_CANCELBUTTON = 0x80;

BOOL SHInitDialog(SHINITDLGINFO* info);

// ---- Activation and input panel -----------------------------------------------------------
struct SHACTIVATEINFO {
    DWORD cbSize;
    HWND hwndLastFocus;
    UINT fSipUp : 1;
    UINT fSipOnDeactivation : 1;
    UINT fActive : 1;
    UINT fReserved : 29;
};

const DWORD kDeviceActivateInfoSize = 12;
const DWORD SHA_INPUTDIALOG = 1;

BOOL SHHandleWMActivate(HWND window, WPARAM wParam, LPARAM lParam, SHACTIVATEINFO* info, DWORD flags);
BOOL SHHandleWMSettingChange(HWND window, WPARAM wParam, LPARAM lParam, SHACTIVATEINFO* info);

const DWORD SIPF_OFF = 0;
const DWORD SIPF_ON = 1;
const DWORD SIPF_DOCKED = 2;
const DWORD SIPF_LOCKED = 4;
const UINT SPI_SETSIPINFO = 224;
const UINT SPI_GETSIPINFO = 225;

BOOL SipShowIM(DWORD flags);
// Desktop stand-in: no input panel is shown; this is the state the last SipShowIM asked for.
DWORD SipShownFlags();

// ---- Caption OK button --------------------------------------------------------------------
// On the device this extended style puts OK in the title bar; a tap sends WM_COMMAND IDOK.
const DWORD WS_EX_CAPTIONOKBTN = 0x80000000;

// ---- Images -------------------------------------------------------------------------------
HBITMAP SHLoadDIBitmap(LPCWSTR path);
// `source` is a device context or a bitmap that is not selected anywhere.
BOOL TransparentImage(HDC destination, LONG x, LONG y, LONG width, LONG height, HANDLE source,
                      LONG sourceX, LONG sourceY, LONG sourceWidth, LONG sourceHeight, COLORREF key);
