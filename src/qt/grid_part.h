#pragma once

#include "krv/platform/grid.h"
#include "krv/qt/grid_view.h"
#include "krv/standard/grid_face.h"
#include "qt/part.h"

namespace krv::qt {

/// `Grid` or `GridIn`: the standard grid in a view of its own.
class QtGrid : public standard::GridFace<QtPart<platform::Grid>>, private GridViewOwner {
public:
    QtGrid(Surface& surface,
           std::string name,
           standard::GridSelection selection,
           standard::GridKeys keys);
    ~QtGrid();

    GridView& view() const noexcept { return *view_; }

    void SetWidth(platform::TwipsSingle width) override;
    void SetHeight(platform::TwipsSingle height) override;
    void Move(platform::TwipsSingle left,
              platform::TwipsSingle top,
              platform::TwipsSingle width,
              platform::TwipsSingle height) override;

    void let_go() override { view_->let_go(); }

private:
    using Face = standard::GridFace<QtPart<platform::Grid>>;

    void act(const std::function<void()>& what) override;

    bool press_arrives() override { return surface().has_focus(*this); }

    void mouse_down(std::int16_t button, std::int16_t shift, float x, float y) override;
    void mouse_up(std::int16_t button, std::int16_t shift, float x, float y) override;
    void click(std::int16_t button, std::int16_t shift, float x, float y) override;
    void double_click() override;
    bool key_down(const QKeyEvent& event, const std::function<void(std::int16_t)>& scroll) override;
    void raise_row_col_change() override;

    bool tab_arrives() override { return surface().tab_reaches(*this); }

    GridView* view_;
    standard::GridKeys keys_;
};

} // namespace krv::qt
