// Painting into pictures of the three formats.
#include "apps/render/Pictures.h"

#include <QBuffer>
#include <QImage>
#include <QPageSize>
#include <QPdfWriter>
#include <QSaveFile>
#include <QSvgGenerator>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "apps/painter/PagePainter.h"

namespace render {

namespace {

constexpr double kMargin = 0.02;  // of the shorter side
constexpr double kLongerSide = 1600;

// The size that is asked for, with what is not told taken from the form of the drawing.
QSizeF SizeFor(const painter::Bounds& extents, QSizeF asked) {
    const double form = extents.IsEmpty() || !(extents.Width() > 0) || !(extents.Height() > 0)
                            ? 1
                            : std::clamp(extents.Height() / extents.Width(), 0.05, 20.0);
    if (asked.width() > 0 && asked.height() > 0) return asked;
    const double width = asked.width() > 0 ? asked.width()
                         : form > 1        ? kLongerSide / form
                                           : kLongerSide;
    return {std::round(width), std::max(1.0, std::round(width * form))};
}

void PaintInto(QPainter& painter, const painter::DisplayList& list, QSizeF size,
               const painter::PaintOptions& options) {
    const QRectF area(QPointF(0, 0), size);
    painter.fillRect(area, options.background);
    const double margin = kMargin * std::min(size.width(), size.height());
    const QRectF target = area.adjusted(margin, margin, -margin, -margin);
    painter::Paint(painter, list, painter::FitTransform(list.extents, target), area, options);
}

QByteArray Png(const painter::DisplayList& list, QSizeF asked, const QColor& background) {
    const QSize size = SizeFor(list.extents, asked).toSize();
    QImage image(size, QImage::Format_RGB32);
    if (image.isNull()) {
        throw Error("a picture of " + std::to_string(size.width()) + "x" +
                    std::to_string(size.height()) +
                    " pixels does not fit into memory; ask for a smaller --size");
    }
    painter::PaintOptions options;
    options.background = background;
    QPainter painter(&image);
    PaintInto(painter, list, size, options);
    painter.end();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, "PNG")) throw Error("the picture cannot be encoded as PNG");
    return bytes;
}

// Texts are outlines, so that the picture looks the same without the fonts.
QByteArray Svg(const painter::DisplayList& list, QSizeF asked, const QColor& background) {
    const QSizeF size = SizeFor(list.extents, asked);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setResolution(96);
    generator.setSize(size.toSize());
    generator.setViewBox(QRectF(QPointF(0, 0), size));
    painter::PaintOptions options;
    options.background = background;
    options.textAsPaths = true;
    options.smallestText = 0.5;
    QPainter painter(&generator);
    PaintInto(painter, list, size, options);
    painter.end();
    return bytes;
}

QPageSize SheetFor(const painter::Bounds& extents, QSizeF asked) {
    if (asked.width() > 0 && asked.height() > 0) {
        return QPageSize(asked, QPageSize::Millimeter, QString(), QPageSize::ExactMatch);
    }
    if (asked.width() > 0) {
        return QPageSize(SizeFor(extents, asked), QPageSize::Millimeter, QString(),
                         QPageSize::ExactMatch);
    }
    const bool upright = !extents.IsEmpty() && extents.Height() > extents.Width();
    return QPageSize(upright ? QSizeF(297, 420) : QSizeF(420, 297), QPageSize::Millimeter,
                     QString(), QPageSize::ExactMatch);
}

QByteArray Pdf(const std::vector<painter::DisplayList>& lists, QSizeF asked,
               const QColor& background) {
    constexpr int kDotsPerInch = 600;
    constexpr double kLineMillimetres = 0.18;
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(kDotsPerInch);
    writer.setCreator("kelvara-render");
    writer.setPageMargins(QMarginsF(0, 0, 0, 0));
    painter::PaintOptions options;
    options.background = background;
    options.lineWidth = kLineMillimetres / 25.4 * kDotsPerInch;
    options.smallestText = 1;
    QPainter painter;
    for (const painter::DisplayList& list : lists) {
        writer.setPageSize(SheetFor(list.extents, asked));
        const bool ready = painter.isActive() ? writer.newPage() : painter.begin(&writer);
        if (!ready) throw Error("the picture cannot be written as PDF");
        PaintInto(painter, list, QSizeF(writer.width(), writer.height()), options);
    }
    painter.end();
    return bytes;
}

void WriteStdout(const QByteArray& bytes) {
    const auto size = static_cast<size_t>(bytes.size());
    if (std::fwrite(bytes.constData(), 1, size, stdout) != size || std::fflush(stdout) != 0) {
        throw Error(std::string("cannot write the picture to standard output: ") +
                    std::strerror(errno));
    }
}

}  // namespace

QByteArray Picture(const std::vector<painter::DisplayList>& lists, Format format, QSizeF size,
                   const QColor& background) {
    switch (format) {
        case Format::Png:
            return Png(lists.front(), size, background);
        case Format::Svg:
            return Svg(lists.front(), size, background);
        case Format::Pdf:
            break;
    }
    return Pdf(lists, size, background);
}

void Write(const std::string& output, const QByteArray& bytes) {
    if (output == "-") return WriteStdout(bytes);
    QSaveFile file(QString::fromStdString(output));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit()) {
        throw Error("cannot write " + output + ": " + file.errorString().toStdString());
    }
}

}  // namespace render
