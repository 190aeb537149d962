#include "platform/Failure.h"

namespace ko {

namespace {

const char* describe(std::int32_t number)
{
    switch (number) {
    case failure::invalidCall: return "Invalid procedure call or argument";
    case failure::overflow: return "Overflow";
    case failure::subscriptOutOfRange: return "Subscript out of range";
    case failure::divisionByZero: return "Division by zero";
    case failure::typeMismatch: return "Type mismatch";
    case failure::noObject: return "Object variable not set";
    case failure::resourceNotFound: return "Resource with this identifier not found";
    default: return "Unspecified error";
    }
}

} // namespace

void fail(std::int32_t number)
{
    throw Failure(number, describe(number));
}

} // namespace ko
