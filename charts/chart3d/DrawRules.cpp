#include "charts/chart3d/DrawRules.h"

#include "services/chartdata/Chart.h"

namespace fen {

namespace {

enum Modes : unsigned { Free = 1 << 0, FixedX = 1 << 1, FixedY = 1 << 2, FixedBoth = 1 << 3 };
enum Surface : unsigned { Off = 1, On = 2, Either = Off | On };
enum Styles : unsigned { Curves = 1, Upright = 2, Others = 4, Flat = Curves | Others, All = Flat | Upright };

/// The first rule that holds counts.
struct Rule {
    unsigned modes, surface, styles;
    Shape3D shape;
};
constexpr Rule rules[] = {
    {Free, On, Curves, Shape3D::Surface}, //
    {FixedX | FixedY, Either, Flat, Shape3D::Line}, //
    {FixedX | FixedY, Either, Upright, Shape3D::Bars}, //
    {Free | FixedBoth, Off, Flat, Shape3D::Line}, //
    {Free | FixedBoth, Off, Upright, Shape3D::Bars}, //
    {Free, On, Upright, Shape3D::Bars}, //
    {Free, On, Others, Shape3D::Nothing}, //
    {FixedBoth, On, All, Shape3D::Bars},
};

unsigned kindOf(QString const& style)
{
    if (style == FenChart::styleBar || style == FenChart::styleStep) return Upright;
    return style == FenChart::styleLine || style == FenChart::styleSpline ? Curves : Others;
}

} // namespace

Shape3D shapeOf(unsigned mode, bool surface, QString const& style)
{
    unsigned const kind = kindOf(style);
    for (Rule const& rule : rules)
        if (rule.modes & 1u << (mode & 3u) && rule.surface & (surface ? On : Off) && rule.styles & kind)
            return rule.shape;
    return Shape3D::Nothing;
}

} // namespace fen
