#include "server/page_headless.h"

#include "krv/headless/headless_form.h"
#include "krv/headless/headless_page.h"

#include <utility>

namespace krv::server {

namespace {

headless::PageEditor& page_editor(platform::Editor& editor) {
    return dynamic_cast<headless::PageEditor&>(editor);
}

class HeadlessFormPage final : public FormPage {
public:
    HeadlessFormPage(headless::HeadlessForm& form, PageSupplies supplies)
        : supplies_(std::move(supplies))
        , editors_(form)
        , page_(
              editors_.editors(),
              {supplies_.site, form.application(), *supplies_.data_access, *supplies_.formatter}) {
        editors_.file_dialog().set_ask(
            [ask = supplies_.ask_file](const headless::ShownFileDialog& dialog) {
                return ask({dialog.title, dialog.filter, dialog.folder});
            });
    }

    pKrvList& page() override { return page_; }

    platform::Editor* editor(std::string_view name) override {
        return dynamic_cast<platform::Editor*>(editors_.editor(name));
    }

    bool has_focus(const platform::Editor& editor) const override {
        return dynamic_cast<const headless::PageEditor&>(editor).has_focus();
    }

    // This may be gone when the developer's act returns.

    void enter(platform::Editor& editor) override { editors_.enter(page_editor(editor)); }

    void leave(platform::Editor& editor) override { editors_.leave(page_editor(editor)); }

    void text(platform::Editor& editor, std::string_view text) override {
        editors_.text(page_editor(editor), text);
    }

    void click(platform::Editor& editor, std::optional<std::int32_t> index) override {
        editors_.click(page_editor(editor), index.value_or(0));
    }

    void double_click(platform::Editor& editor) override {
        editors_.double_click(page_editor(editor));
    }

private:
    PageSupplies supplies_;
    headless::HeadlessPage editors_;
    pKrvList page_;
};

} // namespace

std::unique_ptr<FormPage> make_headless_page(headless::HeadlessForm& form, PageSupplies supplies) {
    return std::make_unique<HeadlessFormPage>(form, std::move(supplies));
}

} // namespace krv::server
