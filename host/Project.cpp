// Where the language of a project is kept.
#include "host/Project.h"

#include "platform/drawing/DbDictionary.h"
#include "platform/drawing/DbRegAppTable.h"
#include "platform/drawing/DbXrecord.h"

namespace host {

namespace {

constexpr int32_t kNoLanguage = -1;
constexpr int kLanguageGroup = 90;

// The dictionary of the host, made when create is true; null when there is none.
OdDbDictionaryPtr ProjectDictionary(OdDbDatabase& drawing, OdDb::OpenMode mode, bool create) {
    OdDbDictionaryPtr names = drawing.getNamedObjectsDictionaryId().openObject();
    OdDbDictionaryPtr project = OdDbDictionary::cast(names->getAt(kProjectDictionary, mode));
    if (!project.isNull() || !create) return project;
    project = OdDbDictionary::createObject();
    names->upgradeOpen();
    names->setAt(kProjectDictionary, project);
    return project;
}

}  // namespace

LanguageSetting::LanguageSetting(Document& document, Settings& settings)
    : document(document), settings(settings) {}

int32_t LanguageSetting::GetLanguage() const {
    if (!document.Drawing().hasDictionaries()) {
        return settings.ProjectLanguage(document.FileName()).value_or(kNoLanguage);
    }
    OdDbDictionaryPtr project = ProjectDictionary(document.Drawing(), OdDb::kForRead, false);
    if (project.isNull()) return kNoLanguage;
    OdDbXrecordPtr record = OdDbXrecord::cast(project->getAt(kLanguageRecord, OdDb::kForRead));
    OdResBufPtr entry = record.isNull() ? OdResBufPtr() : record->rbChain();
    const bool found = !entry.isNull() && entry->restype() == kLanguageGroup;
    return found ? entry->getInt32() : kNoLanguage;
}

void LanguageSetting::SetLanguage(const int& language) {
    if (!document.Drawing().hasDictionaries()) {
        if (document.FileName().empty() || document.FileName() == "-") {
            throw OdError(eNoDictionaries,
                          u"a drawing of R12 or older has no place for the project's language, and "
                          u"this one has no file to remember it by; save it first");
        }
        settings.SetProjectLanguage(document.FileName(), language);
        return;
    }
    OdDbDictionaryPtr project = ProjectDictionary(document.Drawing(), OdDb::kForWrite, true);
    OdDbXrecordPtr record = OdDbXrecord::cast(project->getAt(kLanguageRecord, OdDb::kForWrite));
    const OdResBufPtr entry = OdResBuf::newRb(kLanguageGroup, language);
    if (!record.isNull()) {
        record->setFromRbChain(entry);
        return;
    }
    record = OdDbXrecord::createObject();
    record->setFromRbChain(entry);
    project->setAt(kLanguageRecord, record);
}

Project::Project(Document& document, Settings& settings)
    : document(document), language(std::make_shared<LanguageSetting>(document, settings)) {}

bool Project::PrepareApplication(const OdString& application) {
    OdDbRegAppTablePtr applications = document.Drawing().getRegAppTableId().openObject();
    return applications->has(application);
}

ProjectManager::ProjectManager(DocumentManager& documents, Settings& settings)
    : documents(documents), settings(settings) {}

std::shared_ptr<CKVProject> ProjectManager::GetProject(CMxDocument* document) {
    if (!documents.IsOpen(document)) return nullptr;
    return std::make_shared<Project>(static_cast<Document&>(*document), settings);
}

}  // namespace host
