#pragma once

namespace zelt
{

/// A value that may be absent, as the suite's libraries pass it. Several threads may read one that
/// none changes.
template <class T> class Nullable
{
public:
    /// Absent.
    constexpr Nullable() = default;
    /// Present.
    constexpr Nullable(T value) : value_(value), present_(true) {}

    /// True when a value is held.
    [[nodiscard]] constexpr bool hasValue() const { return present_; }
    /// The value; a value-initialised T when absent.
    [[nodiscard]] constexpr T getValue() const { return value_; }

private:
    T value_{};
    bool present_ = false;
};

} // namespace zelt
