#pragma once

#include "../logging/Export.h"

#include <QPoint>
#include <QSize>

class FenModifiedGroup;
class FenViewport;

/// Rectangle in logical window pixels, origin at the bottom left.
///
/// A plain value; it never touches OpenGL.
class FENVIS_EXPORT FenOglViewport {
public:
    /// Invalid: all zero.
    FenOglViewport() = default;
    FenOglViewport(int x, int y, int width, int height);
    /// From x, y, width, height as glGetIntegerv(GL_VIEWPORT) fills them; null gives an invalid one.
    explicit FenOglViewport(int const* values);

    int x() const { return _values[0]; } ///< [px]
    int y() const { return _values[1]; } ///< [px]
    int width() const { return _values[2]; } ///< [px]
    int height() const { return _values[3]; } ///< [px]
    QPoint origin() const { return QPoint(x(), y()); }
    QSize size() const { return QSize(width(), height()); }

    /// True when width and height are above 0.
    bool valid() const { return width() > 0 && height() > 0; }
    /// Back to invalid.
    void reset() { *this = FenOglViewport(); }
    /// True for a point [px] inside, counted from the window's origin.
    bool contains(QPoint const& point) const;

    bool operator==(FenOglViewport const& other) const = default;
    /// The four numbers x, y, width, height, as gluProject takes them.
    operator int const*() const { return _values; }

    /// Rectangle of a node whose relative viewport is given inside `parent`, in
    /// the coordinates of the parent (its x and y are added). Extents and
    /// positions round to whole pixels. Numbers that are not finite are logged
    /// and give an invalid viewport.
    static FenOglViewport fitToParent(FenOglViewport const& parent, FenViewport const& viewport);
    /// The reverse: placement "bottomLeft" and pixels for `inner` inside `outer`.
    /// An extent of 1 pixel is stored as the fraction 1 / outer, because 1 stands
    /// for the whole parent. Applying both returns `inner` unchanged.
    static FenViewport fitToParent(FenModifiedGroup& group, FenOglViewport const& inner,
                                   FenOglViewport const& outer);

private:
    int _values[4] = {0, 0, 0, 0};
};
