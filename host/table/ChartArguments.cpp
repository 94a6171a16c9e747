#include "host/table/ChartArguments.h"

#include "host/output/MessageText.h"
#include "host/table/ChartBuilder.h"
#include "host/table/DateText.h"

#include <QCommandLineParser>

#include <cmath>

namespace {

QCommandLineOption option(char const* name, char const* value, QString const& help)
{
    return QCommandLineOption(QString::fromLatin1(name), help, QString::fromLatin1(value));
}

QCommandLineOption flag(char const* name, char const* help)
{
    return QCommandLineOption(QString::fromLatin1(name), QString::fromLatin1(help));
}

QString oneOf(QStringList const& words) { return words.join(QStringLiteral(", ")); }

/// A number, or an ISO date in seconds.
std::optional<double> value(QString const& text)
{
    bool number = false;
    double const parsed = text.toDouble(&number);
    if (number) return std::isfinite(parsed) ? std::optional(parsed) : std::nullopt;
    return fen::secondsFromIsoDate(text.toStdString());
}

/// Reads options one by one; the first that is wrong stands.
class ArgumentReader {
public:
    explicit ArgumentReader(QCommandLineParser const& parser)
        : _parser(parser)
    {
    }

    QString const& error() const { return _error; }

    void text(char const* name, QString& target) const
    {
        if (isSet(name)) target = read(name);
    }

    void text(char const* name, std::optional<QString>& target) const
    {
        if (isSet(name)) target = read(name);
    }

    template <class Text>
    void word(char const* name, QStringList const& words, Text& target)
    {
        if (!isSet(name)) return;
        QString const given = read(name);
        if (words.contains(given))
            target = given;
        else
            wrong(name, QStringLiteral("is none of: ") + oneOf(words));
    }

    template <class Number>
    void number(char const* name, double least, double most, std::optional<Number>& target)
    {
        if (!isSet(name)) return;
        bool good = false;
        double const given = read(name).toDouble(&good);
        if (good && given >= least && given <= most)
            target = Number(given);
        else
            wrong(name, QStringLiteral("is no number from %1 to %2").arg(least).arg(most));
    }

    void range(char const* name, FenChartOptions::Range& target)
    {
        if (!isSet(name)) return;
        QStringList const ends = read(name).split(QLatin1Char(','));
        std::optional<double> const from = value(ends.first());
        std::optional<double> const to = value(ends.last());
        if (ends.size() == 2 && from && to && *from < *to)
            target = std::pair(*from, *to);
        else
            wrong(name, QStringLiteral("is no range as 0,10 or 2012-01-01,2012-06-30"));
    }

    /// --NAME or --no-NAME
    void either(char const* name, char const* opposite, std::optional<bool>& target)
    {
        if (isSet(name) && isSet(opposite)) wrong(name, QStringLiteral("and its opposite are given"));
        if (isSet(name)) target = true;
        if (isSet(opposite)) target = false;
    }

    void wrong(char const* name, QString const& why)
    {
        if (!_error.isEmpty()) return;
        QString const given = read(name);
        _error = QStringLiteral("--%1 ").arg(QString::fromLatin1(name))
            + (given.isEmpty() ? QString() : QStringLiteral("\"%1\" ").arg(fen::messageText(given))) + why;
    }

    bool isSet(char const* name) const { return _parser.isSet(QString::fromLatin1(name)); }
    QString read(char const* name) const { return _parser.value(QString::fromLatin1(name)); }

private:
    QCommandLineParser const& _parser;
    QString _error;
};

void readLog(ArgumentReader& reader, FenChartOptions& options)
{
    if (!reader.isSet("log")) return;
    for (QString const& axis : reader.read("log").split(QLatin1Char(','))) {
        if (axis == QLatin1String("x"))
            options.logX = true;
        else if (axis == QLatin1String("y"))
            options.logY = true;
        else
            reader.wrong("log", QStringLiteral("is none of: x, y, x,y"));
    }
}

constexpr double widestLine = 64; // [px]
constexpr double largestSymbol = 64; // [px]

} // namespace

QList<QCommandLineOption> fen::chartArguments()
{
    return {
        option("x", "COL",
               QStringLiteral("column along x; default: the first with dates, else the row number")),
        option("y", "COL,...", QStringLiteral("columns on the left axis; default: all with numbers")),
        option("y2", "COL,...", QStringLiteral("columns on the right axis")),
        option("group", "COL", QStringLiteral("a curve for each text of this column")),
        option("style", "S", oneOf(FenChartOptions::styles())),
        option("symbol", "S", oneOf(FenChartOptions::symbols())),
        option("fill", "F", oneOf(FenChartOptions::fills())),
        option("line-style", "S", oneOf(FenChartOptions::lineStyles())),
        option("line-width", "N", QStringLiteral("in pixels")),
        option("symbol-size", "N", QStringLiteral("in pixels")),
        flag("smooth", "smooth lines; default: when the table is short"),
        flag("no-smooth", "lines without smoothing"),
        option("log", "AXES", QStringLiteral("logarithmic axes: x, y, x,y")),
        option("x-range", "A,B", QStringLiteral("numbers or dates; default: all of the data")),
        option("y-range", "A,B", QStringLiteral("the same for the left axis")),
        option("y2-range", "A,B", QStringLiteral("the same for the right axis")),
        option("title", "T", QStringLiteral("above the chart")),
        option("x-title", "T", QStringLiteral("below the axis; default: the column's name")),
        option("y-title", "T", QStringLiteral("beside the left axis")),
        option("y2-title", "T", QStringLiteral("beside the right axis")),
        flag("legend", "with a legend; default: with 2 to 12 curves"),
        flag("no-legend", "without a legend"),
    };
}

bool fen::readChartArguments(QCommandLineParser const& parser, FenChartOptions& options, QString& error)
{
    ArgumentReader reader(parser);
    reader.text("x", options.x);
    options.y = parser.values(QStringLiteral("y"));
    options.y2 = parser.values(QStringLiteral("y2"));
    reader.text("group", options.group);
    reader.word("style", FenChartOptions::styles(), options.style);
    reader.word("symbol", FenChartOptions::symbols(), options.symbol);
    reader.word("fill", FenChartOptions::fills(), options.fill);
    reader.word("line-style", FenChartOptions::lineStyles(), options.lineStyle);
    reader.number("line-width", 0.1, widestLine, options.lineWidth);
    reader.number("symbol-size", 1, largestSymbol, options.symbolSize);
    reader.either("smooth", "no-smooth", options.smooth);
    readLog(reader, options);
    reader.range("x-range", options.xRange);
    reader.range("y-range", options.yRange);
    reader.range("y2-range", options.y2Range);
    reader.text("title", options.title);
    reader.text("x-title", options.xTitle);
    reader.text("y-title", options.yTitle);
    reader.text("y2-title", options.y2Title);
    reader.either("legend", "no-legend", options.legend);
    error = reader.error();
    return error.isEmpty();
}
