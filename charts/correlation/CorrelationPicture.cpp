#include "charts/correlation/CorrelationPicture.h"

#include "axes/ElidedText.h"
#include "services/opengl/OglText.h"
#include "services/properties/ColorSchemes.h"

#include <QImage>

#include <cmath>

using Kes::Math::NumberFormat;

namespace fen {

namespace {

constexpr int nameDistance = 5; // [px] between names and matrix
constexpr int numberRim = 2; // [px] that a number keeps free in its cell, in all
constexpr int shortDigits = 2; // behind the point, where a number in full is too wide

/// The number in the format in force, or with two digits where that is too wide; else nothing.
QString fittingNumber(double value, NumberFormat const& format, FenOglText const& text, int width)
{
    NumberFormat const brief('f', format.decimalPoint(), shortDigits);
    for (NumberFormat const& one : {format, brief}) {
        QString const number = QString::fromStdString(one.format(value));
        if (text.size(number).width() <= width) return number;
    }
    return QString();
}

} // namespace

double CorrelationMatrix::value(unsigned row, unsigned column) const
{
    if (row >= count() || column >= count()) return std::nan("");
    return values[std::size_t(row) * count() + column];
}

QColor CorrelationMatrix::color(unsigned bin) const
{
    return rampColor(colors, bins.count() > 1 ? double(bin) / (bins.count() - 1) : 0.0);
}

CorrelationPicture::CorrelationPicture(CorrelationMatrix const& matrix, FenOglViewport const& data,
                                       FenOglText& text, NumberFormat const& format)
{
    text.clear();
    int const room = correlationLabelWidth(matrix.widestName, data);
    layout = CorrelationLayout(data, int(matrix.count()), {text.height(), room, matrix.numberWidth});
    if (!layout.matrix.valid()) return;
    addNames(matrix, text, room);
    addCells(matrix);
    if (layout.numbersFit) addNumbers(matrix, text, format);
}

void CorrelationPicture::addNames(CorrelationMatrix const& matrix, FenOglText const& text, int room)
{
    FenOglViewport const& area = layout.matrix;
    int const top = area.y() + area.height();
    int const rowStride = nameStride(layout.cell.height(), text.height());
    int const columnStride = nameStride(layout.cell.width(), text.height());
    for (int i = 0; i < layout.count; ++i) {
        QString const& full = matrix.names[std::size_t(i)];
        if (full.isEmpty() || (i % rowStride != 0 && i % columnStride != 0)) continue;
        QString const name = elided(text, full, room);
        FenOglViewport const cell = layout.cellRectangle(i, i);
        QPoint const middle = cell.origin() + QPoint(cell.width() / 2, cell.height() / 2);
        if (i % rowStride == 0) rowNames.push_back({QPoint(area.x() - nameDistance, middle.y()), name, {}});
        if (i % columnStride == 0) columnNames.push_back({QPoint(middle.x(), top + nameDistance), name, {}});
    }
}

void CorrelationPicture::addCells(CorrelationMatrix const& matrix)
{
    std::vector<QRgb> colors;
    for (unsigned bin = 0; bin < matrix.bins.count(); ++bin) colors.push_back(matrix.color(bin).rgba());
    QImage image(layout.count, layout.count, QImage::Format_ARGB32);
    for (int row = 0; row < layout.count; ++row) {
        auto* const line = reinterpret_cast<QRgb*>(image.scanLine(row));
        for (int column = 0; column < layout.count; ++column) {
            double const value = matrix.value(unsigned(row), unsigned(column));
            line[column] = std::isnan(value) ? QRgb(0) : colors[matrix.bins.bin(value)];
            opaque = opaque && qAlpha(line[column]) == 255;
        }
    }
    cells = FenOglTexture(image, FenOglTexture::Nearest, FenOglTexture::Clamp);
}

void CorrelationPicture::addNumbers(CorrelationMatrix const& matrix, FenOglText const& text,
                                    NumberFormat const& format)
{
    std::vector<QColor> colors;
    for (unsigned bin = 0; bin < matrix.bins.count(); ++bin) colors.push_back(readableOn(matrix.color(bin)));
    for (unsigned row = 0; row < matrix.count(); ++row)
        for (unsigned column = 0; column < matrix.count(); ++column) {
            double const value = matrix.value(row, column);
            if (std::isnan(value)) continue;
            FenOglViewport const cell = layout.cellRectangle(int(row), int(column));
            QString const number = fittingNumber(value, format, text, cell.width() - numberRim);
            if (number.isEmpty()) continue;
            numbers.push_back({cell.origin() + QPoint(cell.width() / 2, cell.height() / 2), number,
                               colors[matrix.bins.bin(value)]});
        }
}

} // namespace fen
