// Display lists of drawings, and what the drawing add-on of ezdxf says of the same ones.
#pragma once

#include <gtest/gtest.h>

#include <QImage>
#include <QString>
#include <QStringList>
#include <optional>

#include "apps/painter/ListBuilder.h"
#include "apps/painter/PagePainter.h"

// A word of a text: where its baseline begins, and how high its capitals are.
struct Word {
    std::u16string characters;
    double x, y, height;
};

struct Painted {
    painter::Bounds extents;  // of all but texts and endless lines
    std::vector<Word> words;
};

// All drawings that tests read: the folder in KV_DRAWINGS, or the project's fixtures; always with
// the examples.
QStringList Drawings();
QString Example(const QString& name);

painter::DisplayList ListOf(const std::string& dxf);  // of a drawing in memory
painter::DisplayList ListOfFile(const QString& path, const painter::BuildOptions& options = {});

// The one part that a small list has.
const painter::ListPart& OnlyPart(const painter::DisplayList& list);

Painted OursOf(const painter::DisplayList& list);
std::optional<Painted> TheirsOf(const QString& path);  // nothing when ezdxf cannot draw it

QImage Rendered(const painter::DisplayList& list, QSize size,
                const painter::PaintOptions& options = {});

// Groups "code value", one a line, as the ENTITIES section of a drawing of R2000; a line that
// begins with 0 begins an entity. Blocks likewise.
std::string Drawing(const std::string& entities, const std::string& blocks = {},
                    const std::string& tables = {});
