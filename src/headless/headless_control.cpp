#include "krv/headless/headless_control.h"

#include "krv/headless/activity.h"
#include "krv/headless/headless_form.h"
#include "krv/standard/editor_column.h"
#include "krv/standard/measures.h"

namespace krv::headless {

namespace {

constexpr platform::TwipsSingle input_line_height = 510;
constexpr platform::TwipsSingle button_height = 255;

} // namespace

HeadlessControl::HeadlessControl(HeadlessForm& form,
                                 platform::TwipsSingle width,
                                 platform::TwipsSingle height)
    : form_(form)
    , width_(width)
    , height_(height)
    , grid_(form, this, "Grid", standard::GridSelection::by_row, standard::GridKeys::own_listener)
    , grid_in_(form, this, "GridIn", standard::GridSelection::free, standard::GridKeys::surface)
    , inp_fld_(form, this, "InpFld")
    , btn_add_(form, this, "btnAdd")
    , btn_insert_(form, this, "btnInsert")
    , btn_copy_(form, this, "btnCopy")
    , btn_delete_(form, this, "btnDelete")
    , btn_ok_(form, this, "btnOK")
    , line_(form, this, "Line1")
    , controls_{&grid_,
                &grid_in_,
                &inp_fld_,
                &btn_add_,
                &btn_insert_,
                &btn_copy_,
                &btn_delete_,
                &btn_ok_,
                &line_}
    , scroll_link_(grid_.flex(), grid_in_.flex()) {
    scroll_link_.set_on_moved([this](std::int64_t twips) {
        inp_fld_.SetLeft(inp_fld_.Left() - static_cast<platform::TwipsSingle>(twips));
    });
    inp_fld_.set_on_shown([this] { show_column_of_editor(); });
    grid_in_.SetHeight(input_line_height);
    for (platform::Part* button : {&btn_add_, &btn_insert_, &btn_copy_, &btn_delete_, &btn_ok_}) {
        button->SetHeight(button_height);
    }
}

std::array<FormPart*, 9> HeadlessControl::parts() noexcept {
    return {&grid_,
            &grid_in_,
            &inp_fld_,
            &btn_add_,
            &btn_insert_,
            &btn_copy_,
            &btn_delete_,
            &btn_ok_,
            &line_};
}

FormPart* HeadlessControl::part(std::string_view name) noexcept {
    for (FormPart* part : parts()) {
        if (part->name() == name) {
            return part;
        }
    }
    return nullptr;
}

Constituents HeadlessControl::constituents() noexcept {
    return {
        grid_, grid_in_, inp_fld_, btn_add_, btn_insert_, btn_delete_, btn_copy_, btn_ok_, line_};
}

void HeadlessControl::SetWidth(platform::TwipsSingle width) {
    resize(width, height_);
}

void HeadlessControl::SetHeight(platform::TwipsSingle height) {
    resize(width_, height);
}

void HeadlessControl::resize(platform::TwipsSingle width, platform::TwipsSingle height) {
    if (width != width_ || height != height_) {
        width_ = width;
        height_ = height;
        raise_resize();
    }
}

void HeadlessControl::place() {
    raise_resize();
}

void HeadlessControl::raise_resize() {
    if (events_ != nullptr) {
        const Activity activity(form_);
        events_->Resize();
    }
}

platform::TwipsSingle HeadlessControl::TextHeight(std::string_view /*text*/) const {
    return static_cast<platform::TwipsSingle>(standard::text_height_twips(font_size_));
}

void HeadlessControl::PropertyChanged(std::string_view name) {
    changed_.emplace_back(name);
    const auto handler = on_property_changed_; // a copy: the handler may replace itself
    if (handler) {
        const Activity activity(form_);
        handler(name);
    }
}

void HeadlessControl::key_down(std::int16_t& key_code, std::int16_t& shift) {
    if (events_ != nullptr) {
        const Activity activity(form_);
        events_->KeyDown(key_code, shift);
    }
}

void HeadlessControl::follow_row(std::int32_t row_before) {
    if (grid_.Row() != row_before) {
        grid_.flex().ensure_visible(grid_.Row(), -1);
    }
}

void HeadlessControl::show_column_of_editor() {
    const std::int32_t col = standard::editor_column(grid_in_, inp_fld_);
    if (col >= 0) {
        grid_in_.flex().ensure_visible(-1, col);
    }
}

void HeadlessControl::post_exit_focus() {
    if (!life_) {
        return;
    }
    form_.queue().post(*life_, [this] {
        if (events_ != nullptr && !form_.focus().is_inside(*this)) {
            const Activity activity(form_);
            events_->ExitFocus();
        }
    });
}

std::weak_ptr<const void> HeadlessControl::watch() const {
    return life_ ? life_->watch() : std::weak_ptr<const void>();
}

void HeadlessControl::retire() {
    form_.focus().remove(*this);
    events_ = nullptr;
    on_property_changed_ = nullptr;
    for (FormPart* part : parts()) {
        part->retire();
    }
    life_.reset();
}

} // namespace krv::headless
