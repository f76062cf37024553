// What kelvara-render is asked for.
#pragma once

#include <CLI/CLI.hpp>
#include <QColor>
#include <QSizeF>
#include <string>
#include <vector>

namespace render {

enum class Format { Png, Svg, Pdf };

struct Options {
    std::string drawing;
    std::vector<std::string> pages;
    bool sheets = false;
    std::string output;
    std::string format;
    std::string size;
    std::string background = "white";
    bool quiet = false;
};

void Register(CLI::App& app, Options& options);

// Each throws CLI::ValidationError for a value that makes no sense.
Format FormatOf(const Options& options);  // by --format, else by the ending of the output
QSizeF SizeOf(const Options& options);    // 0 for what is not told
QColor BackgroundOf(const Options& options);

}  // namespace render
