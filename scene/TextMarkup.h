#pragma once

#include <QColor>
#include <QString>

#include <vector>

namespace fen {

/// Characters of one line that look alike.
struct TextRun {
    QString text;
    bool bold = false;
    bool italic = false;
    QColor color; ///< invalid: that of the whole text
};

/// Takes a line apart at its tags: <b>, </b>, <i>, </i>, <font color="#rrggbb"> and </font>, in lower
/// case. Any other '<' is left out and what follows it is text. After </font> one character is swallowed.
/// A colour that is none changes nothing. Ends behind some thousand characters that are drawn, more than any
/// screen shows; takes time in proportion to the length.
std::vector<TextRun> textRuns(QString const& line);

} // namespace fen
