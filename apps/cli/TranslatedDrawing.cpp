// Writing, saving and reporting of translations.
#include "apps/cli/TranslatedDrawing.h"

#include <QJsonArray>

#include "apps/cli/Failure.h"
#include "apps/cli/TranslationRecords.h"

namespace cli {

void AddWriteOptions(CLI::App& command, WriteOptions& write) {
    AddSaveOptions(command, write.save);
    command.add_flag("--record", write.record,
                     "Store each object's texts in the drawing, and set the project's language");
}

void RequireWritable(Session& session, const WriteOptions& write) {
    RequireEditable(session);
    if (!write.record || session.Drawing().hasDictionaries()) return;
    throw Error(
        "--record: a drawing of R12 or older has no place for translation records; save it "
        "as R2000 or later, or leave --record out");
}

TranslatedDrawing::TranslatedDrawing(Session& session, TranslationTable& table,
                                     const WriteOptions& write, Progress& progress)
    : session(session), write(write), progress(progress) {
    report.objects = table.objects->size();
    report.lines = table.Lines().size();
    progress.Phase("writing texts");
    Write(table);
}

void TranslatedDrawing::Write(TranslationTable& table) {
    OnWritten record;
    if (write.record) {
        record = [&table, &store = session.Drawing().store()](const traducaoTQ::ETraduzivel& object,
                                                              const structExpressao& line) {
            return RecordText(store, table, object, line);
        };
    }
    std::shared_ptr<void> terms;
    if (!write.record) terms = std::move(table.table.traducoes);  // records still need them
    const auto closing = OnSecondThread(
        [this, terms = std::move(terms)]() mutable { session.CloseDatabase(std::move(terms)); });
    Written written = WriteTexts(table, session.Drawing(), record, progress);
    report.translated = table.Lines().size();  // the others are gone
    report.unwritten = std::move(written.unwritten);
    report.written = written.texts.size();
    expectation.texts = std::move(written.texts);
    expectation.wires = true;
    if (write.record) {
        session.SetProjectLanguage(table.to->key.ToInt());
        expectation.recordKeys = RecordKeys();
    }
}

void TranslatedDrawing::Save(const std::function<void()>& tell) {
    if (write.save.output.empty()) return tell();
    SaveCertified(session, write.save, std::move(expectation), progress,
                  [&](const Certificate& certificate) {
                      report.certificate = certificate;
                      tell();
                  });
}

QJsonObject ToJson(const Report& report) {
    QJsonArray unwritten;
    for (const Unwritten& text : report.unwritten) {
        unwritten.append(QJsonObject{{"kind", QString::fromStdString(text.kind)},
                                     {"key", QString::fromStdString(text.key)},
                                     {"text", QString::fromStdString(text.text)},
                                     {"reason", QString::fromStdString(text.reason)}});
    }
    QJsonObject object{{"objects", static_cast<qint64>(report.objects)},
                       {"lines", static_cast<qint64>(report.lines)},
                       {"translated", static_cast<qint64>(report.translated)},
                       {"untranslated", static_cast<qint64>(report.lines - report.translated)},
                       {"notWritten", unwritten},
                       {"written", static_cast<qint64>(report.written)},
                       {"saved", report.certificate.has_value()}};
    if (report.certificate) {
        object["stringsChanged"] = static_cast<qint64>(report.certificate->strings);
        object["otherValuesChanged"] = static_cast<qint64>(report.certificate->others);
        object["recordsWritten"] = static_cast<qint64>(report.certificate->records);
    }
    return object;
}

void PrintReport(Output& output, const Report& report) {
    output.Line("objects       " + std::to_string(report.objects));
    output.Line("lines         " + std::to_string(report.lines));
    output.Line("translated    " + std::to_string(report.translated));
    output.Line("untranslated  " + std::to_string(report.lines - report.translated));
    output.Line("not written   " + std::to_string(report.unwritten.size()));
    for (const Unwritten& text : report.unwritten) {
        output.Line("  " + text.kind + " " + Escaped(text.key) + " \"" + Escaped(text.text) +
                    "\": " + Escaped(text.reason));
    }
    if (report.certificate) {
        output.Line("certificate   " + report.certificate->Line());
    } else {
        output.Line("nothing saved " + std::to_string(report.written) +
                    " texts would be written with -o");
    }
}

}  // namespace cli
