#include "propertypage/selection.h"

#include "propertypage/page_columns.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace krv::propertypage {

namespace {

using platform::Formatter;
using platform::Value;
using platform::ValueView;

template <class Element>
Element from_control(const Value& value, const Formatter& formatter) {
    if constexpr (std::is_same_v<Element, bool>) {
        return formatter.CInt(value.view()) != 0;
    } else if constexpr (std::is_same_v<Element, std::int16_t>) {
        return formatter.CInt(value.view());
    } else if constexpr (std::is_same_v<Element, std::int32_t>) {
        return formatter.CLng(value.view());
    } else {
        return formatter.CStr(value.view());
    }
}

Value for_control(bool value) {
    return Value(ValueView::boolean(value));
}

Value for_control(std::int16_t value) {
    return Value(ValueView::integer(value));
}

Value for_control(std::int32_t value) {
    return Value(ValueView::long_integer(value));
}

Value for_control(std::string value) {
    return Value::text(std::move(value));
}

/// A property of a column and the array that holds its copies.
struct ColumnProperty {
    std::string_view name;
    void (*read)(PageColumns&, std::int32_t col, const Value&, const Formatter&);
    Value (*write)(const PageColumns&, std::int32_t col);
};

template <auto Array>
constexpr ColumnProperty column_property(std::string_view name) {
    using Element =
        typename std::remove_reference_t<decltype(std::declval<PageColumns>().*Array)>::value_type;
    return {name,
            [](PageColumns& columns, std::int32_t col, const Value& value, const Formatter& f) {
                entry(columns.*Array, col) = from_control<Element>(value, f);
            },
            [](const PageColumns& columns, std::int32_t col) {
                const Element value = entry(columns.*Array, col);
                return for_control(value);
            }};
}

constexpr auto Caption = column_property<&PageColumns::colCaptions>("Caption");
constexpr auto ColWidth = column_property<&PageColumns::colWidths>("ColWidth");
constexpr auto ColAlignment = column_property<&PageColumns::colAlignments>("ColAlignment");
constexpr auto ColEditable = column_property<&PageColumns::colEditable>("ColEditable");
constexpr auto ColDataField = column_property<&PageColumns::colDataFields>("ColDataField");
constexpr auto ColIsNecessary = column_property<&PageColumns::colNecessary>("ColIsNecessary");
constexpr auto ColFieldLength = column_property<&PageColumns::colFieldLengths>("ColFieldLength");
constexpr auto ColFormat = column_property<&PageColumns::colFormats>("ColFormat");
constexpr auto ColFieldType = column_property<&PageColumns::colFieldTypes>("ColFieldType");

constexpr std::array load_order = {Caption,
                                   ColWidth,
                                   ColAlignment,
                                   ColEditable,
                                   ColDataField,
                                   ColIsNecessary,
                                   ColFieldLength,
                                   ColFormat,
                                   ColFieldType};
constexpr std::array apply_order = {ColWidth,
                                    ColAlignment,
                                    Caption,
                                    ColEditable,
                                    ColDataField,
                                    ColIsNecessary,
                                    ColFieldLength,
                                    ColFormat,
                                    ColFieldType};

/// What both directions work with. Their steps say whether they go on; when not, the page may be gone.
struct Passage {
    explicit Passage(PageState& its_page)
        : page(its_page)
        , editors(its_page.editors)
        , control(its_page.host.site.SelectedControls(0))
        , same(its_page) {}

    /// For each of the flags before `Cols`.
    template <class Step>
    bool each_flag(Step step) const {
        return step("AutoAdd", editors.chkAutoAdd) && step("OkVisible", editors.chkOkVisible) &&
               step("CopyVisible", editors.chkCopyVisible) &&
               step("DeleteVisible", editors.chkDeleteVisible) &&
               step("InsertVisible", editors.chkInsertVisible) &&
               step("AddVisible", editors.chkAddVisible);
    }

    PageState& page;
    const PageEditors editors; ///< a copy: the editors outlive the page
    const std::shared_ptr<platform::AutomationObject> control;
    SameSelection same;
};

class Loading {
public:
    Loading(PageState& page, ColumnCount& count)
        : passage_(page)
        , count_(count) {
        ++page.loads; // whatever was under way for the selection before ends
        passage_.same = SameSelection(page);
    }

