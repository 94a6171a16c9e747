#include "host/table/Correlation.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numeric>

namespace {

using fen::CorrelationMethod;

typedef std::span<double const> Column;
double const undefined = std::numeric_limits<double>::quiet_NaN();

constexpr std::size_t lanes = 4; ///< columns of a panel
constexpr std::size_t blockRows = 512; ///< rows whose panels stay in the cache together

/// Columns of a matrix in panels of four, each row of a panel in one place: what the product below reads.
class Panels {
public:
    Panels(std::size_t rows, std::size_t columns)
        : _rows(rows)
        , _values(rows * lanes * ((columns + lanes - 1) / lanes), 0.0)
    {
    }
    double& at(std::size_t row, std::size_t column)
    {
        return _values[((column / lanes) * _rows + row) * lanes + column % lanes];
    }
    double const* panel(std::size_t index, std::size_t row) const
    {
        return _values.data() + (index * _rows + row) * lanes;
    }
    std::size_t count() const { return _rows == 0 ? 0 : _values.size() / (_rows * lanes); }
    std::size_t rows() const { return _rows; }

private:
    std::size_t _rows;
    std::vector<double> _values;
};

typedef std::array<double, lanes * lanes> Tile;

/// Adds the products of each column of one panel with each of another over some rows.
void addProducts(double const* a, double const* b, std::size_t rows, Tile& sums)
{
    Tile tile = sums; // stays in registers
    for (std::size_t row = 0; row < rows; ++row, a += lanes, b += lanes)
        for (std::size_t i = 0; i < lanes; ++i)
            for (std::size_t k = 0; k < lanes; ++k) tile[i * lanes + k] += a[i] * b[k];
    sums = tile;
}

/// Products of all pairs of columns, block of rows by block of rows; tiles below the diagonal stay empty.
std::vector<Tile> products(Panels const& panels)
{
    std::size_t const count = panels.count();
    std::vector<Tile> tiles(count * count, Tile{});
    for (std::size_t row = 0; row < panels.rows(); row += blockRows) {
        std::size_t const rows = std::min(blockRows, panels.rows() - row);
        for (std::size_t i = 0; i < count; ++i)
            for (std::size_t k = i; k < count; ++k)
                addProducts(panels.panel(i, row), panels.panel(k, row), rows, tiles[i * count + k]);
    }
    return tiles;
}

/// Values within [-1, 1] around their middle, so that no sum of squares leaves the range of numbers.
struct Scale {
    double middle = 0, half = 0;

