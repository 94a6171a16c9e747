#include "axes/ElidedText.h"

#include "services/opengl/OglText.h"

#include <algorithm>

namespace fen {

namespace {

/// More characters than this never fit on any picture; they are not even measured.
constexpr qsizetype longest = 1024;

} // namespace

QString elided(FenOglText const& text, QString const& string, int width)
{
    if (string.size() <= longest && text.size(string).width() <= width) return string;
    QString const ellipsis = QStringLiteral("\u2026");
    auto const cut = [&](qsizetype length) {
        if (length > 0 && string.at(length - 1).isHighSurrogate()) --length;
        return string.left(length).trimmed() + ellipsis;
    };
    qsizetype low = -1, high = std::min(string.size(), longest);
    while (low + 1 < high) {
        qsizetype const middle = low + (high - low) / 2;
        if (text.size(cut(middle)).width() <= width)
            low = middle;
        else
            high = middle;
    }
    return low < 0 ? QString() : cut(low);
}

} // namespace fen
