// Style bits, notification codes and other numbers of windows and controls.
#pragma once

#include "platform/win32/Messages.h"

// Windows
inline constexpr DWORD WS_OVERLAPPED = 0;
inline constexpr DWORD WS_POPUP = 0x80000000;
inline constexpr DWORD WS_CHILD = 0x40000000;
inline constexpr DWORD WS_VISIBLE = 0x10000000;
inline constexpr DWORD WS_DISABLED = 0x08000000;
inline constexpr DWORD WS_CAPTION = 0x00C00000;
inline constexpr DWORD WS_BORDER = 0x00800000;
inline constexpr DWORD WS_VSCROLL = 0x00200000;
inline constexpr DWORD WS_HSCROLL = 0x00100000;
inline constexpr DWORD WS_SYSMENU = 0x00080000;
inline constexpr DWORD WS_THICKFRAME = 0x00040000;
inline constexpr DWORD WS_GROUP = 0x00020000;
inline constexpr DWORD WS_TABSTOP = 0x00010000;
inline constexpr DWORD WS_MINIMIZEBOX = 0x00020000;
inline constexpr DWORD WS_MAXIMIZEBOX = 0x00010000;

// Edits
inline constexpr DWORD ES_LEFT = 0, ES_CENTER = 1, ES_RIGHT = 2;
inline constexpr DWORD ES_PASSWORD = 0x20, ES_AUTOHSCROLL = 0x80, ES_READONLY = 0x800;
inline constexpr UINT EM_SETSEL = 0x00B1, EM_LIMITTEXT = 0x00C5;
inline constexpr UINT EN_SETFOCUS = 0x0100, EN_KILLFOCUS = 0x0200, EN_CHANGE = 0x0300;

// Combo boxes
inline constexpr DWORD CBS_SIMPLE = 1, CBS_DROPDOWN = 2, CBS_DROPDOWNLIST = 3;
inline constexpr DWORD CBS_OWNERDRAWFIXED = 0x10, CBS_AUTOHSCROLL = 0x40, CBS_SORT = 0x100,
                       CBS_HASSTRINGS = 0x200;
inline constexpr UINT CB_LIMITTEXT = 0x0141, CB_SHOWDROPDOWN = 0x014F;
inline constexpr int CB_ERR = -1;
inline constexpr UINT CBN_SELCHANGE = 1, CBN_DBLCLK = 2, CBN_SETFOCUS = 3, CBN_KILLFOCUS = 4,
                      CBN_EDITCHANGE = 5, CBN_DROPDOWN = 7, CBN_CLOSEUP = 8;

// Buttons
inline constexpr DWORD BS_PUSHBUTTON = 0, BS_DEFPUSHBUTTON = 1, BS_CHECKBOX = 2,
                       BS_AUTOCHECKBOX = 3, BS_GROUPBOX = 7, BS_AUTORADIOBUTTON = 9,
                       BS_OWNERDRAW = 11;
inline constexpr DWORD BS_TYPEMASK = 15;
inline constexpr UINT BM_GETCHECK = 0x00F0, BM_SETCHECK = 0x00F1, BM_CLICK = 0x00F5;
inline constexpr int BST_UNCHECKED = 0, BST_CHECKED = 1;
inline constexpr UINT BN_CLICKED = 0;

// Statics and list boxes
inline constexpr DWORD SS_LEFT = 0, SS_CENTER = 1, SS_RIGHT = 2, SS_ETCHEDHORZ = 0x10;
inline constexpr DWORD LBS_NOTIFY = 1, LBS_SORT = 2;
inline constexpr int LB_ERR = -1;
inline constexpr UINT LBN_SELCHANGE = 1, LBN_DBLCLK = 2, LBN_SELCANCEL = 3, LBN_SETFOCUS = 4,
                      LBN_KILLFOCUS = 5;

