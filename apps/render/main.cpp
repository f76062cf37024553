// kelvara-render: pages of a drawing as pictures, without a window.
#include <QGuiApplication>
#include <cstdio>
#include <new>

#include "apps/painter/ListBuilder.h"
#include "apps/render/Options.h"
#include "apps/render/Pictures.h"
#include "platform/drawing/DbLayerTable.h"
#include "platform/drawing/OdError.h"
#include "platform/text/Conversion.h"

namespace {

constexpr int kDone = 0, kFailed = 1, kWrongUsage = 2;

void PrintLine(std::string message) {
    for (char& c : message) {
        if (c == '\n' || c == '\r') c = ' ';
    }
    std::fprintf(stderr, "kelvara-render: %s\n", message.c_str());
}

std::u16string PageOf(OdDbDatabase& drawing, const render::Options& options,
                      const std::string& name) {
    std::u16string page = text::WideFromNarrow(name);
    OdDbLayerTablePtr layers = drawing.getLayerTableId().openObject();
    if (layers->has(OdString(page))) return page;
    throw render::Error(options.drawing + " has no page " + name +
                        "; 'kelvara pages' lists those that it has");
}

std::vector<painter::DisplayList> ListsOf(const render::Options& options) {
    OdDbDatabasePtr drawing = OdDbDatabase::readFile(options.drawing);
    std::vector<painter::BuildOptions> builds(1);
    for (const std::string& name : options.pages) {
        const std::u16string page = PageOf(*drawing, options, name);
        if (!builds.back().pages) builds.back().pages.emplace();
        if (options.sheets && !builds.back().pages->empty()) builds.push_back({{{}}, {}, 0});
        builds.back().pages->push_back(page);
    }
    std::vector<painter::DisplayList> lists;
    for (const painter::BuildOptions& build : builds) {
        lists.push_back(std::move(*painter::BuildDisplayList(*drawing, build)));
        const painter::DisplayList& list = lists.back();
        if (options.quiet) continue;
        if (list.ItemCount() == 0) PrintLine(options.drawing + ": there is nothing to paint");
        if (list.cut) {
            PrintLine(options.drawing + ": repeats its blocks beyond all measure; only the first " +
                      std::to_string(list.ItemCount()) + " parts are painted");
        }
    }
    return lists;
}

int Work(const render::Options& options, render::Format format, QSizeF size,
         const QColor& background) {
    try {
        render::Write(options.output, render::Picture(ListsOf(options), format, size, background));
        return kDone;
    } catch (const OdError& error) {
        PrintLine(error.description().narrowText());
    } catch (const std::bad_alloc&) {
        PrintLine("out of memory; close other programs, or render single pages");
    } catch (const std::exception& error) {
        PrintLine(error.what());
    }
    return kFailed;
}

}  // namespace

int main(int argc, char** argv) {
    CLI::App app("Paints pages of a drawing as PNG, SVG or PDF.", "kelvara-render");
    render::Options options;
    render::Register(app, options);
    render::Format format{};
    QSizeF size;
    QColor background;
    try {
        app.parse(argc, argv);
        format = render::FormatOf(options);
        size = render::SizeOf(options);
        background = render::BackgroundOf(options);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? kDone : kWrongUsage;
    }
    // No window is ever shown, so that none need be possible.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    // What Qt says of its surroundings is nothing to the user; a failure has a line of its own.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    int one = 1;
    QGuiApplication application(one, argv);
    return Work(options, format, size, background);
}
