// One table of texts behind the toolkit's translations.
#include "apps/desktop/Texts.h"

#include <QCoreApplication>
#include <QHash>
#include <QTranslator>

namespace desktop {

namespace {

constexpr int kGerman = 1, kPortuguese = 19;

// Answers for every context: the buttons of the toolkit's own boxes are in the table too.
class TableTranslator : public QTranslator {
  public:
    TableTranslator(QObject* parent, const char* TextRow::*language) : QTranslator(parent) {
        for (const TextRow& row : AllTexts())
            texts.insert(row.english, QString::fromUtf8(row.*language));
    }

    QString translate(const char*, const char* source, const char*, int) const override {
        return texts.value(source);
    }
    bool isEmpty() const override { return false; }

  private:
    QHash<QByteArray, QString> texts;
};

}  // namespace

QString Say(const char* english) { return QCoreApplication::translate("Desktop", english); }

QString Plain(QString menuText) { return menuText.remove('&').remove(QStringLiteral("…")); }

void InstallTexts(int languageIndex) {
    QCoreApplication* const application = QCoreApplication::instance();
    for (QTranslator* former : application->findChildren<QTranslator*>()) delete former;
    const char* TextRow::*language = languageIndex == kGerman       ? &TextRow::german
                                     : languageIndex == kPortuguese ? &TextRow::portuguese
                                                                    : nullptr;
    if (language) QCoreApplication::installTranslator(new TableTranslator(application, language));
}

}  // namespace desktop
