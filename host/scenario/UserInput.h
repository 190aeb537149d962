#pragma once

#include "host/instruments/CallValue.h"
#include "host/scenario/Commands.h"
#include "platform/Control.h"

#include <string>

namespace ko {

/// Logs that the user's input had no effect; null where no control was reached.
inline void logInert(Scenario& scenario, const Control* control)
{
    scenario.log.event("inert", {{"control", control ? CallValue(control->name()) : CallValue()}});
}

/// Passes the user's input to a control unless its form is not shown.
template <class Input> void give(Scenario& scenario, const Control& control, const Input& input)
{
    if (!scenario.isFormShown() || input() == Outcome::Inert)
        logInert(scenario, &control);
}

/// Returns the control as this type; a fault if it is of another type.
template <class T> T& controlAs(const Scenario& scenario, const std::string& name, const char* use)
{
    auto* const control = dynamic_cast<T*>(&scenario.control(name));
    if (!control)
        scenario.refuse("the control \"" + name + "\" cannot be " + use);
    return *control;
}

} // namespace ko
