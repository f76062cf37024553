// Failures in words.
#include "apps/desktop/FailureText.h"

#include "apps/desktop/Texts.h"
#include "host/Document.h"
#include "platform/drawing/DbBlockReference.h"
#include "platform/drawing/DbText.h"
#include "platform/drawing/OdError.h"

namespace desktop {

namespace {

QString Quoted(const std::u16string& text) {
    constexpr int kLongest = 40;
    QString shown = QString::fromStdU16String(text);
    if (shown.size() > kLongest) shown = shown.left(kLongest) + QStringLiteral("…");
    return shown.isEmpty() ? shown : " \"" + shown + "\"";
}

// A page with lines or texts beside its blocks, met where attributes were asked for.
QString MixedPageText(const OdError_NotThatKindOfClass& error, host::Document& document) {
    OdDbEntityPtr entity =
        OdDbEntity::cast(document.Drawing().getOdDbObjectId(error.handle()).openObject());
    if (entity.isNull()) return {};
    OdDbTextPtr text = OdDbText::cast(entity);
    return Say("The page \"%1\" holds more than block references. The first other object is %2 "
               "%3%4.\n\nAttributes can only be read on pages of block references alone. Untick "
               "\"%5\" in the dialog and read again, or take \"%6\" from the menu, which reads "
               "such pages too. \"kelvara switch\" changes the language of such a drawing.")
        .arg(QString::fromStdU16String(entity->layer().text()),
             QString::fromStdU16String(entity->dxfName().text()),
             QString::fromStdU16String(entity->handle().ascii().text()),
             text.isNull() ? QString() : Quoted(text->textString().text()), Say("Attributes"),
             Plain(Say("Translate in &batch…")));
}

}  // namespace

std::u16string FailureText(const std::exception_ptr& failure, host::Document* document) {
    try {
        std::rethrow_exception(failure);
    } catch (const OdError_NotThatKindOfClass& error) {
        if (!document || error.toClass() != OdDbBlockReference::desc()) return {};
        return MixedPageText(error, *document).toStdU16String();
    } catch (...) {
        return {};  // its own line will do
    }
}

}  // namespace desktop
