#include "server/headless_form.h"

#include "server/page_headless.h"

#include "krv/headless/headless_form.h"

#include <utility>

namespace krv::server {

namespace {

using headless::HeadlessControl;
using platform::MessageButtons;

headless::FormPart& form_part(platform::Part& part) {
    return dynamic_cast<headless::FormPart&>(part);
}

class HeadlessFormControl final : public FormControl {
public:
    /// \param bag  null for a newly placed control
    HeadlessFormControl(headless::HeadlessForm& form, Supplies supplies, platform::PropertyBag* bag)
        : form_(form)
        , supplies_(std::move(supplies))
        , surface_(form.add_control())
        , list_(std::in_place,
                surface_.constituents(),
                Surroundings{
                    surface_, form.application(), *supplies_.data_access, *supplies_.formatter}) {
        start(bag);
        surface_.place();
        surface_.set_on_property_changed([this](std::string_view name) {
            surface_.clear_changed_properties(); // nobody reads them here
            if (supplies_.on_property_changed) {
                supplies_.on_property_changed(name);
            }
        });
    }

    ~HeadlessFormControl() override {
        list_.reset();
        form_.remove_control(surface_);
    }

    HeadlessFormControl(const HeadlessFormControl&) = delete;
    HeadlessFormControl& operator=(const HeadlessFormControl&) = delete;

    KarvoList& list() override { return *list_; }

    platform::Container& surface() override { return surface_; }

    platform::Part* part(std::string_view name) override {
        return dynamic_cast<platform::Part*>(surface_.part(name));
    }

    bool has_focus(const platform::Part& part) const override {
        return dynamic_cast<const headless::FormPart&>(part).has_focus();
    }

    // This may be gone when the person's act returns.

    void focus(platform::Part& part) override { form_.person().focus(form_part(part)); }

    void key(platform::Part& part, std::int16_t code, std::int16_t shift) override {
        form_.person().key(form_part(part), code, shift);
    }

    void mouse(platform::Part& part, MouseAction action, const Mouse& mouse) override {
        headless::Person& person = form_.person();
        const headless::Mouse place{mouse.button, mouse.shift, mouse.x, mouse.y};
        switch (action) {
        case MouseAction::press:
            return person.press(form_part(part), place);
        case MouseAction::move:
            return person.move(form_part(part), place);
        case MouseAction::release:
            return person.release(form_part(part), place);
        case MouseAction::click:
            return person.click(form_part(part), place);
        case MouseAction::double_click:
            return person.double_click(form_part(part), place);
        }
    }

    void resize(float width, float height) override {
        form_.person().resize(surface_, width, height);
    }

private:
    void start(platform::PropertyBag* bag) {
        if (bag == nullptr) {
            return list_->InitProperties();
        }
        try {
            list_->ReadProperties(*bag);
        } catch (...) {
            list_.reset();
            form_.remove_control(surface_);
            throw;
        }
    }

    headless::HeadlessForm& form_;
    Supplies supplies_;
    HeadlessControl& surface_;
    std::optional<KarvoList> list_;
};

class HeadlessServerForm final : public Form {
public:
    std::string_view backend() const override { return "headless"; }

    std::unique_ptr<FormControl> new_control(Supplies supplies) override {
        return std::make_unique<HeadlessFormControl>(form_, std::move(supplies), nullptr);
    }

    std::unique_ptr<FormControl> load_control(Supplies supplies,
                                              platform::PropertyBag& bag) override {
        return std::make_unique<HeadlessFormControl>(form_, std::move(supplies), &bag);
    }

    std::unique_ptr<FormPage> new_page(PageSupplies supplies) override {
        return make_headless_page(form_, std::move(supplies));
    }

    platform::Application& application() override { return form_.application(); }

    void set_ask(Ask ask) override {
        form_.application().set_ask(
            [this, ask = std::move(ask)](const headless::ShownMessage& message) {
                form_.application().clear_messages(); // nobody reads them here
                return ask(message.text, message.buttons);
            });
    }

    std::shared_ptr<platform::Object> make_object(std::string name, bool focusable) override {
        const auto role =
            focusable ? headless::FocusRole::takes_focus : headless::FocusRole::takes_none;
        return form_.make_object(std::move(name), role);
    }

    void turn() override { form_.turn(); }

    void focus_outside() override { form_.person().focus(form_.outside()); }

    void key(std::int16_t code, std::int16_t shift) override { form_.person().key(code, shift); }

    void text(std::string_view text) override { form_.person().text(text); }

private:
    headless::HeadlessForm form_;
};

} // namespace

std::unique_ptr<Form> make_headless_form() {
    return std::make_unique<HeadlessServerForm>();
}

} // namespace krv::server
