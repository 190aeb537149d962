#pragma once

#include "faults/Bench.h"

#include <random>

namespace ko::test {

/// Numbers that follow from a seed.
class Draw {
public:
    explicit Draw(std::uint32_t seed) : random_(seed) { random_.discard(2); }

    /// From 0 to `count` - 1; 0 where there is nothing to choose from.
    int upTo(int count) { return count > 0 ? static_cast<int>(random_() % static_cast<unsigned>(count)) : 0; }
    std::size_t upTo(std::size_t count) { return static_cast<std::size_t>(upTo(static_cast<int>(count))); }
    bool oneIn(int count) { return upTo(count) == 0; }
    template <class T, std::size_t count> T of(const T (&list)[count]) { return list[upTo(count)]; }

private:
    std::minstd_rand random_;
};

/// Instruments of every kind: with lists and without, that keep, round or refuse what is written, with and without
/// views, channels and parameters. `mayFail` lets some operations of some of them fail.
void addAnyInstruments(Bench& bench, Draw& draw, bool mayFail);

/// A host and a user who do anything that a host and a user can do, alike for the same seeds.
class AnyUser {
public:
    AnyUser(Bench& bench, bool mayFail) : bench_(bench), mayFail_(mayFail) {}

    void act(std::uint32_t seed);

    Texts done; ///< in the words of a scenario, as far as there are any

private:
    void listen(Form& form);
    void beHost(Draw& draw);
    void changeList(Draw& draw);
    void giveCommand(Draw& draw);
    /// Gives a form some input; false when that has closed it.
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
