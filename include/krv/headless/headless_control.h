#pragma once

#include "krv/control/constituents.h"
#include "krv/headless/headless_button.h"
#include "krv/headless/headless_grid.h"
#include "krv/headless/headless_line.h"
#include "krv/headless/headless_text_box.h"
#include "krv/headless/scroll_link.h"
#include "krv/platform/host.h"
#include "krv/standard/message_queue.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace krv::headless {

/// The surface of one control on a form, with its parts. Made and owned by a `HeadlessForm`.
///
/// At the start the parts are visible, enabled tab stops without captions or texts; `Grid`,
/// `GridIn` and `btnAdd` stand at the left edge, `Grid` at the top; `GridIn` is 510 twips high, the
/// buttons 255; `X1` and `X2` of the line are -1; all other places and sizes are 0.
///
/// `Grid` and `GridIn` scroll sideways together, the editor with them. An editor that is
/// shown over a column brings that column into view.
class HeadlessControl final : public platform::Container {
public:
    HeadlessControl(HeadlessForm& form, platform::TwipsSingle width, platform::TwipsSingle height);

    // The parts, under their own names

    HeadlessGrid& Grid() noexcept { return grid_; }

    HeadlessGrid& GridIn() noexcept { return grid_in_; }

    HeadlessTextBox& InpFld() noexcept { return inp_fld_; }

    HeadlessButton& btnAdd() noexcept { return btn_add_; }

    HeadlessButton& btnInsert() noexcept { return btn_insert_; }

    HeadlessButton& btnCopy() noexcept { return btn_copy_; }

    HeadlessButton& btnDelete() noexcept { return btn_delete_; }

    HeadlessButton& btnOK() noexcept { return btn_ok_; }

    HeadlessLine& Line1() noexcept { return line_; }

    /// The part with this name, spelled exactly; null when there is none.
    FormPart* part(std::string_view name) noexcept;

    /// The parts for a `KarvoList`.
    Constituents constituents() noexcept;

    // platform::Container

    platform::TwipsSingle Width() const override { return width_; }

    void SetWidth(platform::TwipsSingle width) override;

    platform::TwipsSingle Height() const override { return height_; }

    void SetHeight(platform::TwipsSingle height) override;

    platform::OleColor BackColor() const override { return back_color_; }

    void SetBackColor(platform::OleColor color) override { back_color_ = color; }

    float FontSize() const override { return font_size_; }

    void SetFontSize(float points) override {
        standard::require_font_size(points, "krvList3");
        font_size_ = points;
    }

    platform::TwipsSingle TextHeight(std::string_view text) const override;

    /// In tab order, `Line1` last.
    std::span<platform::Part* const> Controls() override { return controls_; }

    void Repaint() override { ++repaints_; }

    void PropertyChanged(std::string_view name) override;

    void SetEvents(platform::ContainerEvents* events) override { events_ = events; }

    // What the host's side of the surface sees and does

    /// The host places the control at its size, once its settings are in place: raises `Resize`.
    void place();

    /// Gives the surface both sizes and raises one `Resize` when one of them is different.
    void resize(platform::TwipsSingle width, platform::TwipsSingle height);

    /// How often a repaint was asked for.
    std::int64_t repaints() const noexcept { return repaints_; }

    /// Names of the properties that were notified as changed, oldest first.
    const std::vector<std::string>& changed_properties() const noexcept { return changed_; }

    void clear_changed_properties() { changed_.clear(); }

    /// Told of every changed property, after it was noted; may destroy the control. Empty for none.
    void set_on_property_changed(std::function<void(std::string_view)> handler) {
        on_property_changed_ = std::move(handler);
    }

    /// A key on the surface, or on a part that leaves its keys to it.
    void key_down(std::int16_t& key_code, std::int16_t& shift);

    /// Scrolls the list to its current row when a person's key has moved it.
    /// \param row_before  current row before the key
    void follow_row(std::int32_t row_before);

    /// Queues that the control as a whole lost the focus; dropped when the focus is inside by then.
    void post_exit_focus();

    /// Expires when the control is retired or destroyed.
    std::weak_ptr<const void> watch() const;

    /// Takes the control out of the form: it and its parts tell nobody anything any more.
    void retire();

private:
    std::array<FormPart*, 9> parts() noexcept;
    void raise_resize();
    void show_column_of_editor();

    HeadlessForm& form_;
    platform::TwipsSingle width_;
    platform::TwipsSingle height_;
    platform::OleColor back_color_ = platform::button_face_color;
    float font_size_ = standard::default_font_size;
    std::int64_t repaints_ = 0;
    std::vector<std::string> changed_;
    std::function<void(std::string_view)> on_property_changed_;
    platform::ContainerEvents* events_ = nullptr;
    std::optional<standard::LifeToken> life_{std::in_place};

    // In tab order: the form takes the order in which its parts are made.
    HeadlessGrid grid_;
    HeadlessGrid grid_in_;
    HeadlessTextBox inp_fld_;
    HeadlessButton btn_add_;
    HeadlessButton btn_insert_;
    HeadlessButton btn_copy_;
    HeadlessButton btn_delete_;
    HeadlessButton btn_ok_;
    HeadlessLine line_;
    std::array<platform::Part*, 9> controls_;
    ScrollLink scroll_link_;
};

} // namespace krv::headless
