#include "host/table/ChartArguments.h"

#include "host/output/MessageText.h"
#include "host/table/ChartBuilder.h"
#include "host/table/ChartKinds.h"
#include "host/table/DateText.h"

#include <QCommandLineParser>

#include <cmath>
#include <vector>

namespace {

QString text(char const* latin) { return QString::fromLatin1(latin); }

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

    void texts(char const* name, QStringList& target) const
    {
        if (isSet(name)) target = _parser.values(QString::fromLatin1(name));
    }

    template <class Text>
    void word(char const* name, QStringList const& words, Text& target)
    {
        if (!isSet(name)) return;
        QString const given = read(name);
        if (words.contains(given))
            target = given;
        else
            wrong(name, QStringLiteral("expected one of: ") + oneOf(words));
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
            wrong(name, QStringLiteral("expected a number from %1 to %2").arg(least).arg(most));
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
            wrong(name, QStringLiteral("expected a range such as 0,10 or 2012-01-01,2012-06-30"));
    }

    /// --NAME or --no-NAME
    void either(char const* name, char const* opposite, std::optional<bool>& target)
    {
        if (isSet(name) && isSet(opposite))
            wrong(name, QStringLiteral("given together with --") + QString::fromLatin1(opposite));
        if (isSet(name)) target = true;
        if (isSet(opposite)) target = false;
    }

    /// @param quote  tells the value too
    void wrong(char const* name, QString const& why, bool quote = true)
    {
        if (!_error.isEmpty()) return;
        QString const given = quote ? read(name) : QString();
        _error = QStringLiteral("--%1").arg(QString::fromLatin1(name))
            + (given.isEmpty() ? QString() : QStringLiteral(" \"%1\"").arg(fen::messageText(given)))
            + QStringLiteral(": ") + why;
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
            reader.wrong("log", QStringLiteral("expected one of: x, y, x,y"));
    }
}

constexpr double widestLine = 64; // [px]
constexpr double largestSymbol = 64; // [px]

/// An option of the command.
struct Argument {
    char const* name;
    char const* value; ///< what stands behind it, as help texts say; null for a flag
    QString help;
    void (*read)(ArgumentReader& reader, FenChartOptions& options);
};

typedef ArgumentReader Reader;
typedef FenChartOptions Options;

void noReading(Reader&, Options&) { } // for the second name of a pair of flags

QStringList kindNames()
{
    QStringList names;
    for (fen::ChartKind const& kind : fen::chartKinds()) names.append(kind.name);
    return names;
}

/// Options that every kind of chart takes.
std::vector<Argument> commonArguments()
{
    return {
        {"kind", "K", oneOf(kindNames()) + text("; default: ") + kindNames().first(),
         [](Reader& r, Options& o) { r.word("kind", kindNames(), o.kind); }},
        {"title", "T", text("above the chart"), [](Reader& r, Options& o) { r.text("title", o.title); }},
        {"legend", nullptr, text("with a legend; default: with 2 to 12 curves"),
         [](Reader& r, Options& o) { r.either("legend", "no-legend", o.legend); }},
        {"no-legend", nullptr, text("without a legend"), noReading},
    };
}

std::vector<Argument> columnArguments()
{
    return {
        {"x", "COL",
         text("column along x, or row; default: the first column when it is one of dates or rises ..."),
         [](Reader& r, Options& o) { r.text("x", o.x); }},
        {"y", "COL,...", text("columns on the left axis; default: all with numbers"),
         [](Reader& r, Options& o) { r.texts("y", o.y); }},
        {"y2", "COL,...", text("columns on the right axis"),
         [](Reader& r, Options& o) { r.texts("y2", o.y2); }},
        {"z", "COL", text("column upwards; default: the first with numbers that is not used"),
         [](Reader& r, Options& o) { r.text("z", o.z); }},
        {"group", "COL", text("a curve, or an item of means, for each text of this column"),
         [](Reader& r, Options& o) { r.text("group", o.group); }},
        {"color-by", "COL", text("column that gives records their colours"),
         [](Reader& r, Options& o) { r.text("color-by", o.colorBy); }},
        {"filter", "COL=A..B", text("pass records from A to B only; COL=TEXT for texts; may be repeated"),
         [](Reader& r, Options& o) { r.texts("filter", o.filters); }},
    };
}

std::vector<Argument> manyArguments()
{
    return {
        {"label", "COL", text("names of the slices, one for each text; default: the first column of texts"),
         [](Reader& r, Options& o) { r.text("label", o.label); }},
        {"value", "COL", text("numbers that are summed up for each slice; default: the rows are counted"),
         [](Reader& r, Options& o) { r.text("value", o.value); }},
        {"ring", "COL", text("a ring for each value of this column"),
         [](Reader& r, Options& o) { r.text("ring", o.ring); }},
        {"method", "M", oneOf(Options::methods()),
         [](Reader& r, Options& o) { r.word("method", Options::methods(), o.method); }},
        {"order", "O", text("of the variables: ") + oneOf(Options::orders()),
         [](Reader& r, Options& o) { r.word("order", Options::orders(), o.order); }},
    };
}

