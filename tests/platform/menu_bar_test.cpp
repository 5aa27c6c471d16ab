#include <windows.h>
#include <commctrl.h>

#include <vector>

#include "platform/device_window.h"
#include "platform/shell.h"
#include "platform_test_support.h"
#include "support/display_scale.h"

namespace {

HWND CreateBar(HWND parent, DWORD flags, HINSTANCE resources = nullptr, UINT menuId = 0,
               DWORD size = kDeviceMenuBarInfoSize) {
    SHMENUBARINFO info = {};
    info.cbSize = size;
    info.hwndParent = parent;
    info.dwFlags = flags;
    info.nToolBarId = menuId;
    info.hInstRes = resources;
    return SHCreateMenuBar(&info) ? info.hwndMB : nullptr;
}

int ButtonCount(HWND bar) { return static_cast<int>(SendMessageW(bar, TB_BUTTONCOUNT, 0, 0)); }

TBBUTTON Button(HWND bar, int index) {
    TBBUTTON button = {};
    SendMessageW(bar, TB_GETBUTTON, index, reinterpret_cast<LPARAM>(&button));
    return button;
}

// The bar fills the strip right below the parent's client area, as wide as that area.
::testing::AssertionResult Docked(HWND bar, HWND parent) {
    RECT client = ClientRectOnScreen(parent);
    RECT strip = WindowRect(bar);
    if (strip.left == client.left && strip.top == client.bottom && Width(strip) == Width(client) &&
        Height(strip) == ScaleForDisplayY(26)) {
        return ::testing::AssertionSuccess();
    }
    return ::testing::AssertionFailure() << "bar (" << strip.left << "," << strip.top << ")-(" << strip.right << ","
                                         << strip.bottom << ") below client (" << client.left << "," << client.top
                                         << ")-(" << client.right << "," << client.bottom << ")";
}

// Lets Wine deliver what the X server sent back (maps, exposures, focus) and repaint.
void SettleWindows() {
    for (int round = 0; round < 10; ++round) {
        PumpMessages();
        Sleep(30);
    }
}

// The bar as the screen shows it: 32-bit pixels, row by row from the top.
struct ScreenPicture {
    int width = 0;
    int height = 0;
    std::vector<COLORREF> pixels;

    COLORREF at(int x, int y) const { return pixels[y * width + x]; }
};

ScreenPicture ReadScreen(const RECT& area) {
    ScreenPicture picture;
    picture.width = Width(area);
    picture.height = Height(area);
    HDC screen = GetDC(nullptr);
    HDC memory = CreateCompatibleDC(screen);
    DWORD* bits = nullptr;
    HBITMAP bitmap = CreateTopDownDib(picture.width, picture.height, &bits);
    HGDIOBJ previous = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, picture.width, picture.height, screen, area.left, area.top, SRCCOPY);
    GdiFlush();
    for (int i = 0; i < picture.width * picture.height; ++i) picture.pixels.push_back(ColourOfDibPixel(bits[i]));
    SelectObject(memory, previous);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    return picture;
}

int Brightness(COLORREF colour) { return (GetRValue(colour) * 3 + GetGValue(colour) * 6 + GetBValue(colour)) / 10; }

// Counts the pixels inside `rect` (bar coordinates) that satisfy `test`.
template <typename Test>
int CountPixels(const ScreenPicture& picture, const RECT& rect, Test test) {
    int count = 0;
    for (int y = rect.top; y < rect.bottom && y < picture.height; ++y) {
        for (int x = rect.left; x < rect.right && x < picture.width; ++x) {
            if (test(picture.at(x, y))) ++count;
        }
    }
    return count;
}

class MenuBarTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_NE(library_.module(), nullptr);
        parent_ = CreateRecordingWindow();
        ASSERT_NE(parent_, nullptr);
    }
    void TearDown() override {
        if (IsWindow(parent_)) DestroyWindow(parent_);
    }

    MenuLibrary library_;
    HWND parent_ = nullptr;
};

