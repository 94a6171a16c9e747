#include "tests/support/Picture.h"

#include <QDir>
#include <QSet>

#include <algorithm>
#include <cstdlib>

namespace {

bool near(QRgb a, QRgb b, int tolerance)
{
    return std::abs(qRed(a) - qRed(b)) <= tolerance && std::abs(qGreen(a) - qGreen(b)) <= tolerance
        && std::abs(qBlue(a) - qBlue(b)) <= tolerance;
}

} // namespace

QColor Picture::pixel(int x, int y) const
{
    return _image.valid(x, y) ? QColor(_image.pixel(x, y)) : QColor();
}

int Picture::count(QColor const& color, int tolerance) const
{
    return count(color, _image.rect(), tolerance);
}

int Picture::count(QColor const& color, QRect const& inside, int tolerance) const
{
    QRect const area = inside & _image.rect();
    int found = 0;
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            found += near(_image.pixel(x, y), color.rgb(), tolerance);
    return found;
}

int Picture::colors() const
{
    QSet<QRgb> found;
    for (int y = 0; y < height(); ++y)
        for (int x = 0; x < width(); ++x) found.insert(_image.pixel(x, y) | 0xFF000000);
    return int(found.size());
}

QRect Picture::boundingBox(QColor const& background) const
{
    QRect box;
    for (int y = 0; y < height(); ++y)
        for (int x = 0; x < width(); ++x)
            if (!near(_image.pixel(x, y), background.rgb(), 0)) box |= QRect(x, y, 1, 1);
    return box;
}

int Picture::differingPixels(Picture const& other, int tolerance) const
{
    if (_image.size() != other._image.size()) return -1;
    int found = 0;
    for (int y = 0; y < height(); ++y)
        for (int x = 0; x < width(); ++x)
            found += !near(_image.pixel(x, y), other._image.pixel(x, y), tolerance);
    return found;
}

bool Picture::is(int x, int y, QColor const& color, int tolerance) const
{
    return _image.valid(x, y) && near(_image.pixel(x, y), color.rgb(), tolerance);
}

Picture Picture::magnified(int factor) const
{
    return Picture(_image.scaled(_image.size() * factor, Qt::IgnoreAspectRatio, Qt::FastTransformation));
}

QString Picture::save(QString const& name) const
{
    QString const folder = qEnvironmentVariable("FENVIS_TEST_PICTURES", "test-pictures");
    QDir().mkpath(folder);
    QString const path = folder + "/" + name + ".png";
    // Drawn over a window: alpha plays no part.
    return _image.convertToFormat(QImage::Format_RGBX8888).save(path) ? path : QString();
}