std::vector<Argument> styleArguments()
{
    return {
        {"style", "S", oneOf(Options::styles()),
         [](Reader& r, Options& o) { r.word("style", Options::styles(), o.style); }},
        {"symbol", "S", oneOf(Options::symbols()),
         [](Reader& r, Options& o) { r.word("symbol", Options::symbols(), o.symbol); }},
        {"fill", "F", oneOf(Options::fills()),
         [](Reader& r, Options& o) { r.word("fill", Options::fills(), o.fill); }},
        {"line-style", "S", oneOf(Options::lineStyles()),
         [](Reader& r, Options& o) { r.word("line-style", Options::lineStyles(), o.lineStyle); }},
        {"line-width", "N", text("in pixels"),
         [](Reader& r, Options& o) { r.number("line-width", 0.1, widestLine, o.lineWidth); }},
        {"symbol-size", "N", text("in pixels"),
         [](Reader& r, Options& o) { r.number("symbol-size", 1, largestSymbol, o.symbolSize); }},
        {"smooth", nullptr, text("smooth lines; default: when the table is short"),
         [](Reader& r, Options& o) { r.either("smooth", "no-smooth", o.smooth); }},
        {"no-smooth", nullptr, text("lines without smoothing"), noReading},
    };
}

std::vector<Argument> axisArguments()
{
    return {
        {"log", "AXES", text("logarithmic axes: x, y, x,y"), readLog},
        {"x-range", "A,B", text("numbers or dates; default: all of the data"),
         [](Reader& r, Options& o) { r.range("x-range", o.xRange); }},
        {"y-range", "A,B", text("the same for the left axis"),
         [](Reader& r, Options& o) { r.range("y-range", o.yRange); }},
        {"y2-range", "A,B", text("the same for the right axis"),
         [](Reader& r, Options& o) { r.range("y2-range", o.y2Range); }},
        {"x-title", "T", text("below the axis; default: the column's name"),
         [](Reader& r, Options& o) { r.text("x-title", o.xTitle); }},
        {"y-title", "T", text("beside the left axis"),
         [](Reader& r, Options& o) { r.text("y-title", o.yTitle); }},
        {"y2-title", "T", text("beside the right axis"),
         [](Reader& r, Options& o) { r.text("y2-title", o.y2Title); }},
        {"z-title", "T", text("beside the upright axis"),
         [](Reader& r, Options& o) { r.text("z-title", o.zTitle); }},
    };
}

/// Options that some kinds take and others do not.
std::vector<Argument> const& ownArguments()
{
    static std::vector<Argument> const all = [] {
        std::vector<Argument> joined = columnArguments();
        for (auto const& more : {manyArguments(), styleArguments(), axisArguments()})
            joined.insert(joined.end(), more.begin(), more.end());
        return joined;
    }();
    return all;
}

/// " (2d, 3d)" where not all kinds take an option
QString takers(char const* name)
{
    QStringList kinds;
    for (fen::ChartKind const& kind : fen::chartKinds())
        if (kind.options.contains(QLatin1String(name))) kinds.append(kind.name);
    if (kinds.size() == qsizetype(fen::chartKinds().size())) return {};
    return QStringLiteral(" (%1)").arg(oneOf(kinds));
}

QCommandLineOption optionOf(Argument const& argument, QString const& remark)
{
    return QCommandLineOption(text(argument.name), argument.help + remark,
                              argument.value ? text(argument.value) : QString());
}

} // namespace

QList<QCommandLineOption> fen::chartArguments()
{
    QList<QCommandLineOption> options;
    std::vector<Argument> const common = commonArguments();
    options.append(optionOf(common.front(), QString()));
    for (Argument const& own : ownArguments()) options.append(optionOf(own, takers(own.name)));
    for (std::size_t i = 1; i < common.size(); ++i) options.append(optionOf(common[i], QString()));
    return options;
}

bool fen::readChartArguments(QCommandLineParser const& parser, FenChartOptions& options, QString& error)
{
    ArgumentReader reader(parser);
    for (Argument const& argument : commonArguments()) argument.read(reader, options);
    ChartKind const* const kind = chartKind(options.kind);
    for (Argument const& argument : ownArguments()) {
        if (!kind || kind->options.contains(QLatin1String(argument.name)))
            argument.read(reader, options);
        else if (reader.isSet(argument.name))
            reader.wrong(argument.name, QStringLiteral("not an option of --kind ") + kind->name, false);
    }
    error = reader.error();
    return error.isEmpty();
}
