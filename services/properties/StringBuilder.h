#pragma once

#include "../logging/Export.h"
#include "../math/NumberFormat.h"

#include <QString>

#include <vector>

/// Makes label texts out of patterns, with one number format for all.
class FENVIS_EXPORT FenStringBuilder {
public:
    /// Fills the placeholders of one pattern, "%0" to "%99".
    ///
    /// Each call fills the lowest number that is left, wherever it occurs; a
    /// call too many is ignored, a placeholder left over stays as it is written.
    /// Text that was filled in is never searched for placeholders.
    class FENVIS_EXPORT Formatter {
    public:
        Formatter(QString const& pattern, Kes::Math::NumberFormat const& format);

        Formatter& operator()(QString const& text);
        Formatter& operator()(double const& value); ///< written with the number format
        Formatter& operator()(char const* text); ///< UTF-8; null is empty
        Formatter& operator()(int value);
        Formatter& operator()(unsigned value);
        Formatter& operator()(long value);
        Formatter& operator()(unsigned long value);
        Formatter& operator()(qint64 value);
        Formatter& operator()(quint64 value);

        /// The text as far as it is filled.
        QString operator()() const;

    private:
        struct Piece {
            QString text;
            int number; ///< of the placeholder; -1 for plain or filled text
        };

        std::vector<Piece> _pieces;
        Kes::Math::NumberFormat _format;
    };

    FenStringBuilder(Kes::Math::NumberFormat const& format = {});

    Formatter formatter(QString const& pattern) const;
    Kes::Math::NumberFormat const& numberFormat() const { return _format; }

private:
    Kes::Math::NumberFormat _format;
};
