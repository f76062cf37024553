// Units that UTF-8 cannot hold, as characters of plane 16.
#include "platform/kernel/KVSqlText.h"

#include <QChar>
#include <QSqlDriver>
#include <QVariant>
#include <algorithm>

namespace sqltext {

namespace {

constexpr char32_t kFirst = 0x10F000;  // stands for the unit 0xD800, and so on
constexpr char32_t kNull = kFirst + 0x800;

bool IsOurs(char32_t codePoint) { return codePoint >= kFirst && codePoint <= kNull; }

bool MayBeOdd(QChar unit) { return unit.isNull() || unit.isSurrogate(); }

// The code point at the place, with a unit that stands alone as itself. Moves the place on.
char32_t Next(const QString& text, qsizetype& place) {
    const QChar unit = text[place++];
    const bool paired =
        unit.isHighSurrogate() && place < text.size() && text[place].isLowSurrogate();
    return paired ? QChar::surrogateToUcs4(unit, text[place++]) : char32_t(unit.unicode());
}

void Append(QString& text, char32_t codePoint) {
    text += QChar::highSurrogate(codePoint);
    text += QChar::lowSurrogate(codePoint);
}

void AppendEncoded(QString& text, char16_t unit) {
    Append(text, unit == 0 ? kNull : kFirst + (unit - 0xD800));
}

}  // namespace

QString Encoded(const QString& text) {
    if (std::none_of(text.begin(), text.end(), MayBeOdd)) return text;
    QString encoded;
    for (qsizetype place = 0; place < text.size();) {
        const char32_t codePoint = Next(text, place);
        if (IsOurs(codePoint)) {  // a character that would come back as something else
            AppendEncoded(encoded, QChar::highSurrogate(codePoint));
            AppendEncoded(encoded, QChar::lowSurrogate(codePoint));
        } else if (codePoint >= 0x10000) {
            Append(encoded, codePoint);
        } else if (MayBeOdd(QChar(char16_t(codePoint)))) {
            AppendEncoded(encoded, char16_t(codePoint));
        } else {
            encoded += QChar(char16_t(codePoint));
        }
    }
    return encoded;
}

QString Decoded(const QString& text) {
    const char16_t first = QChar::highSurrogate(kFirst);
    const char16_t last = QChar::highSurrogate(kNull);
    const auto mayBeOurs = [&](QChar unit) { return unit >= QChar(first) && unit <= QChar(last); };
    if (std::none_of(text.begin(), text.end(), mayBeOurs)) return text;
    QString decoded;
    for (qsizetype place = 0; place < text.size();) {
        const char32_t codePoint = Next(text, place);
        if (IsOurs(codePoint)) {
            decoded += QChar(codePoint == kNull ? u'\0' : char16_t(codePoint - kFirst + 0xD800));
        } else if (codePoint >= 0x10000) {
            Append(decoded, codePoint);
        } else {
            decoded += QChar(char16_t(codePoint));
        }
    }
    return decoded;
}

bool NeedsEncoding(const QSqlDatabase& database) {
    return database.driver()->dbmsType() == QSqlDriver::PostgreSQL;
}

void EncodeValues(QSqlQuery& prepared) {
    const QVariantList values = prepared.boundValues();
    for (qsizetype i = 0; i < values.size(); ++i) {
        if (values[i].typeId() != QMetaType::QString || values[i].isNull()) continue;
        const QString text = values[i].toString();
        if (const QString encoded = Encoded(text); encoded != text) {
            prepared.bindValue(int(i), encoded);
        }
    }
}

}  // namespace sqltext
