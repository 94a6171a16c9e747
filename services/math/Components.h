#pragma once

#include <compare>
#include <concepts>
#include <type_traits>

namespace Kes::Math {

/// A type that converts to a pointer to its components, as OpenGL takes them.
template <class T>
concept HasComponents = std::is_class_v<T> && std::is_convertible_v<T const&, float const*>;

// What such a type does not define itself would be done with the pointers: it is no operation at all.

template <class A, class B>
requires HasComponents<A> || HasComponents<B> std::partial_ordering operator<=>(A const&, B const&) = delete;

template <class A, class B>
requires(!std::same_as<A, B> && (HasComponents<A> || HasComponents<B>)) bool operator==(A const&,
                                                                                        B const&) = delete;

template <class A, class B>
requires HasComponents<A> || HasComponents<B>
void operator+(A const&, B const&) = delete;

template <class A, class B>
requires HasComponents<A> || HasComponents<B>
void operator-(A const&, B const&) = delete;

} // namespace Kes::Math
