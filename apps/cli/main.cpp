// kelvara: translates electrical project drawings without a window, for scripts, servers and
// checks.
#include <QCoreApplication>
#include <cstdio>
#include <new>

#include "apps/cli/Failure.h"
#include "apps/cli/Options.h"
#include "platform/drawing/OdError.h"

namespace {

constexpr int kDone = 0, kFailed = 1, kWrongUsage = 2;

int Work(const cli::CommandLine& line) {
    try {
        line.action();
        return kDone;
    } catch (const cli::WrongUsage& error) {
        cli::PrintError(error.what());
        return kWrongUsage;
    } catch (const OdError& error) {
        cli::PrintError(error.description().narrowText());
    } catch (const std::bad_alloc&) {
        cli::PrintError("out of memory; close other programs, or work on a smaller drawing");
    } catch (const std::exception& error) {
        cli::PrintError(error.what());
    }
    return kFailed;
}

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    application.setApplicationName("kelvara");
    cli::CommandLine line;
    cli::RegisterInfo(line);
    cli::RegisterCopy(line);
    cli::RegisterPages(line);
    cli::RegisterProject(line);
    cli::RegisterTexts(line);
    cli::RegisterLines(line);
    cli::RegisterTranslate(line);
    cli::RegisterExport(line);
    cli::RegisterImport(line);
    cli::RegisterSwitch(line);
    cli::RegisterDb(line);
    cli::RegisterRun(line);
    try {
        line.app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return line.app.exit(error) == 0 ? kDone : kWrongUsage;
    }
    return Work(line);
}