TEST_F(MenuBarTest, MenuResourceBecomesTextButtonsTheDeviceCodeCanRework) {
    HWND bar = CreateBar(parent_, SHCMBF_HMENU, library_.module(), kTestMenuId);
    ASSERT_NE(bar, nullptr);
    EXPECT_EQ(GetWindow(bar, GW_OWNER), parent_);
    ASSERT_EQ(ButtonCount(bar), kTestMenuTopItems);

    wchar_t text[32];
    SendMessageW(bar, TB_GETBUTTONTEXTW, Button(bar, 1).idCommand, reinterpret_cast<LPARAM>(text));
    EXPECT_STREQ(text, L"Go");
    EXPECT_EQ(Button(bar, 1).idCommand, 300) << "a plain top-level item keeps its command";

    // The main window's sequence: the menu's second sub-menu loses positions 5 and 6, button 0
    // goes, two image buttons come.
    HMENU menu = reinterpret_cast<HMENU>(SendMessageW(bar, SHCMBM_GETMENU, 0, 0));
    ASSERT_NE(menu, nullptr);
    HMENU tools = GetSubMenu(menu, 2);
    ASSERT_EQ(GetMenuItemCount(tools), 7);
    DeleteMenu(tools, 5, MF_BYPOSITION);
    DeleteMenu(tools, 5, MF_BYPOSITION);
    EXPECT_EQ(GetMenuItemID(tools, 4), 40005u);

    int toolsCommand = Button(bar, 2).idCommand;
    EXPECT_EQ(reinterpret_cast<HMENU>(SendMessageW(bar, SHCMBM_GETSUBMENU, 0, toolsCommand)), tools);
    EXPECT_TRUE(SendMessageW(bar, TB_DELETEBUTTON, 0, 0));
    EXPECT_EQ(ButtonCount(bar), kTestMenuTopItems - 1);

    HIMAGELIST images = ImageList_Create(16, 16, ILC_COLOR24 | ILC_MASK, 2, 0);
    HBITMAP strip = CreateBitmap(32, 16, 1, 32, nullptr);
    ImageList_Add(images, strip, nullptr);
    SendMessageW(bar, TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(images));
    TBBUTTON added[2] = {};
    added[0].iBitmap = 1;
    added[0].idCommand = 1;
    added[0].fsState = TBSTATE_ENABLED;
    added[1].iBitmap = 0;
    added[1].idCommand = 2;
    added[1].fsState = TBSTATE_ENABLED;
    EXPECT_TRUE(SendMessageW(bar, TB_ADDBUTTONSW, 2, reinterpret_cast<LPARAM>(added)));
    EXPECT_EQ(ButtonCount(bar), kTestMenuTopItems + 1);
    EXPECT_EQ(SendMessageW(bar, TB_COMMANDTOINDEX, 2, 0), kTestMenuTopItems);

    // Tapping an image button and the plain command button sends their commands to the parent.
    RECT rect;
    for (int command : {2, 300}) {
        ASSERT_TRUE(SendMessageW(bar, TB_GETRECT, command, reinterpret_cast<LPARAM>(&rect)));
        Click(bar, (rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2);
    }
    PumpMessages();
    ASSERT_EQ(ReceivedBy(parent_).commands.size(), 2u);
    EXPECT_EQ(LOWORD(ReceivedBy(parent_).commands[0]), 2);
    EXPECT_EQ(LOWORD(ReceivedBy(parent_).commands[1]), 300);

    DestroyWindow(bar);
    ImageList_Destroy(images);
    DeleteObject(strip);
}

TEST_F(MenuBarTest, SubMenusCanBeReplacedAndTheOtherMessagesAreAnswered) {
    HWND bar = CreateBar(parent_, SHCMBF_HMENU, library_.module(), kTestMenuId);
    ASSERT_NE(bar, nullptr);
    int editCommand = Button(bar, 0).idCommand;
    HMENU original = reinterpret_cast<HMENU>(SendMessageW(bar, SHCMBM_GETSUBMENU, 0, editCommand));
    ASSERT_NE(original, nullptr);
    EXPECT_EQ(GetMenuItemID(original, 1), 102u);

    HMENU replacement = CreatePopupMenu();
    AppendMenuW(replacement, MF_STRING, 555, L"Other");
    EXPECT_EQ(reinterpret_cast<HMENU>(SendMessageW(bar, SHCMBM_SETSUBMENU, editCommand,
                                                   reinterpret_cast<LPARAM>(replacement))),
              original);
    EXPECT_EQ(reinterpret_cast<HMENU>(SendMessageW(bar, SHCMBM_GETSUBMENU, 0, editCommand)), replacement);
    EXPECT_EQ(SendMessageW(bar, SHCMBM_GETSUBMENU, 0, 12345), 0) << "no such button";
    EXPECT_EQ(SendMessageW(bar, SHCMBM_SETSUBMENU, 12345, reinterpret_cast<LPARAM>(replacement)), 0);
    DestroyWindow(bar);
    DestroyMenu(replacement);  // the bar frees only the menu it loaded
}

// The drop-down opens above its button; a command chosen with the keyboard reaches the parent.
VOID CALLBACK ChooseSecondItem(HWND, UINT, UINT_PTR timer, DWORD) {
    KillTimer(nullptr, timer);
    HWND popup = FindWindowW(L"#32768", nullptr);
    RECT* where = reinterpret_cast<RECT*>(GetPropW(GetDesktopWindow(), L"QLTestMenuRect"));
    if (popup && where) GetWindowRect(popup, where);
    HWND owner = GetForegroundWindow();
    PostMessageW(owner, WM_KEYDOWN, VK_DOWN, 0);
    PostMessageW(owner, WM_KEYDOWN, VK_DOWN, 0);
    PostMessageW(owner, WM_KEYDOWN, VK_RETURN, 0);
}

TEST_F(MenuBarTest, DropDownOpensAboveItsButtonAndSendsTheChosenCommand) {
    HWND bar = CreateBar(parent_, SHCMBF_HMENU, library_.module(), kTestMenuId);
    ASSERT_NE(bar, nullptr);
    SetForegroundWindow(parent_);
    RECT menuRect = {};
    SetPropW(GetDesktopWindow(), L"QLTestMenuRect", &menuRect);
    SetTimer(nullptr, 0, 300, ChooseSecondItem);
    RECT button;
    SendMessageW(bar, TB_GETRECT, Button(bar, 0).idCommand, reinterpret_cast<LPARAM>(&button));
    Click(bar, (button.left + button.right) / 2, (button.top + button.bottom) / 2);  // returns when the menu closes
    RemovePropW(GetDesktopWindow(), L"QLTestMenuRect");
    PumpMessages();

    MapWindowPoints(bar, nullptr, reinterpret_cast<POINT*>(&button), 2);
    EXPECT_GT(Height(menuRect), 0) << "the menu was shown";
    EXPECT_EQ(menuRect.bottom, button.top) << "it sits on top of its button";
    EXPECT_EQ(menuRect.left, button.left);
    ASSERT_EQ(ReceivedBy(parent_).commands.size(), 1u);
    EXPECT_EQ(ReceivedBy(parent_).commands[0], 102u) << "Copy, from a menu (high word 0)";
    EXPECT_EQ(GetActiveWindow(), parent_);
}

TEST_F(MenuBarTest, BarJoinsBelowTheClientAreaAndStaysDockedThroughResizes) {
    RECT clientBefore;
    GetClientRect(parent_, &clientBefore);
    RECT frameBefore = WindowRect(parent_);
    HWND bar = CreateBar(parent_, SHCMBF_EMPTYBAR);
    ASSERT_NE(bar, nullptr);
    int strip = ScaleForDisplayY(26);
    EXPECT_TRUE(IsWindowVisible(bar));

    RECT client;
    GetClientRect(parent_, &client);
    EXPECT_TRUE(EqualRect(&client, &clientBefore)) << "the parent grows by the strip instead";
    EXPECT_EQ(Height(WindowRect(parent_)), Height(frameBefore) + strip);
    EXPECT_TRUE(Docked(bar, parent_));

    // The device code then shortens its window by the bar's height: the client area gives it up.
    RECT frame = WindowRect(parent_);
    MoveWindow(parent_, frame.left, frame.top, Width(frame), Height(frame) - Height(WindowRect(bar)), FALSE);
    GetClientRect(parent_, &client);
    EXPECT_EQ(client.bottom, clientBefore.bottom - strip);
    EXPECT_TRUE(Docked(bar, parent_));

    SetWindowPos(parent_, nullptr, 30, 40, 350, 280, SWP_NOZORDER);
    EXPECT_TRUE(Docked(bar, parent_)) << "after a move and resize";
    RECT barRect = WindowRect(bar);
    POINT inStrip = {(barRect.left + barRect.right) / 2, barRect.bottom - 2};
    EXPECT_EQ(WindowFromPoint(inStrip), bar) << "the parent's window leaves the strip to the bar";

    ShowWindow(parent_, SW_HIDE);
    EXPECT_FALSE(IsWindowVisible(bar));
    ShowWindow(parent_, SW_SHOWNOACTIVATE);
    EXPECT_TRUE(IsWindowVisible(bar));
    EXPECT_TRUE(Docked(bar, parent_));

    // A tap on the bar does not take activation or focus from the parent.
    SetForegroundWindow(parent_);
    EXPECT_EQ(SendMessageW(bar, WM_MOUSEACTIVATE, reinterpret_cast<WPARAM>(parent_), MAKELPARAM(HTCLIENT, WM_LBUTTONDOWN)),
              MA_NOACTIVATE);
}

TEST_F(MenuBarTest, HiddenBarTakesNoRoomAndBadRequestsLeaveTheParentAlone) {
    RECT before = WindowRect(parent_);
    HWND hidden = CreateBar(parent_, SHCMBF_EMPTYBAR | SHCMBF_HIDDEN, nullptr, 0, sizeof(SHMENUBARINFO));
    ASSERT_NE(hidden, nullptr);
    EXPECT_FALSE(IsWindowVisible(hidden));

    SHMENUBARINFO info = {};
    EXPECT_FALSE(SHCreateMenuBar(nullptr));
    info.cbSize = 12;
    info.hwndParent = parent_;
    info.dwFlags = SHCMBF_EMPTYBAR;
    EXPECT_FALSE(SHCreateMenuBar(&info)) << "unknown structure size";
    info.cbSize = kDeviceMenuBarInfoSize;
    info.hwndParent = reinterpret_cast<HWND>(static_cast<UINT_PTR>(0xDEAD0));
    EXPECT_FALSE(SHCreateMenuBar(&info)) << "no such parent";
    EXPECT_EQ(CreateBar(parent_, SHCMBF_HMENU, library_.module(), 4242), nullptr) << "no such menu";
    EXPECT_EQ(CreateBar(parent_, SHCMBF_HMENU, nullptr, kTestMenuId), nullptr) << "the menu is not in the program";
    RECT after = WindowRect(parent_);
    EXPECT_TRUE(EqualRect(&before, &after));

    // A second bar replaces the first.
    ASSERT_NE(CreateBar(parent_, SHCMBF_EMPTYBAR), nullptr);
    EXPECT_FALSE(IsWindow(hidden));
    EXPECT_EQ(Height(WindowRect(parent_)), Height(before) + ScaleForDisplayY(26));
}

TEST_F(MenuBarTest, DestroyingTheBarGivesBackTheStripAndDestroyingTheParentTakesTheBar) {
    RECT frameBefore = WindowRect(parent_);
    RECT clientBefore;
    GetClientRect(parent_, &clientBefore);
    HWND bar = CreateBar(parent_, SHCMBF_HMENU, library_.module(), kTestMenuId);
    ASSERT_NE(bar, nullptr);
    EXPECT_TRUE(DestroyWindow(bar));
    HRGN region = CreateRectRgn(0, 0, 0, 0);
    EXPECT_EQ(GetWindowRgn(parent_, region), ERROR) << "the parent has its whole window again";
    DeleteObject(region);
    RECT frame = WindowRect(parent_);
    RECT client;
    GetClientRect(parent_, &client);
    EXPECT_TRUE(EqualRect(&frame, &frameBefore));
    EXPECT_TRUE(EqualRect(&client, &clientBefore));

    // A bar on a child window docks below it and goes with it, as it goes with the parent.
    HWND child = CreateWindowExW(0, RecordingClass(), L"", WS_CHILD | WS_VISIBLE, 10, 10, 200, 100, parent_, nullptr,
                                 GetModuleHandleW(nullptr), nullptr);
    HWND childBar = CreateBar(child, SHCMBF_EMPTYBAR);
    ASSERT_NE(childBar, nullptr);
    EXPECT_TRUE(Docked(childBar, child));
    DestroyWindow(child);
    EXPECT_FALSE(IsWindow(childBar));
    HWND second = CreateBar(parent_, SHCMBF_HMENU, library_.module(), kTestMenuId);
    ASSERT_NE(second, nullptr);
    DestroyWindow(parent_);
    EXPECT_FALSE(IsWindow(second));
}

// Giving a window the focus makes Wine raise its X window above all others, its owned bar too;
// the screen must still show the bar's buttons on a light background, and taps must reach it.
TEST_F(MenuBarTest, BarStaysOnScreenWhenItsParentIsRaisedByTheFocus) {
    HWND bar = CreateBar(parent_, SHCMBF_HMENU, library_.module(), kTestMenuId);
    ASSERT_NE(bar, nullptr);
    const COLORREF kImageColour = RGB(220, 20, 30);
    HIMAGELIST images = ImageList_Create(16, 16, ILC_COLOR24 | ILC_MASK, 1, 0);
    HDC screen = GetDC(nullptr);
    HBITMAP image = CreateCompatibleBitmap(screen, 16, 16);
    ReleaseDC(nullptr, screen);
    {
        HDC paint = CreateCompatibleDC(nullptr);
        HGDIOBJ previous = SelectObject(paint, image);
        HBRUSH red = CreateSolidBrush(kImageColour);
        RECT square = {0, 0, 16, 16};
        FillRect(paint, &square, red);
        DeleteObject(red);
        SelectObject(paint, previous);
        DeleteDC(paint);
    }
    ImageList_Add(images, image, nullptr);
    SendMessageW(bar, TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(images));
    TBBUTTON added = {};
    added.iBitmap = 0;
    added.idCommand = 1;
    added.fsState = TBSTATE_ENABLED;
    ASSERT_TRUE(SendMessageW(bar, TB_ADDBUTTONSW, 1, reinterpret_cast<LPARAM>(&added)));
    SettleWindows();

    // Another window takes the focus, then the parent gets it back.
    HWND other = CreateRecordingWindow(600, 50, 200, 200);
    SetForegroundWindow(other);
    SetFocus(other);
    SettleWindows();
    SetForegroundWindow(parent_);
    SetFocus(parent_);
    SettleWindows();

    RECT strip = WindowRect(bar);
    POINT centre = {(strip.left + strip.right) / 2, (strip.top + strip.bottom) / 2};
    EXPECT_EQ(WindowFromPoint(centre), bar) << "a tap on the strip reaches the bar";

    ScreenPicture picture = ReadScreen(strip);
    RECT whole = {0, 0, picture.width, picture.height};
    int pixels = picture.width * picture.height;
    int light = CountPixels(picture, whole, [](COLORREF c) { return Brightness(c) >= 200; });
    EXPECT_GT(light, pixels / 2) << "the strip shows a light background, not " << std::hex << picture.at(1, 1);

    RECT textButton;
    ASSERT_TRUE(SendMessageW(bar, TB_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&textButton)));
    int dark = CountPixels(picture, textButton, [](COLORREF c) { return Brightness(c) < 100; });
    EXPECT_GT(dark, 10) << "the text of the first button";
    EXPECT_LT(dark, Width(textButton) * Height(textButton) / 2) << "text, not a dark button";

    RECT imageButton;
    ASSERT_TRUE(SendMessageW(bar, TB_GETRECT, 1, reinterpret_cast<LPARAM>(&imageButton)));
    int red = CountPixels(picture, imageButton, [&](COLORREF c) { return c == kImageColour; });
    EXPECT_GE(red, 16 * 16 / 2) << "the image of the image button";

    DestroyWindow(other);
    DestroyWindow(bar);
    ImageList_Destroy(images);
    DeleteObject(image);
}

}  // namespace
