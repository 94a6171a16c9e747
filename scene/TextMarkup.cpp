#include "scene/TextMarkup.h"

#include <algorithm>

namespace fen {

namespace {

constexpr qsizetype mostCharacters = 4097; // one more than a face draws, so that it shows that there are more

/// Reads one line from its beginning to its end.
class Reader {
public:
    explicit Reader(QString const& line)
        : _line(line)
    {
    }

    std::vector<TextRun> runs()
    {
        while (_at < _line.size() && _room > 0) {
            qsizetype const tag = _line.indexOf(u'<', _at);
            take(tag < 0 ? _line.size() : tag);
            if (tag >= 0) skipTag();
        }
        return std::move(_runs);
    }

private:
    /// Appends the characters up to `end` to the text that is drawn.
    void take(qsizetype end)
    {
        if (end <= _at) return;
        TextRun& last = _runs.empty() ? _runs.emplace_back(_style) : _runs.back();
        bool const alike =
            last.bold == _style.bold && last.italic == _style.italic && last.color == _style.color;
        TextRun& run = alike ? last : _runs.emplace_back(_style);
        qsizetype const count = std::min(end - _at, _room);
        run.text += QStringView(_line).mid(_at, count);
        _room -= count;
        _at = end;
    }

    bool starts(QLatin1String tag) const { return QStringView(_line).mid(_at).startsWith(tag); }

    /// Acts on what stands at the '<' and goes behind it.
    void skipTag()
    {
        constexpr qsizetype endOfFont = 8; // one more than it is long, kept as it always was
        if (starts(QLatin1String("<b>"))) {
            _style.bold = true;
            _at += 3;
        } else if (starts(QLatin1String("</b>"))) {
            _style.bold = false;
            _at += 4;
        } else if (starts(QLatin1String("<i>"))) {
            _style.italic = true;
            _at += 3;
        } else if (starts(QLatin1String("</i>"))) {
            _style.italic = false;
            _at += 4;
        } else if (starts(QLatin1String("</font>"))) {
            _style.color = QColor();
            _at += endOfFont;
        } else if (!skipFont()) {
            ++_at;
        }
    }

    static bool isHexDigit(QChar c)
    {
        return (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F');
    }

    bool skipFont()
    {
        QLatin1String const opening("<font color=\"#"), closing("\">");
        if (!starts(opening)) return false;
        qsizetype const name = _at + opening.size() - 1; // with the '#'
        qsizetype end = name + 1;
        while (end < _line.size() && isHexDigit(_line[end])) ++end;
        if (end == name + 1 || !QStringView(_line).mid(end).startsWith(closing)) return false;
        constexpr qsizetype longestName = 13; // "#rrrrggggbbbb"
        QColor const color(_line.mid(name, std::min(end - name, longestName + 1)));
        if (color.isValid()) _style.color = color;
        _at = end + closing.size();
        return true;
    }

    QString const& _line;
    qsizetype _at = 0;
    qsizetype _room = mostCharacters;
    TextRun _style; // its text stays empty
    std::vector<TextRun> _runs;
};

} // namespace

std::vector<TextRun> textRuns(QString const& line) { return Reader(line).runs(); }

} // namespace fen
