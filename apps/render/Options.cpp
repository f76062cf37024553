// The command line of kelvara-render.
#include "apps/render/Options.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <map>

namespace render {

void Register(CLI::App& app, Options& options) {
    app.set_version_flag("--version", std::string("kelvara-render ") + KELVARA_VERSION);
    app.footer("Exit status: 0 done, 1 the work could not be done, 2 wrong usage.");
    app.failure_message([](const CLI::App*, const CLI::Error& error) {
        return "kelvara-render: " + std::string(error.what()) + "; see 'kelvara-render --help'\n";
    });
    app.add_option("DRAWING", options.drawing, "ASCII or binary DXF; - reads standard input")
        ->required();
    app.add_option("-o,--output", options.output,
                   "The picture, .png, .svg or .pdf; - writes standard output")
        ->required();
    auto* page = app.add_option("--page", options.pages,
                                "A page, with its layers $DE, $SELO and $FORMATO; may be given "
                                "more than once; default: all that stands in the model space")
                     ->delimiter(',');
    app.add_flag("--sheets", options.sheets, "PDF: a sheet for each page that --page names")
        ->needs(page);
    app.add_option("--format", options.format, "png, svg or pdf (default: the ending of the file)");
    app.add_option("--size", options.size,
                   "WIDTHxHEIGHT or WIDTH, in pixels, of PDF in millimetres (default: 1600 on the "
                   "longer side, of PDF A3)");
    app.add_option("--background", options.background,
                   "A colour by name or as #RRGGBB; decides whether colour 7 is black or white")
        ->capture_default_str();
    app.add_flag("-q,--quiet", options.quiet, "No messages");
}

Format FormatOf(const Options& options) {
    static const std::map<QString, Format> formats{
        {"png", Format::Png}, {"svg", Format::Svg}, {"pdf", Format::Pdf}};
    QString name = QString::fromStdString(options.format).toLower();
    if (name.isEmpty() && options.output == "-") name = "png";
    if (name.isEmpty()) name = QFileInfo(QString::fromStdString(options.output)).suffix().toLower();
    const auto found = formats.find(name);
    if (found == formats.end()) {
        throw CLI::ValidationError("--output",
                                   "a picture ends in .png, .svg or .pdf, or --format "
                                   "says which it is");
    }
    if (options.sheets && found->second != Format::Pdf) {
        throw CLI::ValidationError("--sheets", "only PDF has sheets");
    }
    return found->second;
}

QSizeF SizeOf(const Options& options) {
    if (options.size.empty()) return {0, 0};
    static const QRegularExpression form("^(\\d{1,5})(?:x(\\d{1,5}))?$");
    const auto match = form.match(QString::fromStdString(options.size));
    const int width = match.captured(1).toInt(), height = match.captured(2).toInt();
    constexpr int kLargest = 32767;
    const bool whole = !match.captured(2).isEmpty();
    if (!match.hasMatch() || width < 1 || (whole && height < 1) || width > kLargest ||
        height > kLargest) {
        throw CLI::ValidationError("--size",
                                   "WIDTHxHEIGHT with numbers from 1 to 32767 is wanted, "
                                   "not " +
                                       options.size);
    }
    return {double(width), double(height)};
}

QColor BackgroundOf(const Options& options) {
    const QColor colour(QString::fromStdString(options.background));
    if (!colour.isValid()) {
        throw CLI::ValidationError("--background", "no colour: " + options.background +
                                                       "; white, black or #202830 are some");
    }
    return colour;
}

}  // namespace render
