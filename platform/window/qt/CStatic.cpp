// The class "STATIC": labels and etched lines.
#include "platform/window/CStatic.h"

#include <QLabel>
#include <QPainter>
#include <QStyle>
#include <QTextLayout>
#include <algorithm>
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

// The first line's part above the base line, which letters from another font make higher.
int AscentOf(const QString& text, const QFont& font) {
    QTextLayout layout(text, font);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    return line.isValid() ? qRound(line.ascent()) : 0;
}

// Templates give a line the height of the dialog's font. The base line stays where that font has
// it, so that letters which another font lends are not pushed out of the control.
class Label : public QLabel {
  public:
    using QLabel::QLabel;

  protected:
    void paintEvent(QPaintEvent*) override {
        const int raised = std::max(0, AscentOf(text(), font()) - fontMetrics().ascent());
        const int prefix = buddy() ? Qt::TextShowMnemonic : 0;
        QPainter painter(this);
        style()->drawItemText(&painter, rect().adjusted(0, -raised, 0, raised),
                              int(alignment()) | Qt::TextWordWrap | prefix, palette(), isEnabled(),
                              text(), foregroundRole());
    }
};

QWidget* Make(WindowHandle& handle, QWidget* parent) {
    if (handle.HasStyle(SS_ETCHEDHORZ)) {
        auto* line = new QLabel(parent);
        line->setFrameStyle(QFrame::HLine | QFrame::Sunken);
        return line;
    }
    auto* label = new Label(parent);
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
