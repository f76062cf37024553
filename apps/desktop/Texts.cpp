// One table of texts behind the toolkit's translations.
#include "apps/desktop/Texts.h"

#include <QCoreApplication>
#include <QHash>
#include <QLibraryInfo>
#include <QTranslator>

namespace desktop {

namespace {

struct Language {
    int index;  // of the interface
    const char* TextRow::*texts;
    const char* toolkit;  // file of the toolkit's own texts
};
constexpr Language kLanguages[] = {{1, &TextRow::german, "qtbase_de"},
                                   {19, &TextRow::portuguese, "qtbase_pt_BR"}};

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
    for (const Language& language : kLanguages) {
        if (language.index != languageIndex) continue;
        // The toolkit's file dialogs, where its translations are installed.
        auto* toolkit = new QTranslator(application);
        if (toolkit->load(language.toolkit, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
            QCoreApplication::installTranslator(toolkit);
        QCoreApplication::installTranslator(new TableTranslator(application, language.texts));
    }
}

}  // namespace desktop
