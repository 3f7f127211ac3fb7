#include "propertypage/data_editors.h"

#include "propertypage/page_columns.h"
#include "propertypage/refused_editor.h"

#include "krv/platform/error.h"

#include <algorithm>
#include <exception>
#include <optional>
#include <string>
#include <utility>

namespace krv::propertypage {

using platform::MessageAnswer;
using platform::MessageButtons;

namespace {

/// Runs one step of an opening; the text of its failure, none when it succeeds.
template <class Step>
std::optional<std::string> failure_of(Step step) {
    try {
        step();
        return std::nullopt;
    } catch (const std::exception& error) {
        return error.what();
    }
}

} // namespace

void DataEditors::choose_database() {
    const SameSelection same(page_);
    const PageEditors editors = page_.editors;
    platform::FileDialog& dialog = editors.CommonDialog1;
    try {
        dialog.SetDialogTitle("Selezione DataBase");
        dialog.SetFilter("*.mdb");
        dialog.SetInitDir("c:\\");
        dialog.ShowOpen();
        if (same.holds()) {
            editors.txtDataBaseName.SetText(dialog.FileName());
        }
    } catch (const std::exception&) {
        return; // cancelled, or no dialog to be had: the name stays
    }
}

void DataEditors::derive_connection() {
    const PageEditors& editors = page_.editors;
    if (editors.txtDataBaseName.Text().empty()) {
        return;
    }
    if (!editors.txConnection.Text().empty()) {
        const SameSelection same(page_);
        const MessageAnswer answer = page_.host.application.MsgBox(
            "Using this property will set a Jet.OLEDB Provider. Ok?", MessageButtons::yes_no);
        if (!same.holds()) {
            return;
        }
        if (answer == MessageAnswer::no) {
            editors.txtDataBaseName.SetText("");
            return;
        }
    }
    editors.txConnection.SetText(
        "Provider= Microsoft.Jet.OLEDB.4.0; Data Source=" + editors.txtDataBaseName.Text() + ";");
}

void DataEditors::open_record_source() {
    using platform::ado::unspecified;
    const std::string source = page_.editors.txRecordSource.Text();
    const std::string connect = page_.editors.txConnection.Text();
    if (source.empty() || connect.empty() ||
        is_left_for_refused(page_, page_.editors.txRecordSource)) {
        return;
    }
    const auto connection = page_.host.data_access.CreateConnection();
    const Records records = page_.host.data_access.CreateRecordset();
    page_.pageConnection = connection;
    page_.pageRecordset = records;
    if (failure_of([&] { connection->Open(connect, "", "", unspecified); })) {
        page_.host.application.MsgBox("Error opening database", MessageButtons::ok);
        return;
    }
    const auto error = failure_of(
        [&] { records->Open(source, connection, unspecified, unspecified, unspecified); });
    if (error) {
        return refuse_record_source(*error);
    }
    page_.pageDataOpen = true;
    const SameSelection same(page_);
    const MessageAnswer answer =
        page_.host.application.MsgBox("build list structure?", MessageButtons::yes_no);
    if (same.holds() && answer == MessageAnswer::yes) {
        build_columns(records);
    }
}

void DataEditors::refuse_record_source(const std::string& error) {
    const SameSelection same(page_);
    page_.host.application.MsgBox("Error in RecordSource: " + error, MessageButtons::ok);
    if (same.holds()) {
        give_focus_back(page_, page_.editors.txRecordSource);
    }
}

/// One column a field. Ends when another selection, or another record source, took its place while
/// the developer was asked.
void DataEditors::build_columns(const Records& records) {
    const SameSelection same(page_);
    const auto goes_on = [&] { return same.holds() && page_.pageRecordset == records; };
    if (!goes_on()) {
        return;
    }
    const platform::Fields& fields = records->Fields();
    fields_.list_fields();
    page_.editors.txtCols.SetText(std::to_string(fields.Count()));
    if (!goes_on()) {
        return;
    }
    count_.synchronise();
    // There are more columns than fields when the developer kept them, fewer without any field.
    const std::int32_t last = goes_on() ? std::min(count_.wanted(), fields.Count()) : 0;
    for (std::int32_t col = 0; col < last; ++col) {
        entry(page_.columns.colCaptions, col) = fields.Item(col).Name();
        page_.editors.TabStrip1.SetSelectedIndex(col + 1);
        if (!goes_on()) {
            return;
        }
        page_.editors.cmbDataField.SetListIndex(static_cast<std::int16_t>(col));
        if (!goes_on()) {
            return;
        }
    }
}

} // namespace krv::propertypage
