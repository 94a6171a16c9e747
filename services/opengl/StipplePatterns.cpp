#include "services/opengl/StipplePatterns.h"

#include "services/opengl/LogOnce.h"

#include <QString>

#include <algorithm>

namespace fen {

namespace {

constexpr std::uint16_t solidBits = 0xFFFF;

struct LinePattern {
    char const* name;
    std::uint16_t bits;
};
constexpr LinePattern linePatterns[] = {
    {"solid", solidBits},
    {"dash", 0x00FF},
    {"dot", 0x3333},
    {"dashDot", 0x1C7F},
};

struct FillPattern {
    char const* name;
    bool (*set)(int x, int y); ///< whether the pattern pixel is painted; repeats after 8 or fewer
};
constexpr FillPattern fillPatterns[] = {
    {"solid", [](int, int) { return true; }},
    {"sparse", [](int x, int y) { return (x + 2 * (y % 4 / 2)) % 4 == 0 && y % 2 == 0; }},
    {"dense", [](int x, int y) { return (x + y) % 2 == 0; }},
    {"horizontal", [](int, int y) { return y % 4 == 0; }},
    {"vertical", [](int x, int) { return x % 4 == 0; }},
    {"diagonal", [](int x, int y) { return (x - y + 32) % 8 < 2; }},
};

} // namespace

std::uint16_t lineStippleBits(QString const& pattern)
{
    if (pattern.isEmpty()) return solidBits;
    for (LinePattern const& known : linePatterns)
        if (pattern == QLatin1String(known.name)) return known.bits;
    if (pattern.startsWith("0x", Qt::CaseInsensitive)) {
        bool valid = false;
        uint const bits = pattern.toUInt(&valid, 16);
        if (valid && bits <= solidBits) return std::uint16_t(bits);
    }
    warnOnce(QString("Unknown line pattern \"%1\".").arg(pattern.left(80)), "@line 51");
    return solidBits;
}

PolygonStipple polygonStippleBits(QString const& pattern, double ratio)
{
    auto const known =
        std::find_if(std::begin(fillPatterns), std::end(fillPatterns),
                     [&](FillPattern const& each) { return pattern == QLatin1String(each.name); });
    PolygonStipple bits{};
    if (known == std::end(fillPatterns)) {
        if (!pattern.isEmpty())
            warnOnce(QString("Unknown fill pattern \"%1\".").arg(pattern.left(80)), "@line 62");
        bits.fill(0xFF);
        return bits;
    }
    constexpr int side = 32;
    double const step = ratio > 0 ? ratio : 1;
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            if (known->set(int(x / step), int(y / step)))
                bits[size_t(4 * y + x / 8)] |= std::uint8_t(0x80 >> (x % 8));
    return bits;
}

} // namespace fen
