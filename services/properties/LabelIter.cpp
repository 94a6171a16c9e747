#include "services/properties/LabelIter.h"

FenLabelIter::FenLabelIter(QStringList const& labels)
    : _labels(labels)
{
}

void FenLabelIter::Reset() { _position = -1; }

bool FenLabelIter::MoveNext()
{
    if (_position < _labels.size()) ++_position;
    return _position < _labels.size();
}

QString FenLabelIter::Current() const { return _labels.value(_position); }
