#include "server/qt_page.h"

#include "qt/page/property_page_rooms.h"
#include "server/qt_input_watch.h"

#include <functional>
#include <string>
#include <utility>

namespace krv::server {

namespace {

qt::PageEditor& page_editor(platform::Editor& editor) {
    return dynamic_cast<qt::PageEditor&>(editor);
}

class QtFormPage final : public FormPage {
public:
    QtFormPage(platform::Application& application, PageSupplies supplies)
        : window_(qt::PropertyPageSupplies{
              supplies.site, supplies.data_access, supplies.formatter, &application})
        , input_watch_(window_, qt::FormLoop::shared()) {
        window_.set_file_chooser(
            [ask = std::move(supplies.ask_file)](const qt::FileRequest& request) {
                return ask({request.title, request.filter, request.folder});
            });
        window_.set_error_handler(&qt::Surface::log);
        window_.setWindowTitle(QStringLiteral("KarvoList"));
        // Qt gives the first tab stop the focus when it finds none; here nothing has it at first.
        window_.setFocus(Qt::OtherFocusReason);
        window_.show();
    }

    pKrvList& page() override { return window_.page(); }

    platform::Editor* editor(std::string_view name) override {
        return window_.rooms().editor(name);
    }

    bool has_focus(const platform::Editor& editor) const override {
        const auto& handle = dynamic_cast<const qt::PageEditor&>(editor);
        return handle.surface().has_focus(handle);
    }

    // This may be gone when the developer's act returns.

    void enter(platform::Editor& editor) override {
        if (!editor.Enabled()) {
            editor.SetFocus(); // fails
        }
        act_on_enabled(editor, [&editor](qt::PageEditor&) { editor.SetFocus(); });
    }

    void leave(platform::Editor& editor) override {
        act(editor, [this](qt::PageEditor& target) {
            if (target.surface().has_focus(target)) {
                window_.setFocus(Qt::OtherFocusReason);
                target.surface().sync_focus();
            }
        });
    }

    void text(platform::Editor& editor, std::string_view text) override {
        act_on_enabled(editor,
                       [typed = qt::qt_text(text)](qt::PageEditor& target) { target.type(typed); });
    }

    void click(platform::Editor& editor, std::optional<std::int32_t> index) override {
        act_on_enabled(editor,
                       [index](qt::PageEditor& target) { target.click(index.value_or(0)); });
    }

    void double_click(platform::Editor& editor) override {
        act_on_enabled(editor, [](qt::PageEditor& target) { target.double_click(); });
    }

private:
    using Act = std::function<void(qt::PageEditor&)>;

    /// Queued behind what is waiting, and worked through in a turn.
    static void act(platform::Editor& editor, Act act_on) {
        qt::PageEditor& target = page_editor(editor);
        const std::shared_ptr<qt::FormLoop> loop = target.surface().loop();
        loop->queue().post(target.life(), [&target, loop, act_on = std::move(act_on)] {
            const qt::FormLoop::Script script(*loop);
            act_on(target);
            script.rethrow_error();
        });
        loop->turn();
    }

    static void act_on_enabled(platform::Editor& editor, Act act_on) {
        act(editor, [&editor, act_on = std::move(act_on)](qt::PageEditor& target) {
            if (editor.Enabled()) {
                act_on(target);
            }
        });
    }

    qt::PropertyPageWidget window_;
    QtInputWatch input_watch_;
};

} // namespace

std::unique_ptr<FormPage> make_qt_page(platform::Application& application, PageSupplies supplies) {
    return std::make_unique<QtFormPage>(application, std::move(supplies));
}

} // namespace krv::server
