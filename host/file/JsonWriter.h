#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

namespace fen {

/// A text in quotes.
QByteArray jsonText(QString const& text);

/// Writes a JSON text with one member or item per line, two blanks per level.
///
/// An object or list that was begun shows only once something is written into it.
class JsonWriter {
public:
    /// @name Objects and lists; the key is empty for the outermost and for items of a list
    /// @{
    void beginObject(QString const& key = QString()) { begin(key, '{', '}'); }
    void beginList(QString const& key = QString()) { begin(key, '[', ']'); }
    /// Shows the innermost one even when it stays empty.
    void show();
    void end();
    /// @}

    /// A value that is JSON already.
    void write(QString const& key, QByteArray const& json);
    /// A list of plain values, `perLine` of them on a line when they need more than one.
    void writeList(QString const& key, std::vector<QByteArray> const& items, std::size_t perLine);

    /// The whole text, once everything has ended.
    QByteArray const& text() const { return _text; }

private:
    struct Level {
        QString key;
        char opening;
        char closing;
        bool shown = false;
        bool empty = true;
    };
    void begin(QString const& key, char opening, char closing);
    void startLine(Level& level, QString const& key);

    QByteArray _text;
    std::vector<Level> _levels;
};

} // namespace fen
