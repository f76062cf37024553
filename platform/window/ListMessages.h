// Styles, notifications and records of list controls.
#pragma once

#include "platform/window/Colors.h"
#include "platform/window/WindowTypes.h"

// Styles
inline constexpr DWORD LVS_REPORT = 0x0001, LVS_SINGLESEL = 0x0004, LVS_SHOWSELALWAYS = 0x0008,
                       LVS_EDITLABELS = 0x0200, LVS_NOCOLUMNHEADER = 0x4000,
                       LVS_NOSORTHEADER = 0x8000;
inline constexpr DWORD LVS_EX_GRIDLINES = 0x0001, LVS_EX_FULLROWSELECT = 0x0020,
                       LVS_EX_INFOTIP = 0x0400, LVS_EX_DOUBLEBUFFER = 0x10000;

// Requests of WM_VSCROLL and WM_HSCROLL; the same numbers serve both ways
inline constexpr UINT SB_LINEUP = 0, SB_LINELEFT = 0, SB_LINEDOWN = 1, SB_LINERIGHT = 1,
                      SB_PAGEUP = 2, SB_PAGEDOWN = 3, SB_THUMBPOSITION = 4, SB_THUMBTRACK = 5,
                      SB_TOP = 6, SB_BOTTOM = 7, SB_ENDSCROLL = 8;

// Columns
inline constexpr int LVCFMT_LEFT = 0, LVCFMT_RIGHT = 1, LVCFMT_CENTER = 2, LVCFMT_JUSTIFYMASK = 3;

// Items: states, what to look for, parts, places
inline constexpr UINT LVIS_FOCUSED = 0x0001, LVIS_SELECTED = 0x0002;
inline constexpr int LVNI_ALL = 0, LVNI_FOCUSED = 0x0001, LVNI_SELECTED = 0x0002;
inline constexpr int LVIR_BOUNDS = 0, LVIR_ICON = 1, LVIR_LABEL = 2, LVIR_SELECTBOUNDS = 3;
inline constexpr UINT LVHT_NOWHERE = 0x0001, LVHT_ONITEMLABEL = 0x0004, LVHT_ABOVE = 0x0008,
                      LVHT_BELOW = 0x0010, LVHT_TORIGHT = 0x0020, LVHT_TOLEFT = 0x0040;
inline constexpr UINT LVFI_PARAM = 0x0001, LVFI_STRING = 0x0002, LVFI_PARTIAL = 0x0008;
inline constexpr int LVSIL_NORMAL = 0, LVSIL_SMALL = 1, LVSIL_STATE = 2;

struct LVFINDINFO {
    UINT flags = 0;         // LVFI_PARAM, or LVFI_STRING, and LVFI_PARTIAL for a beginning
    LPCWSTR psz = nullptr;  // compared without regard to case with the text of column 0
    LPARAM lParam = 0;
};

struct LVHITTESTINFO {
    POINT pt;  // of the client area
    UINT flags = 0;
    int iItem = -1;
    int iSubItem = 0;
};

// Below, at or above 0 for the item data of two rows.
using PFNLVCOMPARE = int (*)(LPARAM a, LPARAM b, LPARAM user);

// Notifications
inline constexpr UINT NM_CUSTOMDRAW = static_cast<UINT>(-12);
inline constexpr UINT LVN_COLUMNCLICK = static_cast<UINT>(-108);
inline constexpr UINT LVN_HOTTRACK = static_cast<UINT>(-121);
inline constexpr UINT LVN_BEGINLABELEDITW = static_cast<UINT>(-175);
inline constexpr UINT LVN_BEGINLABELEDIT = LVN_BEGINLABELEDITW;

// Of LVN_COLUMNCLICK, iSubItem the column, and of LVN_HOTTRACK, -1 where the mouse is on no row.
struct NMLISTVIEW {
    NMHDR hdr;
    int iItem = -1;
    int iSubItem = 0;
    POINT ptAction;
    LPARAM lParam = 0;
};
using LPNMLISTVIEW = NMLISTVIEW*;

// Of LVN_BEGINLABELEDIT.
struct NMLVDISPINFO {
    NMHDR hdr;
    struct {
        int iItem = -1;
        int iSubItem = 0;
        LPARAM lParam = 0;
    } item;
};

// Custom draw: stages, answers, states
inline constexpr DWORD CDDS_PREPAINT = 0x0001, CDDS_POSTPAINT = 0x0002, CDDS_ITEM = 0x10000,
                       CDDS_ITEMPREPAINT = 0x10001, CDDS_ITEMPOSTPAINT = 0x10002,
                       CDDS_SUBITEM = 0x20000;
inline constexpr LRESULT CDRF_DODEFAULT = 0, CDRF_NEWFONT = 0x0002, CDRF_SKIPDEFAULT = 0x0004,
                         CDRF_NOTIFYPOSTPAINT = 0x0010, CDRF_NOTIFYITEMDRAW = 0x0020,
                         CDRF_NOTIFYSUBITEMDRAW = 0x0020;
inline constexpr UINT CDIS_SELECTED = 0x0001, CDIS_DISABLED = 0x0004, CDIS_FOCUS = 0x0010,
                      CDIS_HOT = 0x0040;

struct NMCUSTOMDRAW {
    NMHDR hdr;
    DWORD dwDrawStage = 0;
    HDC hdc = nullptr;  // a font selected into it counts with CDRF_NEWFONT
    RECT rc;            // the client area, the row or the cell
    uintptr_t dwItemSpec = 0;
    UINT uItemState = 0;  // a handler that takes CDIS_SELECTED away gets its own colours shown
    LPARAM lItemlParam = 0;
};

// Colours are set by the handler: of the row for all its cells, of a cell for this one.
struct NMLVCUSTOMDRAW {
    NMCUSTOMDRAW nmcd;
    COLORREF clrText = CLR_DEFAULT;
    COLORREF clrTextBk = CLR_DEFAULT;
    int iSubItem = 0;
};
using LPNMLVCUSTOMDRAW = NMLVCUSTOMDRAW*;
