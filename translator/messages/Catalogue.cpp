// Reading of a catalogue by position and by two attributes; names of elements do not matter.
#include "translator/messages/Catalogue.h"

#include <QDomDocument>
#include <fstream>
#include <sstream>

#include "platform/kernel/KVServices.h"
#include "platform/kernel/MxSystemServices.h"
#include "platform/win32/Paths.h"
#include "translator/cad/CICad.h"

namespace tq {

namespace {

struct CatalogueFile {
    const char16_t* module;
    const char16_t* file;
};

constexpr CatalogueFile kFiles[] = {
    {u"TQPALETTE", u"\\program\\TQPaletteMsg.config"},
    {u"TQINSERTAUTO", u"\\program\\TQInsertAutoMsg.config"},
    {u"TQAUTOUPDATE", u"\\program\\TQAutoUpdate.config"},
    {u"TQCABOS", u"\\program\\TQCabos.config"},
    {u"TQUTIL", u"\\program\\TQUtil.config"},
    {u"TQIBD", u"\\program\\TQIbd.config"},
    {u"TQMODULOCLP", u"\\program\\TQModuloClp.config"},
    {u"TQOFFICE", u"\\program\\TQOffice.config"},
    {u"TQIBDSETTING", u"\\program\\TQIbdSetting.config"},
    {u"TQTRADUTOR", u"\\program\\TQTradutor.config"},
    {u"TQPROCURA", u"\\program\\TQProcura.config"},
    {u"TQCONECTOR", u"\\program\\TQConectores.config"},
    {u"TQINSERE", u"\\program\\TQInsere.config"},
    {u"TQPLOT", u"\\program\\TQPlot.config"},
    {u"TQSETTINGS", u"\\program\\TQSettings.config"},
    {u"TQWIZARD", u"\\program\\TQWizard.config"},
    {u"TQINC", u"\\program\\TQINC.config"},
    {u"TQLISTAS", u"\\program\\TQListas.config"},
    {u"TQROTAS", u"\\program\\TQRotas.config"},
    {u"TQCIRCLOCAL", u"\\program\\TQCircLocal.config"},
    {u"KVECLASS", u"\\program\\KVEClass.config"},
};

// The directory ends in a backslash and every file begins with one: paths hold both.
void FillModuleTable(std::map<TQString, TQString>& table) {
    TQString directory = CICad().GetExecutableDir();
    for (const CatalogueFile& row : kFiles) table[row.module] = directory + row.file;
}

QDomNode FindLanguageNode(const QDomElement& root, const QString& code) {
    QDomNode node = root.firstChild();
    while (!node.isNull() && node.toElement().attribute("valor") != code) {
        node = node.nextSibling();
    }
    return node;
}

// The section's node, null when neither the language nor English has one with something inside.
QDomNode LanguageSection(const QDomElement& root, const QString& code) {
    QDomNode node = FindLanguageNode(root, code);
    if (!node.hasChildNodes()) node = FindLanguageNode(root, "en");
    return node.hasChildNodes() ? node : QDomNode();
}

std::unique_ptr<const MessageMap> ReadMessages(const QDomNode& container) {
    auto messages = std::make_unique<MessageMap>();
    for (QDomNode node = container.firstChild(); !node.isNull(); node = node.nextSibling()) {
        QDomElement entry = node.toElement();
        TQString text(entry.attribute("valor"));
        text.Replace(u"[PRODUCTNAME]", u"Kelvara Circuit");
        text.Replace(u"[SHORTPRODUCTNAME]", u"KV");
        (*messages)[TQString(entry.attribute("indice"))] = text;
    }
    return messages;
}

}  // namespace

TQString GetCataloguePath(const TQString& module) {
    static std::map<TQString, TQString> table;
    if (table.empty()) FillModuleTable(table);
    return table[module];  // an unknown key leaves its empty row behind, which is meant
}

QString LanguageCode() {
    // The codes are those of the files: 0 and 2 are both English, "jp" and "cn" no slips.
    static const QString codes[25] = {"en", "de", "en", "tr", "hu", "pl", "jp", "fr", "cn",
                                      "zh", "it", "es", "el", "ko", "vi", "ca", "th", "nl",
                                      "ru", "pt", "cs", "bg", "sk", "sv", "no"};
    CMxSystemServices* services = GetMxSystemServices();
    CMxHostAppServices* host = services ? services->GetHostAppServices() : nullptr;
    return codes[host ? host->GetLanguageIndex() : 0];
}

std::unique_ptr<const MessageMap> LoadCatalogue(TQString path, const QString& languageCode) {
    electricalLog(TQString(u"Loading ") + path, ACTIVE_DOCUMENT());
    path.Trim();
    if (path.IsEmpty()) return nullptr;
    // Not by QFile, which takes no path that is not UTF-8.
    std::ifstream file(NativePath(path), std::ios::binary);
    if (!file) return nullptr;
    std::ostringstream content;
    content << file.rdbuf();
    QDomDocument document;
    QString error;
    document.setContent(QByteArray::fromStdString(content.str()), &error);
    if (!error.isEmpty()) return nullptr;
    QDomElement root = document.documentElement();
    if (!root.hasChildNodes()) return nullptr;
    QDomNode container = LanguageSection(root, languageCode).firstChild();
    return container.hasChildNodes() ? ReadMessages(container) : nullptr;
}

}  // namespace tq
