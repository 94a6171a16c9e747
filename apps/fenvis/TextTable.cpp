#include "apps/fenvis/TextTable.h"

#include <algorithm>

QString command::textTable(TextTable const& rows)
{
    std::vector<qsizetype> widths;
    for (QStringList const& row : rows) {
        widths.resize(std::max(widths.size(), std::size_t(row.size())));
        for (qsizetype i = 0; i < row.size(); ++i)
            widths[std::size_t(i)] = std::max(widths[std::size_t(i)], row[i].size());
    }
    QString text;
    for (QStringList const& row : rows) {
        QString line;
        for (qsizetype i = 0; i < row.size(); ++i) line += row[i].leftJustified(widths[std::size_t(i)] + 2);
        while (line.endsWith(QLatin1Char(' '))) line.chop(1);
        text += line + QLatin1Char('\n');
    }
    return text;
}