    bool run() {
        const PageEditors& editors = passage_.editors;
        return passage_.each_flag([this](auto name, auto& box) { return flag(name, box); }) &&
               text("Rows", editors.txtRows) &&
               text("LineNumberColumn", editors.txtLineNumberColumn) &&
               flag("Enabled", editors.chkEnabled) &&
               text("DataBaseName", editors.txtDataBaseName) && columns() &&
               text("Recordsource", editors.txRecordSource) &&
               text("Connect", editors.txConnection) && entries() && show_first();
    }

private:
    const Formatter& formatter() const { return passage_.page.host.formatter; }

    bool flag(std::string_view name, platform::CheckBox& box) const {
        const Value value = passage_.control->Get(name, {});
        box.SetValue(static_cast<std::int16_t>(formatter().CInt(value.view()) & 1));
        return passage_.same.holds();
    }

    bool text(std::string_view name, platform::EntryBox& box) const {
        box.SetText(formatter().CStr(passage_.control->Get(name, {}).view()));
        return passage_.same.holds();
    }

    bool columns() {
        cols_ = formatter().CLng(passage_.control->Get("Cols", {}).view());
        passage_.editors.txtCols.SetText(std::to_string(cols_));
        if (!passage_.same.holds()) {
            return false;
        }
        count_.synchronise();
        return passage_.same.holds();
    }

    /// No more columns than the control has: tabs beyond them may have been kept.
    bool entries() const {
        const std::int32_t last = std::min(count_.wanted(), cols_);
        for (std::int32_t col = 0; col < last; ++col) {
            const std::array index = {for_control(col)};
            for (const ColumnProperty& property : load_order) {
                const Value value = passage_.control->Get(property.name, index);
                if (!passage_.same.holds()) {
                    return false;
                }
                property.read(passage_.page.columns, col, value, formatter());
            }
        }
        return true;
    }

    bool show_first() const {
        passage_.editors.TabStrip1.SetSelectedIndex(1);
        return passage_.same.holds();
    }

    Passage passage_;
    ColumnCount& count_;
    std::int32_t cols_ = 0;
};

class Applying {
public:
    Applying(PageState& page, ColumnCount& count)
        : passage_(page)
        , count_(count) {}

    bool run() {
        const PageEditors& editors = passage_.editors;
        return synchronise() &&
               passage_.each_flag([this](auto name, auto& box) { return flag(name, box); }) &&
               text("Cols", editors.txtCols) && turn() && text("Rows", editors.txtRows) &&
               text("LineNumberColumn", editors.txtLineNumberColumn) &&
               flag("Enabled", editors.chkEnabled) &&
               text("DataBaseName", editors.txtDataBaseName) &&
               text("Connect", editors.txConnection) &&
               text("Recordsource", editors.txRecordSource) && entries();
    }

private:
    bool synchronise() {
        count_.synchronise();
        return passage_.same.holds();
    }

    bool turn() const {
        passage_.page.host.application.Yield();
        return passage_.same.holds();
    }

    bool flag(std::string_view name, const platform::CheckBox& box) const {
        passage_.control->Put(name, {}, for_control(box.Value() == 1));
        return passage_.same.holds();
    }

    bool text(std::string_view name, const platform::EntryBox& box) const {
        passage_.control->Put(name, {}, for_control(box.Text()));
        return passage_.same.holds();
    }

    bool entries() const {
        const std::int32_t count = count_.wanted();
        for (std::int32_t col = 0; col < count; ++col) {
            const std::array index = {for_control(col)};
            for (const ColumnProperty& property : apply_order) {
                passage_.control->Put(
                    property.name, index, property.write(passage_.page.columns, col));
                if (!passage_.same.holds()) {
                    return false;
                }
            }
        }
        return true;
    }

    Passage passage_;
    ColumnCount& count_;
};

} // namespace

void Selection::load() {
    PageState& page = page_;
    if (Loading(page, count_).run()) {
        page.host.site.SetChanged(false);
    }
}

void Selection::apply() {
    PageState& page = page_;
    if (Applying(page, count_).run()) {
        page.host.site.SetChanged(false);
    }
}

} // namespace krv::propertypage
