// Saves with a verification, also to standard output.
#include "apps/cli/Saving.h"

#include <unistd.h>

#include <QTemporaryDir>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>

#include "apps/cli/Failure.h"

namespace cli {

namespace {

[[noreturn]] void FailOutput() {
    throw Error(std::string("cannot write the drawing to standard output: ") +
                std::strerror(errno));
}

void CopyToStdout(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::vector<char> block(size_t{1} << 20);
    while (file) {
        file.read(block.data(), static_cast<std::streamsize>(block.size()));
        const auto count = static_cast<size_t>(file.gcount());
        if (std::fwrite(block.data(), 1, count, stdout) != count) FailOutput();
    }
    if (file.bad()) throw Error("cannot read back " + path);
    if (std::fflush(stdout) != 0) FailOutput();
}

// A stream cannot be replaced in one step, so that the whole drawing is made and verified in a file
// of its own first.
void SaveToStdout(OdDbDatabase& drawing, const dxf::Store::Verify& verify) {
    const QTemporaryDir folder;
    if (!folder.isValid()) {
        throw Error("cannot make a temporary folder for the drawing: " +
                    folder.errorString().toStdString() + "; set TMPDIR to a folder with room");
    }
    const std::string path = folder.filePath("drawing.dxf").toStdString();
    drawing.writeFile(path, false, verify);
    CopyToStdout(path);
}

}  // namespace

void SaveDrawing(Session& session, const SaveOptions& options, const dxf::Store::Verify& verify) {
    if (options.output == kStandardStream) {
        SaveToStdout(session.Drawing(), verify);
    } else {
        session.Drawing().writeFile(options.output, options.force, verify);
    }
}

void SaveCertified(Session& session, const SaveOptions& options, Expectation expectation,
                   Progress& progress, const Tell& tell) {
    progress.Phase("saving");
    SaveDrawing(session, options, [&](const std::string& path) {
        progress.Phase("certifying");
        const Certificate certificate =
            CertifyFile(session.Drawing().store(), path, std::move(expectation),
                        [&](double fraction) { progress.Reached(fraction); });
        if (certificate.Holds()) return tell(certificate);
        throw Error("the certificate of " + options.output + " fails: " + certificate.Line() +
                    " (" + certificate.firstOther + "); the output was left as it was");
    });
}

void RequireEditable(Session& session) {
    if (!session.Drawing().isReadOnly()) return;
    const dxf::Store& store = session.Drawing().store();
    std::string why;
    for (const dxf::Finding& finding : store.Findings()) {
        if (finding.severity != dxf::Finding::Severity::ReadOnly) continue;
        why = Worded(finding, store.FileFormat());
        break;
    }
    throw Error(session.Document().FileName() + ": can be read but not safely edited: " + why +
                "; open it in a CAD program and save it anew");
}

std::string Worded(const dxf::Finding& finding, dxf::Format format) {
    if (finding.line == 0) return finding.text;
    return (format == dxf::Format::Ascii ? "line " : "byte ") + std::to_string(finding.line) +
           ": " + finding.text;
}

}  // namespace cli
