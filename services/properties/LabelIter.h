#pragma once

#include "../logging/Export.h"

#include <QStringList>

/// Walks through label texts; starts before the first.
class FENVIS_EXPORT FenLabelIter {
public:
    explicit FenLabelIter(QStringList const& labels);

    /// Back to before the first label.
    void Reset();
    /// To the next label; false, and staying behind the last, when there is none.
    bool MoveNext();
    /// The present label; empty before the first and behind the last.
    QString Current() const;

private:
    QStringList _labels;
    qsizetype _position = -1;
};
