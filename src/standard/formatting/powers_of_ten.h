#pragma once

namespace krv::standard {

/// The powers of ten that a Double holds exactly are those up to this one.
inline constexpr int greatest_exact_power = 22;

inline constexpr double powers_of_ten[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                           1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                           1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

/// One rounding, whatever the power.
/// \param power  -22 to 22
inline double times_power_of_ten(double value, int power) {
    return power >= 0 ? value * powers_of_ten[power] : value / powers_of_ten[-power];
}

} // namespace krv::standard
