#pragma once

#include "qt/part.h"

namespace krv::qt {

class QtLine;

/// Draws a line in the highlight colour, over the parts and out of the mouse's way.
class LineWidget : public QWidget {
public:
    explicit LineWidget(QWidget& parent);

    /// Whether the line runs from the top left to the bottom right; else from the bottom left.
    void set_falls(bool falls);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool falls_ = true;
};

/// `Line1`: the ends are what it keeps; left, top, width and height follow from them.
class QtLine : public QtPart<platform::Line> {
public:
    explicit QtLine(Surface& surface, std::string name);

    bool TabStop() const override;
    void SetTabStop(bool tab_stop) override;
    void SetFocus() override;

    platform::TwipsSingle X1() const override { return x1_; }

    void SetX1(platform::TwipsSingle x) override;

    platform::TwipsSingle X2() const override { return x2_; }

    void SetX2(platform::TwipsSingle x) override;

    platform::TwipsSingle Y1() const override { return y1_; }

    void SetY1(platform::TwipsSingle y) override;

    platform::TwipsSingle Y2() const override { return y2_; }

    void SetY2(platform::TwipsSingle y) override;

    bool can_take_focus() const override { return false; }

    bool is_tab_stop() const override { return false; }

    void place() override;

protected:
    void set_place(platform::TwipsSingle left,
                   platform::TwipsSingle top,
                   platform::TwipsSingle width,
                   platform::TwipsSingle height) override;

private:
    void follow_ends();

    LineWidget* line_;

    platform::TwipsSingle x1_ = -1;
    platform::TwipsSingle x2_ = -1;
    platform::TwipsSingle y1_ = 0;
    platform::TwipsSingle y2_ = 0;
};

} // namespace krv::qt
