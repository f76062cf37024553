// Languages by their keys.
#include "apps/desktop/LanguageBox.h"

#include "apps/desktop/Guard.h"
#include "apps/desktop/Texts.h"

namespace desktop {

namespace {

constexpr int kNoLanguage = -1;

}  // namespace

LanguageBox::LanguageBox(Desktop& desktop, QWidget* parent) : QComboBox(parent), desktop(desktop) {
    setObjectName("projectLanguage");
    setAccessibleName(Say("Project language"));
    setToolTip(Say("Project language"));
    setSizeAdjustPolicy(QComboBox::AdjustToContents);
    setMinimumContentsLength(12);
    connect(this, &QComboBox::activated, this, [this] { Choose(); });
    desktop.Add(*this);
    Refresh(nullptr);
}

LanguageBox::~LanguageBox() { desktop.Remove(*this); }

void LanguageBox::Opened(host::Document& document) {
    ReadLanguages();
    Refresh(&document);
}

void LanguageBox::Changed(host::Document& document) {
    if (readable) ReadLanguages();
    Refresh(&document);
}

// A dictionary that cannot be read is said in the tip and stops nobody.
void LanguageBox::ReadLanguages() {
    try {
        host::Dictionary dictionary(desktop.Host().DatabaseUrl(), host::OnMissing::Create);
        languages = dictionary.Languages();
        readable = true;
        setToolTip(Say("Project language"));
    } catch (const std::exception& error) {
        readable = false;
        setToolTip(QString::fromUtf8(error.what()));
    }
}

void LanguageBox::Refresh(host::Document* document) {
    clear();
    setEnabled(document != nullptr);
    if (!document) return;
    for (const host::Language& one : languages) {
        if (one.inUse) addItem(one.description, one.key.toInt());
    }
    const int language = desktop.Host().ProjectLanguage(*document);
    if (language == kNoLanguage) {
        insertItem(0, Say("Language not set"), kNoLanguage);
    } else if (findData(language) < 0) {
        insertItem(0, Say("Language %1").arg(language), language);
    }
    setCurrentIndex(findData(language));
}

void LanguageBox::Choose() {
    host::Document* document = desktop.Active();
    const int chosen = currentData().toInt();
    if (!document || chosen == desktop.Host().ProjectLanguage(*document)) return;
    Guarded(Say("Project language"), [&] { desktop.SetLanguage(*document, chosen); });
    Refresh(document);
}

}  // namespace desktop