    explicit Scale(Column values)
    {
        double low = undefined, high = undefined;
        for (double const value : values)
            if (std::isfinite(value)) {
                low = value < low || std::isnan(low) ? value : low;
                high = value > high || std::isnan(high) ? value : high;
            }
        middle = low / 2 + high / 2;
        half = high / 2 - low / 2;
    }
    /// False for no values and for equal ones.
    bool varies() const { return half > 0; }
    double operator()(double value) const { return (value / 2 - middle / 2) / (half / 2); }
};

/// Mean 0 and sum of squares 1, whatever the values; false when they do not vary.
bool standardise(Column values, Panels& panels, std::size_t column)
{
    Scale const scale(values);
    if (!scale.varies()) return false;
    double sum = 0, squares = 0;
    for (double const value : values) sum += scale(value);
    double const mean = sum / double(values.size());
    for (double const value : values) squares += (scale(value) - mean) * (scale(value) - mean);
    double const factor = 1 / std::sqrt(squares);
    for (std::size_t row = 0; row < values.size(); ++row)
        panels.at(row, column) = (scale(values[row]) - mean) * factor;
    return true;
}

/// Coefficient of two columns on the rows where both are finite.
double pairwise(Column a, Column b)
{
    std::vector<double> left, right;
    for (std::size_t row = 0; row < a.size(); ++row)
        if (std::isfinite(a[row]) && std::isfinite(b[row])) {
            left.push_back(a[row]);
            right.push_back(b[row]);
        }
    Scale const x(left), y(right);
    if (left.size() < 2 || !x.varies() || !y.varies()) return undefined;
    double meanX = 0, meanY = 0, xx = 0, yy = 0, xy = 0;
    for (std::size_t i = 0; i < left.size(); ++i) {
        left[i] = x(left[i]);
        right[i] = y(right[i]);
        meanX += left[i] / double(left.size());
        meanY += right[i] / double(left.size());
    }
    for (std::size_t i = 0; i < left.size(); ++i) {
        double const u = left[i] - meanX, v = right[i] - meanY;
        xx += u * u;
        yy += v * v;
        xy += u * v;
    }
    return std::clamp(xy / std::sqrt(xx) / std::sqrt(yy), -1.0, 1.0);
}

/// Rows of the finite values of a column, by ascending value.
std::vector<std::size_t> ascendingRows(Column values)
{
    std::vector<std::size_t> rows;
    for (std::size_t row = 0; row < values.size(); ++row)
        if (std::isfinite(values[row])) rows.push_back(row);
    std::ranges::sort(rows, {}, [&](std::size_t row) { return values[row]; });
    return rows;
}

/// Ranks from 1 of the values of a column, missing where the value is, or where `other` is missing one.
std::vector<double> ranks(Column values, std::vector<std::size_t> const& ascending, Column other)
{
    std::vector<double> result(values.size(), undefined);
    std::vector<std::size_t> same; // rows of equal values
    double rank = 1;
    auto const finish = [&] {
        for (std::size_t const row : same) result[row] = rank + double(same.size() - 1) / 2;
        rank += double(same.size());
        same.clear();
    };
    for (std::size_t const row : ascending) {
        if (!std::isfinite(other[row])) continue;
        if (!same.empty() && values[same.back()] != values[row]) finish();
        same.push_back(row);
    }
    if (!same.empty()) finish();
    return result;
}

/// Coefficients of the columns that have all their values, which is where nearly all the time goes.
void addComplete(std::vector<Column> const& columns, std::vector<std::size_t> const& complete,
                 std::vector<double>& matrix)
{
    if (complete.empty()) return;
    Panels panels(columns.front().size(), complete.size());
    std::vector<bool> varies;
    for (std::size_t i = 0; i < complete.size(); ++i)
        varies.push_back(standardise(columns[complete[i]], panels, i));
    std::vector<Tile> const tiles = products(panels);
    for (std::size_t i = 0; i < complete.size(); ++i)
        for (std::size_t k = i; k < complete.size(); ++k) {
            if (!varies[i] || !varies[k]) continue;
            Tile const& tile = tiles[(i / lanes) * panels.count() + k / lanes];
            double const product = tile[(i % lanes) * lanes + k % lanes];
            double const r = i == k ? 1.0 : std::clamp(product, -1.0, 1.0);
            matrix[complete[i] * columns.size() + complete[k]] = r;
            matrix[complete[k] * columns.size() + complete[i]] = r;
        }
}

std::vector<double> pearson(std::vector<Column> const& columns, std::vector<std::size_t> const& complete,
                            std::vector<std::size_t> const& incomplete)
{
    std::size_t const count = columns.size();
    std::vector<double> matrix(count * count, undefined);
    addComplete(columns, complete, matrix);
    for (std::size_t const i : incomplete)
        for (std::size_t k = 0; k < count; ++k)
            matrix[i * count + k] = matrix[k * count + i] = pairwise(columns[i], columns[k]);
    return matrix;
}

std::vector<double> spearman(std::vector<Column> const& columns, std::vector<std::size_t> const& complete,
                             std::vector<std::size_t> const& incomplete)
{
    std::size_t const count = columns.size();
    std::vector<std::vector<std::size_t>> orders;
    for (Column const column : columns) orders.push_back(ascendingRows(column));
    std::vector<std::vector<double>> ranked(count);
    std::vector<Column> whole(columns);
    for (std::size_t const i : complete) {
        ranked[i] = ranks(columns[i], orders[i], columns[i]);
        whole[i] = ranked[i];
    }
    std::vector<double> matrix(count * count, undefined);
    addComplete(whole, complete, matrix);
    for (std::size_t const i : incomplete)
        for (std::size_t k = 0; k < count; ++k) {
            std::vector<double> const a = ranks(columns[i], orders[i], columns[k]);
            std::vector<double> const b = ranks(columns[k], orders[k], columns[i]);
            matrix[i * count + k] = matrix[k * count + i] = pairwise(a, b);
        }
    return matrix;
}

/// Agglomerative clustering; clusters are lists of leaves in their order.
class Clustering {
public:
    Clustering(std::vector<double> const& matrix, std::size_t count)
        : _count(count)
        , _similarity(matrix)
        , _average(matrix)
        , _leaves(count)
    {
        for (std::vector<double>* values : {&_similarity, &_average})
            for (double& r : *values) r = std::isnan(r) ? 0.0 : r;
        for (std::size_t i = 0; i < count; ++i) _leaves[i] = {i};
    }

