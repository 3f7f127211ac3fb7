#pragma once

#include "qt/part.h"

#include <QPushButton>

namespace krv::qt {

class QtButton;

/// The push button of a function: a press reaches it once the field that was open let the user go.
class FunctionButton : public QPushButton {
public:
    FunctionButton(QtButton& part, QWidget& parent);

    QSize minimumSizeHint() const override { return {0, 0}; }

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    friend class QtButton;

    QtButton& part_;
    bool by_key_ = false; ///< a click now comes from a key
};

/// A function button over a push button.
class QtButton : public QtPart<platform::Button> {
public:
    explicit QtButton(Surface& surface, std::string name);

    std::string Caption() const override { return caption_; }

    void SetCaption(std::string_view caption) override;

    platform::OleColor BackColor() const override { return back_color_; }

    void SetBackColor(platform::OleColor color) override;

    void SetEvents(platform::ButtonEvents* events) override { events_ = events; }

    void let_go() override { button_->setDown(false); }

    /// Draws the colour anew: the palette is another one.
    void apply_color();

    bool has_color() const noexcept { return back_color_ != platform::button_face_color; }

private:
    friend class FunctionButton;

    /// False when the press is to be dropped.
    bool press_arrives();
    void press_key(QKeyEvent& event);
    void click();

    FunctionButton* button_;
    platform::ButtonEvents* events_ = nullptr;
    std::string caption_;
    platform::OleColor back_color_ = platform::button_face_color;
};

} // namespace krv::qt
