#pragma once

#include "qt/page/editor.h"

#include <QTabBar>

#include <functional>

namespace krv::qt {

class QtTabStrip;

/// The row of tabs. Hundreds of them stay usable: they scroll, Home and End go to the ends, Page Up
/// and Page Down go ten tabs on, and the wheel works where the focus is only.
class TabWidget final : public Gated<QTabBar> {
public:
    TabWidget(QtTabStrip& strip, QWidget* parent);

    /// What a tab's tool tip says; empty for nothing.
    void set_tip(std::function<QString(int index)> tip) { tip_ = std::move(tip); }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    /// Calls something that adds or removes a tab, without laying out all tabs for each.
    template <class Act>
    void change_tabs(Act act);

protected:
    bool event(QEvent* event) override;
    QSize tabSizeHint(int index) const override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void lay_out();
    int target_of(int key) const;

    QtTabStrip& strip_;
    std::function<QString(int)> tip_;
    bool layout_is_planned_ = false;

    // The tab that was measured last.
    mutable qsizetype measured_length_ = -1;
    mutable QFont measured_font_;
    mutable QSize measured_;
};

/// The tabs of the columns over a tab bar.
class QtTabStrip final : public QtEditor<platform::TabStrip> {
public:
    QtTabStrip(Surface& surface, std::string name);

    std::int32_t Count() const override { return tabs_->count(); }

    void Add(std::string_view caption) override;
    void Remove(std::int32_t index) override;
    void Clear() override;
    std::string Caption(std::int32_t index) const override;

    std::int32_t SelectedIndex() const override { return tabs_->currentIndex() + 1; }

    void SetSelectedIndex(std::int32_t index) override;

    void click(std::int32_t index) override;

    TabWidget& tabs() const noexcept { return *tabs_; }

private:
    friend class TabWidget;

    void require(std::int32_t index) const;
    /// Selects without telling.
    void select(int position);
    /// A person chose the tab, which may be the selected one.
    void choose(int position);

    TabWidget* tabs_;
    bool assigning_ = false;
};

} // namespace krv::qt