    std::vector<std::size_t> order()
    {
        std::vector<std::size_t> chain;
        for (std::size_t merges = 0; merges + 1 < _count;) {
            if (chain.empty()) chain.push_back(firstLiving());
            std::size_t const last = chain.back();
            std::size_t const next = nearest(last, chain.size() > 1 ? chain[chain.size() - 2] : last);
            if (chain.size() > 1 && next == chain[chain.size() - 2]) {
                chain.resize(chain.size() - 2);
                merge(std::min(last, next), std::max(last, next));
                ++merges;
            } else {
                chain.push_back(next);
            }
        }
        return _count > 0 ? _leaves.front() : std::vector<std::size_t>();
    }

private:
    typedef std::vector<std::size_t> Leaves;

    std::size_t firstLiving() const
    {
        return std::size_t(std::ranges::find_if_not(_leaves, &Leaves::empty) - _leaves.begin());
    }

    /// The most similar living cluster; of equals the preferred one, then the first.
    std::size_t nearest(std::size_t from, std::size_t preferred) const
    {
        std::size_t best = preferred;
        double most = preferred == from ? -std::numeric_limits<double>::infinity()
                                        : _average[from * _count + preferred];
        for (std::size_t i = 0; i < _count; ++i)
            if (i != from && !_leaves[i].empty() && _average[from * _count + i] > most) {
                best = i;
                most = _average[from * _count + i];
            }
        return best;
    }

    double between(std::size_t a, std::size_t b) const { return _similarity[a * _count + b]; }

    /// Puts two clusters beside each other, turned so that their most similar ends meet; `a` stays.
    void merge(std::size_t a, std::size_t b)
    {
        Leaves &left = _leaves[a], &right = _leaves[b];
        std::array<double, 4> const meeting{
            between(left.back(), right.front()), between(left.back(), right.back()),
            between(left.front(), right.front()), between(left.front(), right.back())};
        auto const best = std::ranges::max_element(meeting) - meeting.begin();
        if (best >= 2) std::ranges::reverse(left);
        if (best % 2 == 1) std::ranges::reverse(right);
        double const sizeA = double(left.size()), sizeB = double(right.size());
        for (std::size_t i = 0; i < _count; ++i) {
            double const mean =
                (sizeA * _average[a * _count + i] + sizeB * _average[b * _count + i]) / (sizeA + sizeB);
            _average[a * _count + i] = _average[i * _count + a] = mean;
        }
        left.insert(left.end(), right.begin(), right.end());
        right.clear();
    }

    std::size_t _count;
    std::vector<double> _similarity; // of leaves
    std::vector<double> _average; // of clusters
    std::vector<Leaves> _leaves; // by cluster; a merged one is empty
};

} // namespace

std::vector<double> fen::correlationMatrix(std::vector<std::span<double const>> const& columns,
                                           CorrelationMethod method)
{
    std::vector<std::size_t> complete, incomplete;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        bool const all = columns[i].size() > 1
            && std::ranges::all_of(columns[i], [](double value) { return std::isfinite(value); });
        (all ? complete : incomplete).push_back(i);
    }
    return method == CorrelationMethod::Spearman ? spearman(columns, complete, incomplete)
                                                 : pearson(columns, complete, incomplete);
}

std::vector<std::size_t> fen::clusterOrder(std::vector<double> const& matrix, std::size_t count)
{
    return matrix.size() == count * count ? Clustering(matrix, count).order() : std::vector<std::size_t>();
}
