#include "server/log.h"
#include "server/methods.h"

#include "krv/platform/error.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace krv::server {

namespace {

HostedPage& open_page(ServerState& state) {
    if (!state.page) {
        platform::fail_object_not_set();
    }
    return *state.page;
}

platform::Editor& editor_named(FormPage& page, const std::string& name) {
    platform::Editor* const editor = page.editor(name);
    if (editor == nullptr) {
        fail_parameter("name", "the page has no " + name);
    }
    return *editor;
}

std::vector<std::string> ids_of(const Params& params) {
    std::vector<std::string> ids;
    for (const Json& id : params.array("ids")) {
        if (!id.is_string()) {
            fail_parameter("ids", "no text");
        }
        ids.push_back(id.get<std::string>());
    }
    return ids;
}

/// A dialog that the client answers with an error, or with no file, is cancelled.
std::optional<std::string> ask_file(Client& client, const FileQuestion& question) {
    try {
        const Json answer = client.ask(
            "openfile",
            {{"title", question.title}, {"filter", question.filter}, {"folder", question.folder}});
        const auto file = answer.is_object() ? answer.find("file") : answer.end();
        return file != answer.end() && file->is_string() ? std::optional(file->get<std::string>())
                                                         : std::nullopt;
    } catch (const ClientError&) {
        log("an error as the answer to a file dialog cancels it");
        return std::nullopt;
    }
}

Json open(ServerState& state, const Params& params) {
    auto page = std::make_unique<HostedPage>(state.controls, state.client);
    page->site.select(ids_of(params));
    state.page.reset(); // a routine of the old one that is under way ends there
    page->form_page = state.form.new_page({page->site,
                                           state.data,
                                           state.formatter,
                                           [&client = state.client](const FileQuestion& question) {
                                               return ask_file(client, question);
                                           }});
    state.page = std::move(page);
    state.page->form_page->page().SelectionChanged();
    state.form.turn();
    return Json::object();
}

Json select(ServerState& state, const Params& params) {
    HostedPage& page = open_page(state);
    page.site.select(ids_of(params));
    page.form_page->page().SelectionChanged();
    state.form.turn();
    return Json::object();
}

Json apply(ServerState& state, const Params& /*params*/) {
    open_page(state).form_page->page().ApplyChanges();
    state.form.turn();
    return Json::object();
}

// --- What is seen --------------------------------------------------------------------------------

Json describe(const platform::ComboBox& box) {
    Json texts = Json::array();
    Json data = Json::array();
    for (std::int16_t i = 0; i < box.ListCount(); ++i) {
        texts.push_back(box.List(i));
        data.push_back(box.ItemData(i));
    }
    return {{"Text", box.Text()},
            {"ListIndex", box.ListIndex()},
            {"List", std::move(texts)},
            {"ItemData", std::move(data)}};
}

Json describe(const platform::TabStrip& strip) {
    Json captions = Json::array();
    for (std::int32_t i = 1; i <= strip.Count(); ++i) {
        captions.push_back(strip.Caption(i));
    }
    return {{"Tabs", std::move(captions)}, {"SelectedItem", strip.SelectedIndex()}};
}

Json describe_kind(const platform::Editor& editor) {
    if (const auto* const entry = dynamic_cast<const platform::EntryBox*>(&editor)) {
        return {{"Text", entry->Text()}};
    }
    if (const auto* const check = dynamic_cast<const platform::CheckBox*>(&editor)) {
        return {{"Value", check->Value()}};
    }
    if (const auto* const combo = dynamic_cast<const platform::ComboBox*>(&editor)) {
        return describe(*combo);
    }
    return describe(dynamic_cast<const platform::TabStrip&>(editor));
}

Json part(ServerState& state, const Params& params) {
    editor_named(*open_page(state).form_page, params.text("name"));
    state.form.turn();
    FormPage& page = *open_page(state).form_page; // the turn may have opened another one
    const platform::Editor& editor = editor_named(page, params.text("name"));
    Json result = describe_kind(editor);
    result.update({{"Enabled", editor.Enabled()}, {"Focused", page.has_focus(editor)}});
    return result;
}

Json describe(const PageColumns& columns) {
    return {{"colWidths", columns.colWidths},
            {"colAlignments", columns.colAlignments},
            {"colCaptions", columns.colCaptions},
            {"colEditable", columns.colEditable},
            {"colDataFields", columns.colDataFields},
            {"colFieldTypes", columns.colFieldTypes},
            {"colNecessary", columns.colNecessary},
            {"colFormats", columns.colFormats},
            {"colFieldLengths", columns.colFieldLengths}};
}

Json state_of_page(ServerState& state, const Params& /*params*/) {
    open_page(state);
    state.form.turn();
    HostedPage& page = open_page(state);
    const pKrvList& list = page.form_page->page();
    return {{"Changed", page.site.Changed()},
            {"pageDataOpen", list.pageDataOpen()},
            {"arrays", describe(list.columns())}};
}

// --- The developer's acts ------------------------------------------------------------------------

Json enter(ServerState& state, const Params& params) {
    FormPage& page = *open_page(state).form_page;
    page.enter(editor_named(page, params.text("name")));
    return Json::object();
}

Json leave(ServerState& state, const Params& params) {
    FormPage& page = *open_page(state).form_page;
    page.leave(editor_named(page, params.text("name")));
    return Json::object();
}

Json text(ServerState& state, const Params& params) {
    FormPage& page = *open_page(state).form_page;
    platform::Editor& editor = editor_named(page, params.text("name"));
    page.text(editor, params.text("text"));
    return Json::object();
}

Json click(ServerState& state, const Params& params) {
    FormPage& page = *open_page(state).form_page;
    platform::Editor& editor = editor_named(page, params.text("name"));
    const bool has_places = dynamic_cast<const platform::ComboBox*>(&editor) != nullptr ||
                            dynamic_cast<const platform::TabStrip*>(&editor) != nullptr;
    const auto index =
        has_places ? std::optional(params.long_integer("index")) : std::optional<std::int32_t>();
    page.click(editor, index);
    return Json::object();
}

Json double_click(ServerState& state, const Params& params) {
    FormPage& page = *open_page(state).form_page;
    page.double_click(editor_named(page, params.text("name")));
    return Json::object();
}

constexpr Method methods[] = {{"page.open", open},
                              {"page.part", part},
                              {"page.state", state_of_page},
                              {"page.enter", enter},
                              {"page.leave", leave},
                              {"page.text", text},
                              {"page.click", click},
                              {"page.dblclick", double_click},
                              {"page.select", select},
                              {"page.apply", apply}};

} // namespace

std::span<const Method> page_methods() {
    return methods;
}

} // namespace krv::server
