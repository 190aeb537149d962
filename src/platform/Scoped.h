#pragma once

namespace ko {

/// Sets a variable for the lifetime of a scope and then restores it.
template <class T> class Scoped {
public:
    Scoped(T& variable, T value) : variable_(variable), previous_(variable) { variable = value; }
    ~Scoped() { variable_ = previous_; }
    Scoped(const Scoped&) = delete;
    Scoped& operator=(const Scoped&) = delete;

private:
    T& variable_;
    T previous_;
};

} // namespace ko
