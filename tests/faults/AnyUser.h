#pragma once

#include "fakes/Draw.h"
#include "faults/Bench.h"

namespace ko::test {

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
