#include "services/opengl/OglViewport.h"

#include "services/opengl/BoxPlacement.h"
#include "services/opengl/LogOnce.h"
#include "services/properties/Viewport.h"

#include <QString>

#include <algorithm>
#include <cmath>

namespace {

constexpr double mostPixels = 1e8; // far outside of any window, and int arithmetic stays safe

int pixel(double value) { return qRound(std::clamp(value, -mostPixels, mostPixels)); }

/// [px] an extent that is a fraction of its parent up to 1 and pixels above
int extent(double value, int parent) { return pixel(value <= 1 ? value * parent : value); }

/// The number that stands for `pixels`: 1 means the whole parent, so one pixel is a fraction.
double extentValue(int pixels, int parent) { return pixels == 1 && parent > 0 ? 1.0 / parent : pixels; }

/// [px] offset from the parent's lower edge for a placement that is measured from below, above or the middle
double place(double inward, int extentOfOwn, int extentOfParent, bool fromEnd, bool centered)
{
    int const room = extentOfParent - extentOfOwn;
    if (centered) return 0.5 * room + inward;
    return fromEnd ? room - inward : inward;
}

} // namespace

FenOglViewport::FenOglViewport(int x, int y, int width, int height)
    : _values{x, y, width, height}
{
}

FenOglViewport::FenOglViewport(int const* values)
{
    if (values) std::copy_n(values, 4, _values);
}

bool FenOglViewport::contains(QPoint const& point) const
{
    return point.x() >= x() && point.y() >= y() && point.x() - x() < width() && point.y() - y() < height();
}

FenOglViewport FenOglViewport::fitToParent(FenOglViewport const& parent, FenViewport const& viewport)
{
    return fen::BoxPlacement(viewport).within(parent);
}

FenOglViewport fen::BoxPlacement::within(FenOglViewport const& parent) const
{
    double const numbers[] = {x, y, width, height};
    if (!std::all_of(std::begin(numbers), std::end(numbers), [](double n) { return std::isfinite(n); })) {
        fen::warnOnce("Viewport numbers must be finite.", "@line 53");
        return FenOglViewport();
    }
    bool const centered = placement == "center";
    bool const right = placement == "bottomRight" || placement == "topRight";
    bool const top = placement == "topLeft" || placement == "topRight";
    if (!centered && !right && !top && placement != "bottomLeft")
        fen::warnOnce(QString("Unknown viewport placement \"%1\".").arg(placement), "@line 61");

    int const w = extent(width, parent.width());
    int const h = extent(height, parent.height());
    return FenOglViewport(parent.x() + pixel(place(x, w, parent.width(), right, centered)),
                          parent.y() + pixel(place(y, h, parent.height(), top, centered)), w, h);
}

FenViewport FenOglViewport::fitToParent(FenModifiedGroup& group, FenOglViewport const& inner,
                                        FenOglViewport const& outer)
{
    FenViewport viewport(group);
    viewport.placement.set("bottomLeft");
    viewport.x.set(double(inner.x()) - outer.x());
    viewport.y.set(double(inner.y()) - outer.y());
    viewport.width.set(extentValue(inner.width(), outer.width()));
    viewport.height.set(extentValue(inner.height(), outer.height()));
    return viewport;
}
