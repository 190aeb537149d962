// Switches for edits of the sources, one of which may be on in a run of a program. tools/mutation/switching.py writes
// their uses, and asking.py the file that the environment variable KO_SWITCHES names: the number of the edit that is
// on, 0 for none, and for each number a byte that says what became of that edit in the run.
#ifndef KO_SWITCHED_H
#define KO_SWITCHED_H

#include <cstdint>
#include <cstdlib>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <type_traits>
#include <unistd.h>

// An edited number is read at run time. Narrowing it is accepted; an array of that length is an error.
#pragma GCC diagnostic ignored "-Wnarrowing"
#pragma GCC diagnostic error "-Wvla"

namespace ko_switched {

constexpr unsigned char reached = 1, doesNotCompile = 2; // bits

struct Switches {
    std::int32_t on;
    unsigned char states[1 << 24];
};

// Fixed, so that a program and its libraries share the switches and none of them exports a symbol for it.
constexpr std::uintptr_t place = 0x10000000000;

inline Switches& switches()
{
    return *reinterpret_cast<Switches*>(place);
}

// Runs before all that the sources initialize, once in each of them; the first one maps the switches. By system calls,
// since tests replace the functions of the library by failing ones.
__attribute__((constructor(101))) static void mapSwitches()
{
    const char* name = std::getenv("KO_SWITCHES");
    const long file = name ? ::syscall(SYS_open, name, O_RDWR | O_CLOEXEC) : -1;
    const int kind = file >= 0 ? MAP_SHARED : MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE;
    ::syscall(SYS_mmap, place, sizeof(Switches), PROT_READ | PROT_WRITE, kind | MAP_FIXED_NOREPLACE, file, 0L);
    if (file >= 0)
        ::syscall(SYS_close, file);
}

inline bool isOn(int number)
{
    switches().states[number] |= reached;
    return switches().on == number;
}

inline void cannotBeOn(int number)
{
    switches().states[number] |= reached | doesNotCompile;
}

// `left + right` is written `left + Edit<number>{} + right`, likewise for the other operators: an overload of the
// second operator evaluates the original expression, or the edited one if the switch is on. The precedence stays the
// same.
template <int number> struct Edit {
};
template <class Left, int number> struct LeftOf {
    Left&& left;
};
template <class Right, int number> struct RightOf {
    Right&& right;
};

#define KO_SWITCHED_VALUE(OLD, NEW)                                                                                    \
    template <class Left, int number> LeftOf<Left, number> operator OLD(Left&& left, Edit<number>)                     \
    {                                                                                                                  \
        return {static_cast<Left&&>(left)};                                                                            \
    }                                                                                                                  \
    template <class Left, int number, class Right> auto operator OLD(LeftOf<Left, number>&& to, Right&& right)         \
    {                                                                                                                  \
        using Result = std::decay_t<decltype(static_cast<Left&&>(to.left) OLD static_cast<Right&&>(right))>;           \
        if constexpr (requires {                                                                                       \
                          static_cast<Result>(static_cast<Left&&>(to.left) NEW static_cast<Right&&>(right));           \
                      }) {                                                                                             \
            if (isOn(number))                                                                                          \
                return static_cast<Result>(static_cast<Left&&>(to.left) NEW static_cast<Right&&>(right));              \
        } else {                                                                                                       \
            cannotBeOn(number);                                                                                        \
        }                                                                                                              \
        return static_cast<Result>(static_cast<Left&&>(to.left) OLD static_cast<Right&&>(right));                      \
    }
KO_SWITCHED_VALUE(<, <=)
KO_SWITCHED_VALUE(<=, <)
KO_SWITCHED_VALUE(>, >=)
KO_SWITCHED_VALUE(>=, >)
KO_SWITCHED_VALUE(==, !=)
KO_SWITCHED_VALUE(!=, ==)
KO_SWITCHED_VALUE(+, -)
KO_SWITCHED_VALUE(-, +)
KO_SWITCHED_VALUE(*, /)
KO_SWITCHED_VALUE(/, *)
#undef KO_SWITCHED_VALUE

#define KO_SWITCHED_ASSIGNMENT(OLD, NEW)                                                                               \
    template <class Right, int number> RightOf<Right, number> operator OLD(Edit<number>, Right&& right)                \
    {                                                                                                                  \
        return {static_cast<Right&&>(right)};                                                                          \
    }                                                                                                                  \
    template <class Left, int number, class Right> Left&& operator OLD(Left&& left, RightOf<Right, number>&& of)       \
    {                                                                                                                  \
        if constexpr (requires { left NEW static_cast<Right&&>(of.right); }) {                                         \
            if (isOn(number)) {                                                                                        \
                left NEW static_cast<Right&&>(of.right);                                                               \
                return static_cast<Left&&>(left);                                                                      \
            }                                                                                                          \
        } else {                                                                                                       \
            cannotBeOn(number);                                                                                        \
        }                                                                                                              \
        left OLD static_cast<Right&&>(of.right);                                                                       \
        return static_cast<Left&&>(left);                                                                              \
    }
KO_SWITCHED_ASSIGNMENT(+=, -=)
KO_SWITCHED_ASSIGNMENT(-=, +=)
#undef KO_SWITCHED_ASSIGNMENT

// Not<number>{} ->* value: with the switch on, the value is not negated.
template <int number> struct Not {
};
template <int number, class Value> bool operator->*(Not<number>, Value&& value)
{
    return isOn(number) ? static_cast<bool>(value) : !value;
}

// Increment<number>{} ->* value: with the switch on, the value is decremented.
template <int number> struct Increment {
};
template <int number, class Value> decltype(auto) operator->*(Increment<number>, Value& value)
{
    if constexpr (requires { --value; }) {
        if (isOn(number))
            return --value;
    } else {
        cannotBeOn(number);
    }
    return ++value;
}

// Returns the index of the operand after the edited operator, or 0 if no switch is on. `numbers` holds one switch for
// each operator, 0 for an operator that has none.
template <int... numbers> std::size_t edited()
{
    std::size_t found = 0, at = 0;
    (..., (++at, numbers != 0 && isOn(numbers) ? void(found = at) : void()));
    return found;
}

// a && b && c, of which one && may be edited: the operands before it, or those after it.
template <int... numbers, class... Operands> bool all(Operands&&... operands)
{
    const std::size_t second = edited<numbers...>();
    bool before = true, after = true;
    std::size_t at = 0;
    const auto add = [&](auto& operand) {
        if (at++ < second || second == 0)
            before = before && operand();
        else if (!before)
            after = after && operand();
    };
    (..., add(operands));
    return before || (second != 0 && after);
}

// a || b || c, of which one || may be edited: it binds its operands more closely than the others.
template <int... numbers, class... Operands> bool any(Operands&&... operands)
{
    const std::size_t second = edited<numbers...>();
    bool found = false, first = false;
    std::size_t at = 0;
    const auto add = [&](auto& operand) {
        ++at;
        if (found)
            return;
        if (second != 0 && at == second)
            first = operand();
        else if (second != 0 && at == second + 1)
            found = first && operand();
        else
            found = operand();
    };
    (..., add(operands));
    return found;
}

} // namespace ko_switched
using ko_switched::operator->*;
#endif
