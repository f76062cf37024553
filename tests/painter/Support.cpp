// Display lists for tests, and their counterparts.
#include "tests/painter/Support.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <algorithm>
#include <iostream>
#include <sstream>

QStringList Drawings() {
    const QString source = KV_SOURCE_DIR;
    QStringList paths;
    for (const QString& name :
         {qEnvironmentVariable("KV_DRAWINGS", source + "/tests/fixtures"), source + "/examples"}) {
        const QDir drawings(name);
        for (const QString& file : drawings.entryList({"*.dxf", "*.dxb"}, QDir::Files)) {
            paths << drawings.filePath(file);
        }
    }
    return paths;
}

QString Example(const QString& name) { return KV_SOURCE_DIR "/examples/" + name; }

painter::DisplayList ListOf(const std::string& dxf) {
    OdDbDatabasePtr drawing = OdDbDatabase::fromStore(dxf::Store::Parse(dxf));
    return *painter::BuildDisplayList(*drawing);
}

painter::DisplayList ListOfFile(const QString& path, const painter::BuildOptions& options) {
    OdDbDatabasePtr drawing = OdDbDatabase::readFile(path.toStdString());
    return *painter::BuildDisplayList(*drawing, options);
}

const painter::ListPart& OnlyPart(const painter::DisplayList& list) {
    EXPECT_EQ(list.parts.size(), 1u);
    return list.parts.at(0);
}

namespace {

void AddWords(const painter::DisplayList& list, const painter::ListPart& part,
              const painter::TextItem& text, std::vector<Word>& words) {
    const painter::Font& font = list.fonts->At(text.font);
    std::u16string characters(part.CharactersOf(text));
    std::replace(characters.begin(), characters.end(), u'\u00A0', u' ');
    const painter::AffineMap& place = text.placement;
    const double height = std::hypot(place.yx, place.yy) * font.CapHeight();
    for (size_t begin = 0; begin < characters.size();) {
        const size_t end = std::min(characters.find(u' ', begin), characters.size());
        if (end > begin) {
            const double before =
                font.Width(std::u16string_view(characters).substr(0, begin), double{text.tracking});
            const QPointF at = place.Map({before, 0});
            words.push_back(
                {std::u16string(characters.substr(begin, end - begin)), at.x(), at.y(), height});
        }
        begin = end + 1;
    }
}

}  // namespace

Painted OursOf(const painter::DisplayList& list) {
    Painted painted;
    for (const painter::ListPart& part : list.parts) {
        for (const painter::Item& item : part.items) {
            if (item.kind == painter::ItemKind::Text) {
                AddWords(list, part, part.texts[item.first], painted.words);
            } else if (std::max(item.bounds.Width(), item.bounds.Height()) < 5e6) {
                painted.extents.Add(item.bounds);
            }
        }
    }
    return painted;
}

std::optional<Painted> TheirsOf(const QString& path) {
    QProcess process;
    process.start("/usr/bin/python3", {KV_SOURCE_DIR "/tests/tools/ezdxf_drawing.py", path});
    EXPECT_TRUE(process.waitForFinished(300000)) << path.toStdString();
    constexpr int kUnreadable = 3;
    if (process.exitCode() == kUnreadable) {
        std::cout << "not drawn by ezdxf: " << QFileInfo(path).fileName().toStdString() << ": "
                  << process.readAllStandardError().trimmed().split('\n').last().toStdString()
                  << std::endl;
        return std::nullopt;
    }
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    const QJsonObject told = QJsonDocument::fromJson(process.readAllStandardOutput()).object();
    Painted painted;
    const QJsonArray extents = told["extents"].toArray();
    if (extents.size() == 4) {
        painted.extents = {extents[0].toDouble(), extents[1].toDouble(), extents[2].toDouble(),
                           extents[3].toDouble()};
    }
    for (const auto& value : told["words"].toArray()) {
        const QJsonArray word = value.toArray();
        painted.words.push_back({word[0].toString().toStdU16String(), word[1].toDouble(),
                                 word[2].toDouble(), word[3].toDouble()});
    }
    return painted;
}

QImage Rendered(const painter::DisplayList& list, QSize size,
                const painter::PaintOptions& options) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(options.background);
    QPainter painter(&image);
    const QRectF area(image.rect());
    painter::Paint(painter, list, painter::FitTransform(list.extents, area.adjusted(5, 5, -5, -5)),
                   area, options);
    painter.end();
    return image;
}

std::string Drawing(const std::string& entities, const std::string& blocks,
                    const std::string& tables) {
    const std::string sections =
        "0 SECTION\n2 HEADER\n9 $ACADVER\n1 AC1015\n0 ENDSEC\n"
        "0 SECTION\n2 TABLES\n" +
        tables +
        "0 ENDSEC\n"
        "0 SECTION\n2 BLOCKS\n" +
        blocks +
        "0 ENDSEC\n"
        "0 SECTION\n2 ENTITIES\n" +
        entities + "0 ENDSEC\n0 EOF\n";
    std::istringstream lines(sections);
    std::string dxf;
    for (std::string line; std::getline(lines, line);) {
        const size_t blank = std::min(line.find(' '), line.size());
        dxf += line.substr(0, blank) + "\n" + line.substr(std::min(blank + 1, line.size())) + "\n";
    }
    return dxf;
}
