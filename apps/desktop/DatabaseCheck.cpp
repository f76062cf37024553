// The trial connection and its thread.
#include "apps/desktop/DatabaseCheck.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QPushButton>
#include <QThread>
#include <memory>

#include "apps/desktop/Texts.h"
#include "apps/desktop/WrappedLabel.h"
#include "host/DatabaseUrl.h"
#include "host/Dictionary.h"
#include "host/Error.h"

namespace desktop {

DatabaseCheck::DatabaseCheck(std::function<QString()> url, QWidget* parent)
    : QWidget(parent),
      url(std::move(url)),
      button(new QPushButton(Say("&Test"))),
      result(new WrappedLabel) {
    button->setObjectName("test");
    result->setObjectName("testResult");
    result->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(button);
    layout->addWidget(result, 1);
    connect(button, &QPushButton::clicked, this, &DatabaseCheck::Start);
}

void DatabaseCheck::Start() {
    button->setEnabled(false);
    result->Show(Say("Connecting…"));
    const auto told = std::make_shared<QString>();
    QThread* const thread =
        QThread::create([address = url(), told] { *told = TryDictionary(address); });
    connect(thread, &QThread::finished, this, [this, told] {
        result->Show(*told);
        button->setEnabled(true);
    });
    // The form may be gone by then.
    connect(thread, &QThread::finished, thread, &QObject::deleteLater);
    thread->start();
}

QString TryDictionary(const QString& url) {
    try {
        const host::DatabaseUrl parsed = host::ParseDatabaseUrl(url);
        const bool isFile = parsed.kind == host::DatabaseUrl::Kind::Sqlite;
        if (isFile && !QFileInfo::exists(parsed.file) &&
            QFileInfo(QFileInfo(parsed.file).absolutePath()).isWritable())
            return Say("There is no such file yet; it is made when the dictionary is first used.");
        const host::Terms terms = host::Dictionary(url).ReadTerms();
        return Say("It works: %1 languages, %2 terms.")
            .arg(terms.languages.size())
            .arg(terms.terms.size());
    } catch (const host::Error& error) {
        return QString::fromUtf8(error.what());
    }
}

}  // namespace desktop
