#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

#if defined(__GNUC__)
#define KO_VISIBLE __attribute__((visibility("default")))
#else
#define KO_VISIBLE
#endif

namespace ko {

/// Failure numbers that the component itself raises; drivers may raise any other.
namespace failure {
inline constexpr std::int32_t invalidCall = 5;
inline constexpr std::int32_t overflow = 6;
inline constexpr std::int32_t subscriptOutOfRange = 9;
inline constexpr std::int32_t divisionByZero = 11;
inline constexpr std::int32_t typeMismatch = 13;
inline constexpr std::int32_t noObject = 91;
inline constexpr std::int32_t resourceNotFound = 326;
inline constexpr std::int32_t unspecified = -2147467259;
} // namespace failure

/// A failed call: a number and a description. Visible across the component's boundary, so that a host's drivers
/// can throw it.
class KO_VISIBLE Failure : public std::runtime_error {
public:
    Failure(std::int32_t number, const std::string& description) : std::runtime_error(description), number_(number) {}

    [[nodiscard]] std::int32_t number() const { return number_; }

private:
    std::int32_t number_;
};

/// Throws the failure of this number with its usual description.
[[noreturn]] void fail(std::int32_t number);

/// `object`, or failure 91 when there is none.
template <class T> T& required(T* object)
{
    if (!object)
        fail(failure::noObject);
    return *object;
}

} // namespace ko
