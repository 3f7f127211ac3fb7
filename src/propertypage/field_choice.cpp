#include "propertypage/field_choice.h"

#include "propertypage/page_columns.h"
#include "propertypage/pick_lists.h"

#include "krv/platform/error.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <string>
#include <string_view>

namespace krv::propertypage {

namespace {

/// What a number's type proposes for its column.
struct Proposal {
    std::int32_t type;
    std::string_view field_length;
    std::string_view format;
    std::string_view width_twips;
};

constexpr Proposal proposals[] = {
    {2, "5", "####0", "550"},
    {18, "5", "####0", "550"},
    {3, "9", "########0", "800"},
    {19, "9", "########0", "800"},
    {20, "9", "########0", "800"},
    {21, "9", "########0", "800"},
    {6, "9", "###,###,##0", "900"},
    {4, "9", "###,##0.0#", "800"},
    {5, "12", "#,##0.0#", "1000"},
};

constexpr std::int32_t tiny_integers[] = {16, 17};
// Deliberate: 0, "Empty", counts as a text.
constexpr std::int32_t character_types[] = {0, 129, 130, 200, 202};

constexpr double twips_per_character = 130;
constexpr double widest = std::numeric_limits<std::int16_t>::max();

template <class Types>
bool has(const Types& types, std::int32_t type) {
    return std::find(std::begin(types), std::end(types), type) != std::end(types);
}

} // namespace

void FieldChoice::list_fields() {
    platform::ComboBox& list = page_.editors.cmbDataField;
    list.Clear();
    if (!page_.pageDataOpen) {
        return;
    }
    const platform::Fields& fields = page_.pageRecordset->Fields();
    const auto count = narrow<std::int16_t>(fields.Count());
    for (std::int16_t i = 0; i < count; ++i) {
        list.AddItem(fields.Item(std::int32_t{i}).Name(), i);
    }
}

void FieldChoice::choose() {
    const SameSelection same(page_);
    const platform::ComboBox& list = page_.editors.cmbDataField;
    platform::ComboBox& types = page_.editors.cmbDataType;
    page_.mark_changed();
    if (!same.holds()) {
        return;
    }
    const std::string name = list.Text();
    entry(page_.columns.colDataFields, page_.selected_column()) = name;
    if (list.ListIndex() < 0) {
        types.SetEnabled(true);
        return;
    }
    const std::shared_ptr<platform::Recordset> records = page_.pageRecordset;
    if (!records) {
        platform::fail_object_not_set();
    }
    const platform::Field& field = records->Fields().Item(name);
    const std::int32_t size = field.DefinedSize();
    types.SetListIndex(position_of_data_type(types, field.Type()));
    if (same.holds()) {
        types.SetEnabled(false);
        propose(types.ItemData(types.ListIndex()), size);
    }
}

void FieldChoice::propose(std::int32_t type, std::int32_t defined_size) {
    if (has(tiny_integers, type)) {
        return;
    }
    if (has(character_types, type)) {
        return propose_characters(defined_size);
    }
    const SameSelection same(page_);
    const PageEditors editors = page_.editors;
    const auto* const found =
        std::find_if(std::begin(proposals), std::end(proposals), [type](const Proposal& proposal) {
            return proposal.type == type;
        });
    const bool is_number = found != std::end(proposals);
    editors.txtFieldLength.SetText(is_number ? found->field_length : "0");
    if (same.holds()) {
        editors.txtFormat.SetText(is_number ? found->format : "");
    }
    if (is_number && same.holds()) {
        editors.txtColWidth.SetText(found->width_twips);
    }
}

void FieldChoice::propose_characters(std::int32_t defined_size) {
    const SameSelection same(page_);
    const PageEditors editors = page_.editors;
    editors.txtFieldLength.SetText(std::to_string(defined_size));
    if (same.holds()) {
        editors.txtFormat.SetText("");
    }
    if (same.holds()) {
        const double length = page_.host.formatter.Val(editors.txtFieldLength.Text());
        const double width = std::min(twips_per_character * length, widest);
        editors.txtColWidth.SetText(std::to_string(static_cast<std::int32_t>(width)));
    }
}

} // namespace krv::propertypage
