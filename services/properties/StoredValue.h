#pragma once

#include "services/math/Matrix.h"
#include "services/math/Vector2.h"
#include "services/math/Vector3.h"
#include "services/properties/ValueText.h"

#include <QColor>
#include <QList>
#include <QString>

#include <algorithm>
#include <cmath>
#include <concepts>
#include <memory>
#include <type_traits>
#include <vector>

/// How the string store keeps typed values: what stands for a value, and when two
/// values have the same text.
namespace fen::stored {

using Kes::Math::Matrix;
typedef std::shared_ptr<Matrix const> SharedMatrix;

template <class T>
inline constexpr bool isText = std::is_same_v<T, QString>;

/// Whether values of a type are kept as they are; others are kept as texts only.
template <class T>
inline constexpr bool isStorable =
    !isText<T> && !std::is_same_v<T, std::vector<int>> && !std::is_same_v<T, std::vector<bool>>;

/// What the store keeps for a value.
template <class T>
struct Kept {
    typedef T Type;
};
template <>
struct Kept<Matrix> {
    typedef SharedMatrix Type;
};

// --- values as they read back from their texts

template <class T>
decltype(auto) kept(T const& value)
{
    return asReadBack(value);
}
inline SharedMatrix kept(Matrix const& matrix) { return std::make_shared<Matrix const>(matrix); }

template <class T>
T const& given(T const& value)
{
    return value;
}
inline Matrix const& given(SharedMatrix const& matrix) { return *matrix; }

// --- equality of texts, told from the values

template <class T>
bool same(T const& a, T const& b)
{
    return a == b;
}
template <std::floating_point T>
bool same(T const& a, T const& b)
{
    return (a == b && std::signbit(a) == std::signbit(b)) || (std::isnan(a) && std::isnan(b));
}
template <class T>
bool sameNumbers(T const* a, T const* b, std::size_t count)
{
    return std::equal(a, a + count, b, [](T x, T y) { return same(x, y); });
}
inline bool same(Kes::Math::Vector2 const& a, Kes::Math::Vector2 const& b)
{
    return sameNumbers<float>(a, b, 2);
}
inline bool same(Kes::Math::Vector3 const& a, Kes::Math::Vector3 const& b)
{
    return sameNumbers<float>(a, b, 3);
}
inline bool same(SharedMatrix const& a, SharedMatrix const& b)
{
    return a == b || sameNumbers<float>(*a, *b, 16);
}
inline bool same(SharedMatrix const& a, Matrix const& b) { return sameNumbers<float>(*a, b, 16); }
inline bool same(std::vector<double> const& a, std::vector<double> const& b)
{
    return a.size() == b.size() && sameNumbers(a.data(), b.data(), a.size());
}
inline bool same(QColor const& a, QColor const& b)
{
    return a.isValid() == b.isValid() && (!a.isValid() || a.rgba() == b.rgba());
}
inline bool same(QList<QColor> const& a, QList<QColor> const& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](QColor const& x, QColor const& y) { return same(x, y); });
}

} // namespace fen::stored
