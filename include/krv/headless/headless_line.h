#pragma once

#include "krv/headless/headless_part.h"
#include "krv/platform/controls.h"

namespace krv::headless {

/// A straight line without a screen. It has no tab stop and never the focus.
class HeadlessLine final : public HeadlessPart<platform::Line> {
public:
    HeadlessLine(HeadlessForm& form, HeadlessControl* control, std::string name);

    /// \throws RuntimeError 438, always
    bool TabStop() const override;
    /// \throws RuntimeError 438, always
    void SetTabStop(bool tab_stop) override;

    platform::TwipsSingle X1() const override { return x1_; }

    void SetX1(platform::TwipsSingle x) override {
        x1_ = x;
        follow_ends();
    }

    platform::TwipsSingle X2() const override { return x2_; }

    void SetX2(platform::TwipsSingle x) override {
        x2_ = x;
        follow_ends();
    }

    platform::TwipsSingle Y1() const override { return y1_; }

    void SetY1(platform::TwipsSingle y) override {
        y1_ = y;
        follow_ends();
    }

    platform::TwipsSingle Y2() const override { return y2_; }

    void SetY2(platform::TwipsSingle y) override {
        y2_ = y;
        follow_ends();
    }

protected:
    void drop_events() override {}

private:
    /// Place and size are those of the box around the ends.
    void follow_ends();
    [[noreturn]] void fail_without_tab_stop() const;

    platform::TwipsSingle x1_ = -1;
    platform::TwipsSingle x2_ = -1;
    platform::TwipsSingle y1_ = 0;
    platform::TwipsSingle y2_ = 0;
};

} // namespace krv::headless
