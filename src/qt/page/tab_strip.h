#pragma once

#include "qt/page/editor.h"

#include <QTabBar>

#include <functional>
#include <string>
#include <vector>

class QHelpEvent;

namespace krv::qt {

class QtTabStrip;

/// The row of tabs. Hundreds of them stay usable: they scroll, Home and End go to the ends, Page Up
/// and Page Down go ten tabs on, and the wheel works where the focus is only.
class TabWidget final : public Gated<QTabBar> {
public:
    TabWidget(QtTabStrip& strip, QWidget* parent);

    /// What a tab's tool tip says; empty for nothing.
    void set_tip(std::function<QString(int position)> tip) { tip_ = std::move(tip); }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    bool show_tip(const QHelpEvent& event);

    QtTabStrip& strip_;
    std::function<QString(int)> tip_;
};

/// The tabs of the columns over a tab bar.
///
/// A tab bar lays out all its tabs at every tab that comes or goes: it gets the tabs around the
/// selected one only, from the event loop, and so thousands of columns take no time.
class QtTabStrip final : public QtEditor<platform::TabStrip> {
public:
    QtTabStrip(Surface& surface, std::string name);

    std::int32_t Count() const override { return static_cast<std::int32_t>(captions_.size()); }

    void Add(std::string_view caption) override;
    void Remove(std::int32_t index) override;
    void Clear() override;
    std::string Caption(std::int32_t index) const override;

    std::int32_t SelectedIndex() const override { return selected_ + 1; }

    void SetSelectedIndex(std::int32_t index) override;

    void click(std::int32_t index) override;

    TabWidget& tabs() const noexcept { return *tabs_; }

    /// Tabs that the tab bar has at the most.
    static constexpr int most_shown = 300;

private:
    friend class TabWidget;

    void require(std::int32_t index) const;
    /// A person chose the tab, from 0, which may be the selected one.
    void choose(int position);
    /// The same for a tab of the tab bar.
    void choose_shown(int shown_position);
    /// Where a key goes to, from 0; -1 for a key that goes nowhere.
    int target_of(int key) const;

    /// The tab bar follows, later.
    void plan_showing();
    void show_tabs();

    TabWidget* tabs_;
    std::vector<std::string> captions_;
    int selected_ = -1;
    int first_shown_ = 0;
    bool is_showing_ = false;
    bool showing_is_planned_ = false;
};

} // namespace krv::qt
