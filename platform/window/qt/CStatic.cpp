// The class "STATIC": labels and etched lines.
#include "platform/window/CStatic.h"

#include <QLabel>
#include <memory>

#include "platform/window/qt/AccessibleNames.h"
#include "platform/window/qt/WindowHandle.h"

IMPLEMENT_DYNAMIC(CStatic, CWnd)

namespace {

Qt::Alignment AlignmentOf(DWORD style) {
    const DWORD type = style & 3;
    const auto across = type == SS_CENTER  ? Qt::AlignHCenter
                        : type == SS_RIGHT ? Qt::AlignRight
                                           : Qt::AlignLeft;
    return across | Qt::AlignTop;
}

QWidget* Make(WindowHandle& handle, QWidget* parent) {
    auto* label = new QLabel(parent);
    if (handle.HasStyle(SS_ETCHEDHORZ)) {
        label->setFrameStyle(QFrame::HLine | QFrame::Sunken);
        return label;
    }
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(AlignmentOf(handle.style));
    label->setWordWrap(true);
    handle.textOf = [label] { return TextOfLabel(*label); };
    handle.setTextOf = [label, &handle](const QString& text) {
        SetTextOfLabel(*label, text);
        if (handle.parent && handle.HasStyle(WS_CHILD)) NameControls(*handle.parent);
    };
    return label;
}

const WindowClassEntry entry({u"STATIC", &Make, &MakeObject<CStatic>});

}  // namespace

BOOL CStatic::Create(LPCWSTR text, DWORD style, const RECT& rect, CWnd* parent, UINT id) {
    return CWnd::Create(u"STATIC", text, style, rect, parent, id);
}
