#pragma once

#include <QColor>
#include <QImage>
#include <QRect>
#include <QString>

/// What was drawn, to be asked about. Coordinates count from the top left.
class Picture {
public:
    Picture() = default;
    explicit Picture(QImage const& image)
        : _image(image.convertToFormat(QImage::Format_RGBA8888))
    {
    }

    QImage const& image() const { return _image; }
    int width() const { return _image.width(); }
    int height() const { return _image.height(); }

    /// Colour of a pixel without alpha; invalid outside.
    QColor pixel(int x, int y) const;
    /// The same counted from the bottom left, as OpenGL does.
    QColor pixelGl(int x, int y) const { return pixel(x, height() - 1 - y); }
    /// Number of pixels of a colour, each channel within `tolerance`.
    int count(QColor const& color, int tolerance = 0) const;
    int count(QColor const& color, QRect const& inside, int tolerance = 0) const;
    /// Number of different colours.
    int colors() const;
    /// Smallest rectangle around all pixels that differ from `background`; null when none does.
    QRect boundingBox(QColor const& background = Qt::white) const;
    /// Number of pixels whose channels differ by more than `tolerance`; -1 for other sizes.
    int differingPixels(Picture const& other, int tolerance = 0) const;
    /// True for a pixel of `color` within `tolerance`.
    bool is(int x, int y, QColor const& color, int tolerance = 2) const;
    Picture copy(QRect const& part) const { return Picture(_image.copy(part)); }
    /// Enlarged by whole factors, for looking at it.
    Picture magnified(int factor) const;

    /// Writes a PNG into the folder of test pictures (FENVIS_TEST_PICTURES, else
    /// `test-pictures` in the working folder); returns its path.
    QString save(QString const& name) const;

private:
    QImage _image;
};
