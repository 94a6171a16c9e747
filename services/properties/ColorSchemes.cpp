#include "services/properties/ColorSchemes.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace fen {

namespace {

struct Scheme {
    char const* name;
    std::vector<QRgb> colors;
};

std::vector<Scheme> const& schemes()
{
    static std::vector<Scheme> const table = {
        // viridis and magma: S. van der Walt, N. Smith (2015), every 16th and every 32nd entry of the
        // published tables of 256; CC0 1.0. Perceptually uniform, lightness rises throughout.
        {defaultAmountScheme,
         {0x440154, 0x48186A, 0x472D7B, 0x424086, 0x3B528B, 0x33638D, 0x2C728E, 0x26828E, 0x21918C, 0x1FA088,
          0x28AE80, 0x3FBC73, 0x5EC962, 0x84D44B, 0xADDC30, 0xD8E219, 0xFDE725}},
        {"magma", {0x000004, 0x1C1044, 0x4F127B, 0x812581, 0xB5367A, 0xE55064, 0xFB8761, 0xFEC287, 0xFCFDBF}},
        // cividis: J. Nunez, C. Anderton, R. Renslow (2018), "Optimizing colormaps with consideration for
        // color vision deficiency", ten entries of the published table; CC0 1.0. Looks nearly the same
        // with and without colour blindness.
        {"cividis",
         {0x00224E, 0x123570, 0x3B496C, 0x575D6D, 0x707173, 0x8A8678, 0xA59C74, 0xC3B369, 0xE1CC55,
          0xFEE838}},
        // RdBu with 11 classes, from blue to red: C. Brewer, M. Harrower, The Pennsylvania State University
        // (colorbrewer.org); Apache 2.0. This product includes color specifications and designs developed
        // by Cynthia Brewer. Safe for the colour-blind; light gray is the neutral middle.
        {defaultDivergingScheme,
         {0x053061, 0x2166AC, 0x4393C3, 0x92C5DE, 0xD1E5F0, 0xF7F7F7, 0xFDDBC7, 0xF4A582, 0xD6604D, 0xB2182B,
          0x67001F}},
        // M. Okabe, K. Ito (2008), "Color universal design"; free to use. Eight colours that stay apart for
        // all common kinds of colour blindness.
        {defaultCategoryScheme,
         {0x0072B2, 0xE69F00, 0x009E73, 0xD55E00, 0xCC79A7, 0x56B4E9, 0xF0E442, 0x000000}},
    };
    return table;
}

double linear(double channel)
{
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

} // namespace

QStringList colorSchemeNames()
{
    QStringList names;
    for (Scheme const& scheme : schemes()) names.append(QString::fromLatin1(scheme.name));
    return names;
}

QList<QColor> colorScheme(QString const& name)
{
    QList<QColor> colors;
    for (Scheme const& scheme : schemes())
        if (name == QLatin1String(scheme.name))
            for (QRgb const color : scheme.colors) colors.append(QColor(color));
    return colors;
}

QColor rampColor(QList<QColor> const& colors, double place)
{
    if (colors.isEmpty() || std::isnan(place)) return Qt::black;
    double const entry = std::clamp(place, 0.0, 1.0) * double(colors.size() - 1);
    auto const below = qsizetype(entry);
    QColor const &a = colors[below], &b = colors[std::min(below + 1, colors.size() - 1)];
    double const share = entry - double(below);
    auto const mix = [&](int from, int to) { return int(std::lround(from + share * (to - from))); };
    return QColor(mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue()),
                  mix(a.alpha(), b.alpha()));
}

double relativeLuminance(QColor const& color)
{
    return 0.2126 * linear(double(color.redF())) + 0.7152 * linear(double(color.greenF()))
        + 0.0722 * linear(double(color.blueF()));
}

QColor readableOn(QColor const& ground)
{
    // (1 + 0.05) / (L + 0.05) against (L + 0.05) / 0.05
    constexpr double flare = 0.05;
    double const ground05 = relativeLuminance(ground) + flare;
    return ground05 * ground05 < flare * (1 + flare) ? Qt::white : Qt::black;
}

} // namespace fen
