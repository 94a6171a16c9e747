#include "host/file/JsonWriter.h"

namespace {

constexpr qsizetype indent = 2; // [characters] per level

QByteArray lineStart(std::size_t levels)
{
    return QByteArray("\n") + QByteArray(indent * qsizetype(levels), ' ');
}

} // namespace

QByteArray fen::jsonText(QString const& text)
{
    QByteArray json("\"");
    for (char const c : text.toUtf8()) {
        if (c == '"' || c == '\\')
            json.append('\\').append(c);
        else if (c == '\n' || c == '\t')
            json.append(c == '\n' ? "\\n" : "\\t");
        else if (static_cast<unsigned char>(c) < 0x20)
            json.append("\\u").append(QByteArray::number(c, 16).rightJustified(4, '0'));
        else
            json.append(c);
    }
    return json.append('"');
}

void fen::JsonWriter::begin(QString const& key, char opening, char closing)
{
    _levels.push_back({key, opening, closing});
}

void fen::JsonWriter::show()
{
    for (std::size_t i = 0; i < _levels.size(); ++i) {
        Level& level = _levels[i];
        if (level.shown) continue;
        level.shown = true;
        if (i > 0) startLine(_levels[i - 1], level.key);
        _text.append(level.opening);
    }
}

void fen::JsonWriter::startLine(Level& level, QString const& key)
{
    if (!level.empty) _text.append(',');
    level.empty = false;
    _text.append(lineStart(std::size_t(&level - _levels.data()) + 1));
    if (!key.isEmpty()) _text.append(jsonText(key)).append(": ");
}

void fen::JsonWriter::end()
{
    Level const level = _levels.back();
    _levels.pop_back();
    if (!level.shown) return;
    if (!level.empty) _text.append(lineStart(_levels.size()));
    _text.append(level.closing);
    if (_levels.empty()) _text.append('\n');
}

void fen::JsonWriter::write(QString const& key, QByteArray const& json)
{
    show();
    startLine(_levels.back(), key);
    _text.append(json);
}

void fen::JsonWriter::writeList(QString const& key, std::vector<QByteArray> const& items, std::size_t perLine)
{
    bool const lines = items.size() > perLine;
    QByteArray json("[");
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (i > 0) json.append(lines && i % perLine == 0 ? "," : ", ");
        if (lines && i % perLine == 0) json.append(lineStart(_levels.size() + 1));
        json.append(items[i]);
    }
    if (lines) json.append(lineStart(_levels.size()));
    write(key, json.append(']'));
}
