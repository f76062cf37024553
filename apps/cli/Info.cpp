// kelvara info: what a drawing is and holds.
#include <QJsonArray>
#include <map>
#include <set>

#include "apps/cli/Output.h"
#include "apps/cli/Saving.h"
#include "platform/drawing/DbDictionary.h"
#include "translator/engine/RegistrosTraducao.h"

namespace cli {

namespace {

struct Info {
    std::string format, version, codePage, language;
    std::vector<std::pair<std::string, size_t>> entities;  // by type, in order of their names
    std::vector<std::string> pages, recorded, findings;
};

const char* ReleaseOf(dxf::Version version) {
    switch (version) {
        case dxf::Version::Older:
            return "before R12";
        case dxf::Version::R12:
            return "R12";
        case dxf::Version::R13:
            return "R13";
        case dxf::Version::R14:
            return "R14";
        case dxf::Version::R2000:
            return "R2000";
        case dxf::Version::R2004:
            return "R2004";
        case dxf::Version::R2007:
            return "R2007";
        case dxf::Version::R2010:
            return "R2010";
        case dxf::Version::R2013:
            return "R2013";
        case dxf::Version::R2018:
            return "R2018";
    }
    return "unknown";
}

bool IsLayout(const dxf::Store& store, dxf::RecordIndex block) {
    dxf::GroupReader groups = store.Groups(block);
    dxf::Group group;
    while (groups.Next(group)) {
        if (group.code != 2) continue;
        const QLatin1String name(group.value.data(), static_cast<qsizetype>(group.value.size()));
        return name.startsWith(QLatin1String("*Paper_Space"), Qt::CaseInsensitive);
    }
    return false;
}

// SEQEND ends a list of parts.
bool IsEntity(dxf::RecordType type) {
    using Type = dxf::RecordType;
    return type != Type::Section && type != Type::Endsec && type != Type::Block &&
           type != Type::Endblk && type != Type::Seqend;
}

// Of the model space and the layouts. All but the active layout stand among the blocks.
std::vector<std::pair<std::string, size_t>> CountEntities(const dxf::Store& store) {
    std::map<std::string_view, size_t> counts;
    bool inLayout = false;
    for (dxf::RecordIndex i = 0; i < store.Count(); ++i) {
        const dxf::Record& record = store.At(i);
        if (record.type == dxf::RecordType::Block) inLayout = IsLayout(store, i);
        const bool counted = record.section == dxf::Section::Entities ||
                             (record.section == dxf::Section::Blocks && inLayout);
        if (counted && IsEntity(record.type)) ++counts[store.TypeName(i)];
    }
    return {counts.begin(), counts.end()};
}

// Number of the language as text, shorter numbers first.
struct ByNumber {
    bool operator()(const std::string& a, const std::string& b) const {
        return a.size() != b.size() ? a.size() < b.size() : a < b;
    }
};

std::vector<std::string> RecordedLanguages(OdDbDatabase& drawing) {
    std::set<std::string, ByNumber> keys;
    OdDbDictionaryPtr names = drawing.getNamedObjectsDictionaryId().openObject();
    OdDbDictionaryPtr records =
        OdDbDictionary::cast(names->getAt(traducaoTQ::VRN_TQ_OBJS_TRADS, OdDb::kForRead));
    if (records.isNull()) return {};
    for (auto object = records->newIterator(); !object->done(); object->next()) {
        OdDbDictionaryPtr texts = OdDbDictionary::cast(object->object());
        if (texts.isNull()) continue;
        for (auto text = texts->newIterator(); !text->done(); text->next()) {
            if (!(text->name() == u"OBJ")) keys.insert(text->name().narrowText());
        }
    }
    return {keys.begin(), keys.end()};
}

Info Gather(Session& session) {
    OdDbDatabase& drawing = session.Drawing();
    const dxf::Store& store = drawing.store();
    Info info;
    info.format = store.FileFormat() == dxf::Format::Ascii ? "ASCII DXF" : "binary DXF";
    info.version = ReleaseOf(store.FileVersion());
    if (!store.VersionName().empty()) info.version += " (" + store.VersionName() + ")";
    info.codePage = store.Codec().Utf8() ? "UTF-8" : store.CodePageName();
    if (info.codePage.empty()) info.codePage = "ANSI_1252 (not named)";
    info.entities = CountEntities(store);
    for (const host::Page& page : session.Document().Pages().Pages()) {
        info.pages.push_back(Utf8(page.name));
    }
    const int language = session.ProjectLanguage();
    info.language = language < 0 ? "not set" : std::to_string(language);
    info.recorded = RecordedLanguages(drawing);
    for (const dxf::Finding& finding : store.Findings()) {
        const bool readOnly = finding.severity == dxf::Finding::Severity::ReadOnly;
        info.findings.push_back(Worded(finding, store.FileFormat()) +
                                (readOnly ? " (cannot be edited)" : ""));
    }
    return info;
}

std::string Joined(const std::vector<std::string>& parts) {
    std::string text;
    for (const std::string& part : parts) text += (text.empty() ? "" : ", ") + part;
    return text.empty() ? "none" : Escaped(text);
}

void PrintText(Output& output, const Info& info) {
    output.Line("format             " + info.format);
    output.Line("version            " + info.version);
    output.Line("code page          " + info.codePage);
    output.Line("project language   " + info.language);
    output.Line("recorded languages " + Joined(info.recorded));
    output.Line("pages              " + Joined(info.pages));
    output.Line("entities");
    for (const auto& [type, count] : info.entities) {
        output.Line("  " + type + " " + std::to_string(count));
    }
    output.Line("findings           " + std::to_string(info.findings.size()));
    for (const std::string& finding : info.findings) output.Line("  " + finding);
}

QJsonArray ToJson(const std::vector<std::string>& texts) {
    QJsonArray array;
    for (const std::string& text : texts) array.append(QString::fromStdString(text));
    return array;
}

void PrintJson(Output& output, const Info& info) {
    QJsonObject entities;
    for (const auto& [type, count] : info.entities) {
        entities[QString::fromStdString(type)] = static_cast<qint64>(count);
    }
    output.Object({{"format", QString::fromStdString(info.format)},
                   {"version", QString::fromStdString(info.version)},
                   {"codePage", QString::fromStdString(info.codePage)},
                   {"projectLanguage", QString::fromStdString(info.language)},
                   {"recordedLanguages", ToJson(info.recorded)},
                   {"pages", ToJson(info.pages)},
                   {"entities", entities},
                   {"findings", ToJson(info.findings)}});
}

void Run(const GeneralOptions& general, const std::string& path) {
    Progress progress(general);
    Session session(general);
    progress.Phase("reading");
    session.OpenDrawing(path);
    progress.Phase("counting");
    const Info info = Gather(session);
    progress.End();
    Output output(general);
    if (output.Json()) {
        PrintJson(output, info);
    } else {
        PrintText(output, info);
    }
    output.Finish();
}

}  // namespace

void RegisterInfo(CommandLine& line) {
    auto drawing = std::make_shared<std::string>();
    CLI::App* command = line.Add(line.app, "info",
                                 "Format, version, code page, entities, pages, languages, findings",
                                 [&line, drawing] { Run(line.general, *drawing); });
    AddDrawing(*command, *drawing);
}

}  // namespace cli
