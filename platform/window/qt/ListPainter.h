// ListPainter: draws the rows of a list and asks its owner at each stage (NM_CUSTOMDRAW).
#pragma once

#include <QPainter>

#include "platform/window/qt/DeviceContext.h"
#include "platform/window/qt/ListWidget.h"

class ListPainter {
  public:
    ListPainter(ListWidget& list, QPainter& painter);
    void Paint(const QRect& dirty);

  private:
    // How a row is drawn, and each of its cells, after what the handlers have changed.
    struct Look {
        QFont font;
        UINT state = 0;  // CDIS_...
        COLORREF text = CLR_DEFAULT, back = CLR_DEFAULT;
    };

    LRESULT Ask(DWORD stage, const QRect& rect, int row, int column, Look& look);
    void PaintRow(int row);
    void PaintCell(int row, int column, Look look);
    UINT StateOf(int row) const;
    QColor BackOf(const Look& look) const;
    QColor TextOf(const Look& look) const;

    ListWidget& list;
    QPainter& painter;
    DeviceContext context;
    int hotRow;
    LRESULT listAnswer = CDRF_DODEFAULT;
};
