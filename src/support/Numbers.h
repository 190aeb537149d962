#pragma once

#include "platform/Failure.h"

namespace ko {

/// The larger or the smaller of two values; the second if they compare equal.
template <class T> T largerOf(T a, T b)
{
    return a > b ? a : b;
}

template <class T> T smallerOf(T a, T b)
{
    return a < b ? a : b;
}

/// The value, or failure 11 when it is 0.
inline double nonZero(double value)
{
    if (value == 0.0)
        fail(failure::divisionByZero);
    return value;
}

inline double itself(double value)
{
    return value;
}

/// 1 / value, or failure 11 when the value is 0.
inline double reciprocal(double value)
{
    return 1.0 / nonZero(value);
}

} // namespace ko
