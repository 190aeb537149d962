#pragma once

#include "faults/Bench.h"

#include <random>

namespace ko::test {

/// Pseudo-random numbers from a seed.
class Draw {
public:
    explicit Draw(std::uint32_t seed) : random_(seed) { random_.discard(2); }

    /// Returns a number from 0 to `count` - 1, or 0 if `count` is 0.
    int upTo(int count) { return count > 0 ? static_cast<int>(random_() % static_cast<unsigned>(count)) : 0; }
    std::size_t upTo(std::size_t count) { return static_cast<std::size_t>(upTo(static_cast<int>(count))); }
    bool oneIn(int count) { return upTo(count) == 0; }
    template <class T, std::size_t count> T of(const T (&list)[count]) { return list[upTo(count)]; }

private:
    std::minstd_rand random_;
};

/// Adds instruments of every kind: with and without lists, views, channels and parameters; that keep, round or refuse
/// written values. With `mayFail` some operations of some of them fail.
void addAnyInstruments(Bench& bench, Draw& draw, bool mayFail);

/// Performs random actions of a host and a user, of every kind, reproducible by seed.
class AnyUser {
public:
    AnyUser(Bench& bench, bool mayFail) : bench_(bench), mayFail_(mayFail) {}

    void act(std::uint32_t seed);

    Texts done; ///< the actions, as scenario commands where there are any

private:
    void listen(Form& form);
    void beHost(Draw& draw);
    void changeList(Draw& draw);
    void giveCommand(Draw& draw);
    /// Makes some input to a form; returns false if that has closed it.
    bool use(Form& form, Draw& draw);
    bool press(PressControl& control);
    void useText(TextBox& box, Draw& draw);
    void useGrid(Grid& grid, Draw& draw);
    bool useSelector(ChannelSelector& selector, Draw& draw);
    void answer(Form& form, std::uint32_t seed);

    Bench& bench_;
    bool mayFail_;
};

} // namespace ko::test
