#pragma once

#include <cmath>
#include <optional>
#include <utility>

namespace ko {

/// A test of floating-point numbers that is computed only for a number other than the last one: most drivers hold the
/// same number, and a test that compares texts costs more than the driver's call.
template <class Number, class Test> class LastAnswer {
public:
    explicit LastAnswer(Test test) : test_(std::move(test)) {}

    bool operator()(Number number)
    {
        if (number != last_ || std::signbit(number) != std::signbit(*last_)) {
            answer_ = test_(number);
            last_ = number;
        }
        return answer_;
    }

private:
    Test test_;
    std::optional<Number> last_;
    bool answer_ = false;
};

template <class Number, class Test> LastAnswer<Number, Test> lastAnswer(Test test)
{
    return LastAnswer<Number, Test>(std::move(test));
}

} // namespace ko
