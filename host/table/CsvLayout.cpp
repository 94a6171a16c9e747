#include "host/table/CsvLayout.h"

#include <algorithm>
#include <array>
#include <map>

namespace {

constexpr std::size_t linesLookedAt = 60;
constexpr std::array separators{',', ';', '\t', '|'};

struct Line {
    std::string_view text;
    std::size_t begin; // [bytes]
    std::size_t number; // from 1
};

/// End of the line, or of the row where line ends stand in quotes.
std::size_t lineEnd(std::string_view text, std::size_t begin)
{
    bool quoted = false;
    for (std::size_t i = begin; i < text.size(); ++i) {
        if (text[i] == '"') quoted = !quoted;
        if (!quoted && (text[i] == '\n' || text[i] == '\r')) return i;
    }
    return text.size();
}

/// The first rows that are not blank.
std::vector<Line> firstLines(std::string_view text)
{
    std::vector<Line> lines;
    std::size_t number = 1;
    for (std::size_t begin = 0; begin < text.size() && lines.size() < linesLookedAt;) {
        std::size_t const end = lineEnd(text, begin);
        std::string_view const line = text.substr(begin, end - begin);
        if (line.find_first_not_of(" \t") != line.npos) lines.push_back({line, begin, number});
        number += 1 + std::size_t(std::ranges::count(line, '\n'));
        begin = end + (text.substr(end).starts_with("\r\n") ? 2 : 1);
    }
    return lines;
}

/// Separators outside quotes, and one: the number of fields.
std::size_t width(std::string_view line, char separator)
{
    bool quoted = false;
    std::size_t fields = 1;
    for (char const c : line) {
        if (c == '"') quoted = !quoted;
        fields += !quoted && c == separator;
    }
    return fields;
}

/// How many lines have the most frequent width above one, and that width.
std::pair<std::size_t, std::size_t> agreement(std::vector<Line> const& lines, char separator)
{
    std::map<std::size_t, std::size_t> counts;
    for (Line const& line : lines) ++counts[width(line.text, separator)];
    std::pair<std::size_t, std::size_t> best{0, 1};
    for (auto const& [fields, count] : counts)
        if (fields > 1) best = std::max(best, {count, fields});
    return best;
}

std::string_view bare(std::string_view comment, std::string_view mark)
{
    comment.remove_prefix(mark.size());
    comment.remove_prefix(std::min(comment.find_first_not_of(" \t"), comment.size()));
    return comment;
}

} // namespace

fen::CsvLayout fen::findCsvLayout(std::string_view text, FenReadOptions const& options)
{
    CsvLayout layout;
    std::string const mark = options.comment.toStdString();
    auto const isComment = [&](Line const& line) { return !mark.empty() && line.text.starts_with(mark); };
    std::vector<Line> lines = firstLines(text);
    std::size_t const skipped = std::size_t(std::max(options.skipRows.value_or(0), 0));
    std::erase_if(lines, [&](Line const& line) { return line.number <= skipped; });
    std::vector<Line> comments;
    for (Line const& line : lines) {
        if (!isComment(line)) break;
        comments.push_back(line);
    }
    std::erase_if(lines, isComment);
    if (lines.empty()) return layout;

    std::pair<std::size_t, std::size_t> best{0, 1};
    layout.separator = options.delimiter.value_or(separators[0]);
    if (options.delimiter) best = agreement(lines, *options.delimiter);
    for (char const candidate : separators) {
        if (options.delimiter) break;
        auto const found = agreement(lines, candidate);
        if (found.first > best.first || (found.first == best.first && found.second > best.second)) {
            best = found;
            layout.separator = candidate;
        }
    }
    auto const first = std::ranges::find_if(lines, [&](Line const& line) {
        return options.skipRows || 2 * best.first < lines.size()
            || width(line.text, layout.separator) >= best.second;
    });
    Line const& start = first == lines.end() ? lines.front() : *first;
    layout.begin = start.begin;
    layout.beginLine = start.number;
    if (!comments.empty() && comments.back().number < start.number) {
        std::string_view const names = bare(comments.back().text, mark);
        if (best.second > 1 && width(names, layout.separator) == best.second) layout.header = names;
    }
    return layout;
}

bool fen::looksLikeUnit(QString const& text)
{
    constexpr qsizetype longestWord = 5; // "count", "steps"; longer words are remarks
    constexpr qsizetype longest = 16;
    if (text.isEmpty() || text.size() > longest) return false;
    bool const marks =
        std::ranges::any_of(text, [](QChar c) { return QStringLiteral("/%°²³·^*µΩ$€£¥‰").contains(c); });
    bool const digitsFirst = text.front().isDigit() && text != QLatin1String("1");
    return !digitsFirst && (marks || (text.size() <= longestWord && !text.contains(QLatin1Char(' '))));
}

QString fen::takeUnit(QString& name)
{
    for (char const* brackets : {"[]", "()"}) {
        qsizetype const open = name.lastIndexOf(QLatin1Char(brackets[0]));
        if (open <= 0 || !name.endsWith(QLatin1Char(brackets[1]))) continue;
        QString const unit = name.mid(open + 1, name.size() - open - 2).trimmed();
        QString const before = name.left(open).trimmed();
        bool const square = brackets[0] == '[';
        if (before.isEmpty() || unit.isEmpty() || (!square && !looksLikeUnit(unit))) continue;
        name = before;
        return unit;
    }
    return {};
}
