// DeviceContext: what stands behind a CDC, a painter and what is selected into it.
#pragma once

#include <QPainter>
#include <QPixmap>
#include <memory>
#include <optional>

#include "platform/window/CDC.h"

struct DeviceContext {
    // Draws with that painter, whose state it changes; baseFont counts as selected.
    DeviceContext(QPainter& painter, const CFont& baseFont);
    // Draws on nothing, to measure.
    explicit DeviceContext(const CFont& baseFont);
    // Draws on a widget in its paint event.
    DeviceContext(QWidget& widget, const CFont& baseFont);

    std::unique_ptr<QPixmap> nowhere;
    std::unique_ptr<QPainter> own;
    QPainter* painter;
    CFont base;
    CFont* font;
    COLORREF textColor = RGB(0, 0, 0);
    COLORREF backColor = RGB(255, 255, 255);
    int backMode = OPAQUE;
    std::optional<CPen> pen;
    CPoint position;
    CDC object;  // what CDC::FromHandle gives
};
