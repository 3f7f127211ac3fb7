#pragma once

#include <cmath>

namespace krv::qt {

/// Converts between twips and the logical pixels of a screen. High-density screens scale on top of
/// that, so a conversion holds on all of them.
class Resolution {
public:
    /// \param dots_per_inch  logical resolution, `QPaintDevice::logicalDpiX`; above 0
    explicit Resolution(double dots_per_inch = 96.0)
        : px_per_twip_(dots_per_inch / twips_per_inch) {}

    /// Half to even. Convert edges, not sizes: neighbours then share their edge.
    int px(double twips) const {
        return static_cast<int>(
            std::lrint(std::fmin(std::fmax(twips * px_per_twip_, -limit), limit)));
    }

    double twips(double px) const { return px / px_per_twip_; }

    bool operator==(const Resolution&) const = default;

private:
    static constexpr double twips_per_inch = 1440.0;
    static constexpr double limit = 2'000'000'000.0;

    double px_per_twip_;
};

} // namespace krv::qt
