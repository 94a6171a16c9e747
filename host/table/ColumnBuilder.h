#pragma once

#include "host/table/DataTable.h"
#include "host/table/DateText.h"
#include "host/table/ReadOptions.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace fen {

/// True for an empty field and for the words that stand for a missing value.
bool isMissing(std::string_view text);

/// Gathers one column of a table and finds out how its fields are written.
///
/// Walks over the rows: `Counting` some or all rows tells which ways of writing fit, `Filling` reads the
/// values in the one that fits best. A few fields that do not fit are missing values and are remembered; a
/// column with many of them is counted whole and filled again.
class ColumnBuilder {
public:
    enum class Phase { Counting, Filling, Done };

    ColumnBuilder(FenReadOptions const& options, std::optional<FenReadOptions::As> as);

    Phase phase() const { return _phase; }
    /// One field in the present walk. @param line  of the file, from 1
    void add(std::string_view field, std::size_t line);
    bool isText() const { return _kind == Kind::Text; }
    /// True when `text` is a value in the way of writing that was chosen.
    bool reads(std::string_view text) const;

    /// How often numbers could only be read with a decimal point, or only with a comma.
    int decimalVotes() const { return int(_fits.comma) - int(_fits.point); }
    /// After counting: chooses and goes on to filling. @param comma  when the column itself does not tell
    void choose(bool comma);
    /// After filling. @return true when the column has to be walked once more
    bool settle();

    /// A field that could not be read.
    struct Bad {
        std::size_t line;
        QString text;
    };
    std::vector<Bad> const& bad() const { return _bad; } ///< the first few
    std::size_t badCount() const { return _badCount; }
    /// True when day and month could as well be the other way round.
    bool dayMonthUnclear() const { return _unclear; }
    bool dayFirst() const { return _order == DateOrder::DayFirst; }

    /// The values, the kind and what the fields tell of their unit; the builder is empty then.
    FenDataTable::Column take(QString const& name);

private:
    typedef FenDataTable::Kind Kind;
    /// How many fields fit which way of writing.
    struct Fits {
        std::size_t fields = 0, numbers = 0;
        std::size_t point = 0, comma = 0; // numbers that need this decimal mark
        std::array<std::size_t, 4> dates{}; // by DateOrder
        std::size_t pattern = 0, times = 0;
    };
    /// What both orders of day and month make of a column.
    struct Order {
        std::size_t bad = 0, falling = 0;
        double last = 0;
        void see(std::optional<DateText> const& date);
    };

    void count(std::string_view text);
    void fill(std::string_view text, std::size_t line);
    bool convert(std::string_view text, double& value);
    bool convertDate(std::string_view text, double& value);
    double category(std::string_view text);
    void chooseDate();
    void startFilling();
    static bool tolerable(std::size_t bad, std::size_t fields);
    void finishDates(FenDataTable::Column& column);
    void finishEpoch(FenDataTable::Column& column, QString const& name);

    FenReadOptions const& _options;
    std::optional<FenReadOptions::As> _as;
    std::string _pattern;
    Phase _phase = Phase::Counting;
    bool _countedAll = false; // the next choice is the last
    Fits _fits;

    Kind _kind = Kind::Number;
    char _decimal = '.';
    DateOrder _order = DateOrder::Iso;
    bool _unclear = false;
    std::array<Order, 2> _orders; // day first, month first, while that is unclear

    std::vector<double> _values;
    std::size_t _fields = 0; // that are not missing
    std::vector<Bad> _bad;
    std::size_t _badCount = 0;
    std::string _sign; // beside every number
    bool _sameSign = true;
    bool _hasTime = false;
    std::optional<int> _offset; // [minutes] of every date
    bool _sameOffset = true;
    std::vector<double> _offsets; // [s] by row, once they differ
    QStringList _categories;
    std::unordered_map<std::string, qsizetype> _index;
};

} // namespace fen