// Standard control ids and dialog codes
inline constexpr int IDOK = 1, IDCANCEL = 2;
inline constexpr UINT DLGC_WANTARROWS = 1, DLGC_WANTTAB = 2, DLGC_WANTALLKEYS = 4,
                      DLGC_DEFPUSHBUTTON = 0x10, DLGC_WANTCHARS = 0x80, DLGC_BUTTON = 0x2000;
inline constexpr UINT DM_GETDEFID = WM_USER, DM_SETDEFID = WM_USER + 1;

// Parameters of messages
inline constexpr UINT SIZE_RESTORED = 0, SIZE_MINIMIZED = 1, SIZE_MAXIMIZED = 2;
inline constexpr UINT WMSZ_LEFT = 1, WMSZ_RIGHT = 2, WMSZ_TOP = 3, WMSZ_TOPLEFT = 4,
                      WMSZ_TOPRIGHT = 5, WMSZ_BOTTOM = 6, WMSZ_BOTTOMLEFT = 7, WMSZ_BOTTOMRIGHT = 8;
inline constexpr UINT MK_LBUTTON = 1, MK_RBUTTON = 2, MK_SHIFT = 4, MK_CONTROL = 8;
inline constexpr int WHEEL_DELTA = 120;

// Arguments of functions
inline constexpr int SW_HIDE = 0, SW_SHOWNORMAL = 1, SW_SHOW = 5;
inline constexpr UINT SWP_NOSIZE = 1, SWP_NOMOVE = 2, SWP_NOZORDER = 4, SWP_NOREDRAW = 8,
                      SWP_NOACTIVATE = 0x10, SWP_SHOWWINDOW = 0x40, SWP_HIDEWINDOW = 0x80;
inline constexpr UINT GW_HWNDFIRST = 0, GW_HWNDLAST = 1, GW_HWNDNEXT = 2, GW_HWNDPREV = 3,
                      GW_OWNER = 4, GW_CHILD = 5;
inline constexpr int SB_HORZ = 0, SB_VERT = 1;
inline constexpr int LOGPIXELSX = 88, LOGPIXELSY = 90;

// Keys; letters and digits have their ASCII codes.
inline constexpr UINT VK_BACK = 0x08, VK_TAB = 0x09, VK_RETURN = 0x0D, VK_SHIFT = 0x10,
                      VK_CONTROL = 0x11, VK_MENU = 0x12, VK_ESCAPE = 0x1B, VK_SPACE = 0x20,
                      VK_PRIOR = 0x21, VK_NEXT = 0x22, VK_END = 0x23, VK_HOME = 0x24,
                      VK_LEFT = 0x25, VK_UP = 0x26, VK_RIGHT = 0x27, VK_DOWN = 0x28,
                      VK_INSERT = 0x2D, VK_DELETE = 0x2E, VK_F1 = 0x70, VK_F2 = 0x71, VK_F4 = 0x73,
                      VK_F12 = 0x7B;

// Property sheets: flags of sheet and page, buttons of a wizard and their ids
inline constexpr DWORD PSH_PROPTITLE = 0x1, PSH_WIZARDHASFINISH = 0x10, PSH_WIZARD = 0x20,
                       PSH_WIZARD97 = 0x01000000;
inline constexpr DWORD PSP_USETITLE = 0x8, PSP_USEHEADERTITLE = 0x1000,
                       PSP_USEHEADERSUBTITLE = 0x2000;
inline constexpr DWORD PSWIZB_BACK = 1, PSWIZB_NEXT = 2, PSWIZB_FINISH = 4,
                       PSWIZB_DISABLEDFINISH = 8;
inline constexpr int ID_WIZBACK = 12323, ID_WIZNEXT = 12324, ID_WIZFINISH = 12325;
inline constexpr UINT PSM_SETCURSEL = WM_USER + 101, PSM_SETWIZBUTTONS = WM_USER + 112,
                      PSM_PRESSBUTTON = WM_USER + 113;
inline constexpr int PSBTN_BACK = 0, PSBTN_NEXT = 1, PSBTN_FINISH = 2, PSBTN_CANCEL = 6;
