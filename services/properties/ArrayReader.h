#pragma once

#include <QString>
#include <QStringView>

namespace fen {

inline bool isBlank(QChar c) { return c == u' ' || c == u'\t' || c == u'\n' || c == u'\r'; }

/// Reads JSON arrays of texts and plain tokens.
class ArrayReader {
public:
    explicit ArrayReader(QString const& text)
        : _rest(QStringView(text).trimmed())
    {
    }

    /// Hands the items to `take(QStringView, bool quoted)`; stops when it returns false.
    /// @return whether the text is an array, or empty, and all items were taken
    template <class Take>
    bool read(Take const& take)
    {
        if (_rest.isEmpty()) return true;
        if (!skip(u'[')) return false;
        if (skip(u']')) return _rest.isEmpty();
        do {
            bool const quoted = _rest.startsWith(u'"');
            QString unescaped;
            QStringView item = unescaped;
            if (quoted) {
                if (!takeQuoted(unescaped)) return false;
                item = unescaped;
            } else {
                item = takePlain();
            }
            if (!take(item, quoted)) return false;
        } while (skip(u','));
        return skip(u']') && _rest.isEmpty();
    }

private:
    bool skip(char16_t c)
    {
        skipBlanks();
        if (!_rest.startsWith(QChar(c))) return false;
        _rest = _rest.mid(1);
        skipBlanks();
        return true;
    }

    void skipBlanks()
    {
        while (!_rest.isEmpty() && isBlank(_rest.front())) _rest = _rest.mid(1);
    }

    QStringView takePlain()
    {
        qsizetype length = 0;
        while (length < _rest.size() && _rest[length] != u',' && _rest[length] != u']') ++length;
        QStringView const token = _rest.left(length).trimmed();
        _rest = _rest.mid(length);
        return token;
    }

    bool takeQuoted(QString& text)
    {
        for (qsizetype i = 1; i < _rest.size(); ++i) {
            if (_rest[i] == u'"') {
                _rest = _rest.mid(i + 1);
                return true;
            }
            if (_rest[i] != u'\\') {
                text += _rest[i];
            } else if (!takeEscape(i, text)) {
                return false;
            }
        }
        return false;
    }

    /// Reads the escape behind the backslash at `i`; `i` ends at its last character.
    bool takeEscape(qsizetype& i, QString& text)
    {
        if (++i >= _rest.size()) return false;
        static char const names[] = "\"\\/bfnrt";
        static char const meanings[] = "\"\\/\b\f\n\r\t";
        char16_t const name = _rest[i].unicode();
        for (int k = 0; names[k]; ++k) {
            if (name != char16_t(names[k])) continue;
            text += QLatin1Char(meanings[k]);
            return true;
        }
        bool isCode = false;
        ushort const code = _rest.mid(i + 1, 4).toUShort(&isCode, 16);
        if (name != u'u' || _rest.size() < i + 5 || !isCode) return false;
        text += QChar(code);
        i += 4;
        return true;
    }

    QStringView _rest;
};

} // namespace fen
