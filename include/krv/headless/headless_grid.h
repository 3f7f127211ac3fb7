#pragma once

#include "krv/headless/headless_part.h"
#include "krv/platform/grid.h"
#include "krv/standard/grid_face.h"

#include <cstdint>
#include <string>

namespace krv::headless {

/// A grid without a screen: the standard grid, fed with a person's mouse and keys. All of its size
/// shows cells.
class HeadlessGrid final : public standard::GridFace<HeadlessPart<platform::Grid>> {
public:
    HeadlessGrid(HeadlessForm& form,
                 HeadlessControl* control,
                 std::string name,
                 standard::GridSelection selection,
                 standard::GridKeys keys);

    void key_down(std::int16_t& key_code, std::int16_t& shift) override;
    /// Page up, page down, Home and End scroll; the arrows do nothing by themselves.
    void act_on_key(std::int16_t key_code, std::int16_t shift) override;

    void press(const Mouse& mouse) override;
    void drag(const Mouse& mouse) override;
    void let_go() override;
    void release(const Mouse& mouse) override;
    void click(const Mouse& mouse) override;
    void double_click(const Mouse& mouse) override;

protected:
    void drop_events() override { SetEvents(nullptr); }

private:
    void raise_row_col_change() override;

    standard::GridKeys keys_;
};

} // namespace krv::headless
