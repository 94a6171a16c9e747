#include "host/table/AxisChoice.h"

#include <QRegularExpression>

#include <cmath>

namespace {

typedef FenDataTable::Kind Kind;
typedef FenDataTable::Column Column;

constexpr qsizetype mostCategories = 60; // labels for which an axis has room

bool rises(std::vector<double> const& values)
{
    for (std::size_t i = 0; i + 1 < values.size(); ++i)
        if (!(values[i] < values[i + 1])) return false;
    return !values.empty() && !std::isnan(values.back());
}

bool soundsLikeX(Column const& column)
{
    static QRegularExpression const names(
        QStringLiteral("^(t|x|time|date|year|month|day|hour|minute|second|seconds|frequency|freq|index|step|"
                       "iteration|epoch|angle|position|elapsed)([ _].*)?$"),
        QRegularExpression::CaseInsensitiveOption);
    static QRegularExpression const units(QStringLiteral("^(s|ms|µs|us|ns|sec|min|h|d|Hz|kHz|MHz|GHz)$"));
    return names.match(column.name).hasMatch() || units.match(column.unit).hasMatch();
}

bool hasOtherNumbers(FenDataTable const& table, Column const& but)
{
    for (std::size_t i = 0; i < table.columns(); ++i)
        if (table.column(i).kind == Kind::Number && &table.column(i) != &but) return true;
    return false;
}

/// Nearly as many texts as rows, and room for their labels.
bool namesItsRows(Column const& column)
{
    constexpr qsizetype share = 4; // one in four may occur twice
    auto const rows = qsizetype(column.values->size());
    return rows > 1 && column.categories.size() <= mostCategories
        && column.categories.size() >= rows - rows / share;
}

} // namespace

fen::AxisChoice fen::chooseXAxis(FenDataTable const& table)
{
    if (table.columns() == 0) return {nullptr, QStringLiteral("an empty table")};
    Column const& first = table.column(0);
    if (first.kind == Kind::Date) return {&first, QStringLiteral("dates")};
    if (first.kind == Kind::Time) return {&first, QStringLiteral("times")};
    if (first.kind == Kind::Number && hasOtherNumbers(table, first)) {
        if (rises(*first.values)) return {&first, QStringLiteral("strictly rising")};
        if (soundsLikeX(first)) return {&first, QStringLiteral("by its name or unit")};
    }
    if (first.kind == Kind::Text && namesItsRows(first))
        return {&first, QStringLiteral("a name for each row")};
    for (std::size_t i = 1; i < table.columns(); ++i)
        if (table.column(i).kind == Kind::Date) return {&table.column(i), QStringLiteral("dates")};
    return {nullptr, QStringLiteral("no column of dates, and the first does not rise")};
}
