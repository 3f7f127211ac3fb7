#include "persistence/property_bag.h"

#include "control/control_state.h"
#include "control/failures.h"
#include "control/function_buttons.h"
#include "data/record_source.h"

#include "krv/control/automation.h"
#include "krv/persistence/setting_keys.h"

#include <array>
#include <initializer_list>
#include <string>
#include <string_view>

namespace krv::persistence {

namespace {

using automation::Type;
using platform::Value;
using platform::ValueView;

// Values in the kinds that the bag's defaults have always had: hosts compare with them.

Value flag(bool value) {
    return Value(ValueView::boolean(value));
}

/// A flag whose default is a number.
Value integer(std::int16_t value) {
    return Value(ValueView::integer(value));
}

Value whole(std::int32_t value) {
    return Value(ValueView::long_integer(value));
}

Value single(float value) {
    return Value(ValueView::single(value));
}

Value color(platform::OleColor value) {
    return Value(ValueView::long_long(std::int64_t{value}));
}

Value text(std::string_view value) {
    return Value::text(std::string(value));
}

/// A key, what it is read as, and where its value comes from and goes to.
struct Key {
    std::string_view name;
    std::string_view meaning;
    Type type;
    Value default_value;
    void (*apply)(const Settings&, ValueView);
    Value (*live)(const Settings&);
    /// Written against another default than it is read against; Empty for the same one.
    Value written_default = Value();
};

/// The same for the keys of one column; `name` is followed by the column's number.
struct ColumnKey {
    std::string_view name;
    std::string_view meaning;
    Type type;
    Value default_value;
    void (*apply)(const Settings&, std::int32_t, ValueView);
    Value (*live)(const Settings&, std::int32_t);
    /// Read once more for the input line.
    void (*apply_to_input_line)(const Settings&, std::int32_t, ValueView) = nullptr;
};

std::int32_t as_long(ValueView value) {
    return static_cast<std::int32_t>(value.as_whole());
}

std::int16_t as_integer(ValueView value) {
    return static_cast<std::int16_t>(value.as_whole());
}

template <Function function>
Key visible_key(std::string_view name, std::string_view meaning, Value default_value) {
    return {name,
            meaning,
            Type::Boolean,
            std::move(default_value),
            [](const Settings& s, ValueView value) {
                s.buttons.set_visible(function, value.as_boolean());
            },
            [](const Settings& s) { return flag(s.buttons.visible(function)); }};
}

template <Function function>
Key function_key(std::string_view name, std::string_view meaning, std::int32_t default_code) {
    return {name,
            meaning,
            Type::Integer,
            whole(default_code),
            [](const Settings& s, ValueView value) {
                s.buttons.restore_key(function, as_integer(value));
            },
            [](const Settings& s) { return whole(s.buttons.key(function)); }};
}

template <Function function>
Key caption_key(std::string_view name, std::string_view meaning, std::string_view default_caption) {
    return {name,
            meaning,
            Type::String,
            text(default_caption),
            [](const Settings& s, ValueView value) {
                s.buttons.set_caption(function, value.as_text());
            },
            [](const Settings& s) { return text(s.buttons.caption(function)); }};
}

// The order is that of the stored form and is kept.

const std::vector<Key>& keys_before_columns() {
    static const std::vector<Key> keys = {
        {"BackColor",
         "Background colour of the control's surface",
         Type::OLE_COLOR,
         color(platform::button_face_color),
         [](const Settings& s, ValueView value) {
             s.state.host.container.SetBackColor(static_cast<platform::OleColor>(value.as_whole()));
         },
         [](const Settings& s) { return color(s.state.host.container.BackColor()); }},
        {"Enabled",
         "Whether the function buttons are enabled",
         Type::Boolean,
         flag(true),
         [](const Settings& s, ValueView value) {
             for (platform::Button* button : s.state.parts.buttons()) {
                 button->SetEnabled(value.as_boolean());
             }
         },
         [](const Settings& s) { return flag(s.state.parts.btnAdd.Enabled()); }},
        {"MsgTitle",
         "Title of the application and of every message box",
         Type::String,
         text("Rolda"),
         [](const Settings& s, ValueView value) {
             s.state.host.application.SetTitle(value.as_text());
         },
         [](const Settings& s) { return text(s.state.host.application.Title()); }},
        {"Rows",
         "Rows of the list grid, the caption row included",
         Type::Long,
         integer(2),
         [](const Settings& s, ValueView value) { s.state.parts.Grid.SetRows(as_long(value)); },
         [](const Settings& s) { return whole(s.state.parts.Grid.Rows()); }},
        {"Cols",
         "Columns of the list",
         Type::Long,
         integer(2),
         [](const Settings& s, ValueView value) { s.state.parts.Grid.SetCols(as_long(value)); },
         [](const Settings& s) { return whole(s.state.parts.Grid.Cols()); }},
        // Deliberate: stored, and read, a second time under the same key for the input line.
        {"Cols",
         "Columns of the input line",
         Type::Long,
         integer(2),
         [](const Settings& s, ValueView value) { s.state.parts.GridIn.SetCols(as_long(value)); },
         [](const Settings& s) { return whole(s.state.parts.Grid.Cols()); }},
        {"Row",
         "Current row of the list grid, 0 for the caption row",
         Type::Long,
         integer(0),
         [](const Settings& s, ValueView value) { s.state.parts.Grid.SetRow(as_long(value)); },
         [](const Settings& s) { return whole(s.state.parts.Grid.Row()); }},
        {"ButtonsHeight",
         "Height of the five buttons in twips",
         Type::Single,
         integer(255),
         [](const Settings& s, ValueView value) {
             for (platform::Button* button : s.state.parts.buttons()) {
                 button->SetHeight(value.as_single());
             }
         },
         [](const Settings& s) { return single(s.state.parts.btnAdd.Height()); },
         integer(0)}, // Deliberate: not the default of reading; a height of 0 comes back as 255
        {"LineNumberColumn",
         "Column of the line numbers, -1 for none",
         Type::Long,
         integer(-1),
         [](const Settings& s, ValueView value) { s.state.LineNumberColumn = as_long(value); },
         [](const Settings& s) { return whole(s.state.LineNumberColumn); }},
        {"Connect",
         "Connection string",
         Type::String,
         text("Access;"),
         [](const Settings& s, ValueView value) { s.source.Connect = value.as_text(); },
         [](const Settings& s) { return text(s.source.Connect); }},
        {"DataBaseName",
         "Path of a database file",
         Type::String,
         text(""),
         [](const Settings& s, ValueView value) { s.source.DataBaseName = value.as_text(); },
         [](const Settings& s) { return text(s.source.DataBaseName); }},
        {"RecordSource",
         "Table name or query",
         Type::String,
         text(""),
         [](const Settings& s, ValueView value) { s.source.Recordsource = value.as_text(); },
         [](const Settings& s) { return text(s.source.Recordsource); }},
        {"ReadOnlyRecordset",
         "Whether the recordset is opened read-only",
         Type::Boolean,
         integer(0),
         [](const Settings& s, ValueView value) {
             s.source.ReadOnlyRecordset = value.as_boolean();
         },
         [](const Settings& s) { return flag(s.source.ReadOnlyRecordset); }},
    };
    return keys;
}

const std::vector<ColumnKey>& column_keys() {
    static const std::vector<ColumnKey> keys = {
        {"ColWidth",
         "Width in twips, 0 for hidden",
         Type::Long,
         integer(0),
         [](const Settings& s, std::int32_t col, ValueView value) {
             s.state.parts.Grid.SetColWidth(col, as_long(value));
         },
         [](const Settings& s, std::int32_t col) {
             return whole(s.state.parts.Grid.ColWidth(col));
         },
         [](const Settings& s, std::int32_t col, ValueView value) {
             s.state.parts.GridIn.SetColWidth(col, as_long(value));
         }},
        {"ColAlignment",
         "Alignment: 0 automatic, 1 left, 4 centre, 7 right",
         Type::Integer,
         whole(0),
         [](const Settings& s, std::int32_t col, ValueView value) {
             s.state.parts.Grid.SetColAlignment(col, as_integer(value));
         },
         [](const Settings& s, std::int32_t col) {
             return whole(s.state.parts.Grid.ColAlignment(col));
         },
         [](const Settings& s, std::int32_t col, ValueView value) {
             s.state.parts.GridIn.SetColAlignment(col, as_integer(value));
         }},
        {"Caption",
         "Caption",
         Type::String,
         text(""),
         [](const Settings& s, std::int32_t col, ValueView value) {
             s.state.parts.Grid.SetTextMatrix(0, col, value.as_text());
         },
         [](const Settings& s, std::int32_t col) {
             return text(s.state.parts.Grid.TextMatrix(0, col));
         },
         [](const Settings& s, std::int32_t col, ValueView value) {
             s.state.parts.GridIn.SetTextMatrix(0, col, value.as_text());
         }},
        {"ColEditable",
         "Whether the user may edit the column",
         Type::Boolean,
         flag(true),
         [](const Settings& s, std::int32_t col, ValueView value) {
             s.state.columns.SetColEditable(col, value.as_boolean());
         },
         [](const Settings& s, std::int32_t col) {
             return flag(s.state.columns.ColEditable(col));
         }},
        {"ColIsKey",
         "Tag of the host: part of the key",
         Type::Integer,
         whole(0),
         [](const Settings& s, std::int32_t col, ValueView value) {
             s.state.columns.SetColIsKey(col, static_cast<krvListRecords>(value.as_whole()));
         },
         [](const Settings& s, std::int32_t col) { return whole(s.state.columns.ColIsKey(col)); }},
        {"ColFromRecord",
         "Tag of the host: the record that the column belongs to",
         Type::Integer,
         whole(0),
         [](const Settings& s, std::int32_t col, ValueView value) {
             s.state.columns.SetColFromRecord(col, static_cast<krvListRecords>(value.as_whole()));
         },
         [](const Settings& s, std::int32_t col) {
             return whole(s.state.columns.ColFromRecord(col));
         }},
        {"ColDataField",
         "Field of the recordset",
         Type::String,
         text(""),
         [](const Settings& s, std::int32_t col, ValueView value) {
             s.state.columns.SetColDataField(col, std::string(value.as_text()));
         },
         [](const Settings& s, std::int32_t col) {
             return text(s.state.columns.ColDataField(col));
         }},
        {"ColFormat",
         "Pattern of the values",
         Type::String,
         text(""),
         [](const Settings& s, std::int32_t col, ValueView value) {
             s.state.columns.SetColFormat(col, std::string(value.as_text()));
         },
         [](const Settings& s, std::int32_t col) { return text(s.state.columns.ColFormat(col)); }},
        {"ColIsNecessary",
         "Whether a row needs a value here",
         Type::Boolean,
         flag(false),
         [](const Settings& s, std::int32_t col, ValueView value) {
             s.state.columns.SetColIsNecessary(col, value.as_boolean());
         },
         [](const Settings& s, std::int32_t col) {
             return flag(s.state.columns.ColIsNecessary(col));
         }},
        {"ColFieldLength",
         "Longest text in characters, 0 for any",
         Type::Integer,
         integer(0),
         [](const Settings& s, std::int32_t col, ValueView value) {
             s.state.columns.SetColFieldLength(col, as_integer(value));
         },
         [](const Settings& s, std::int32_t col) {
             return whole(s.state.columns.ColFieldLength(col));
         }},
        {"ColFieldType",
         "Data-type code of the field",
         Type::Integer,
         whole(12),
         [](const Settings& s, std::int32_t col, ValueView value) {
             s.state.columns.SetColFieldType(col, as_integer(value));
         },
         [](const Settings& s, std::int32_t col) {
             return whole(s.state.columns.ColFieldType(col));
         }},
    };
    return keys;
}

const std::vector<Key>& keys_after_columns() {
    static const std::vector<Key> keys = {
        visible_key<Function::add>("AddVisible", "Whether the add button may be shown", flag(true)),
        visible_key<Function::insert>(
            "InsertVisible", "Whether the insert button may be shown", integer(-1)),
        visible_key<Function::remove>(
            "DeleteVisible", "Whether the delete button may be shown", integer(-1)),
        visible_key<Function::copy>(
            "CopyVisible", "Whether the copy button may be shown", integer(-1)),
        {"OkVisible",
         "Whether the confirm button may be shown",
         Type::Boolean,
         integer(-1),
         [](const Settings& s, ValueView value) {
             s.buttons.OkVisible = value.as_boolean();
             s.state.parts.btnOK.SetVisible(value.as_boolean());
         },
         [](const Settings& s) { return flag(s.buttons.OkVisible); }},
        {"AutoAdd",
         "Whether a new row is opened behind a confirmed one",
         Type::Boolean,
         integer(-1),
         [](const Settings& s, ValueView value) { s.state.AutoAdd = value.as_boolean(); },
         [](const Settings& s) { return flag(s.state.AutoAdd); }},
        {"AutoStartInputOnClick",
         "Whether a click starts the editing of a row",
         Type::Boolean,
         flag(true),
         [](const Settings& s, ValueView value) {
             s.state.AutoStartInputOnClick = value.as_boolean();
         },
         [](const Settings& s) { return flag(s.state.AutoStartInputOnClick); }},
        {"MoveWithTab",
         "Whether Tab moves between the fields",
         Type::Boolean,
         flag(false),
         [](const Settings& s, ValueView value) {
             s.state.parts.btnAdd.SetTabStop(!value.as_boolean());
         },
         [](const Settings& s) { return flag(!s.state.parts.btnAdd.TabStop()); }},
        function_key<Function::add>("KeyAdd", "Function key of the add command, 112 for F1", 116),
        function_key<Function::insert>("KeyInsert", "Function key of the insert command", 117),
        function_key<Function::remove>("KeyDelete", "Function key of the delete command", 118),
        function_key<Function::copy>("KeyCopy", "Function key of the copy command", 119),
        {"KeyOK",
         "Key code that confirms a row",
         Type::Integer,
         whole(13),
         [](const Settings& s, ValueView value) { s.buttons.KeyOK = as_integer(value); },
         [](const Settings& s) { return whole(s.buttons.KeyOK); }},
        caption_key<Function::add>(
            "AddCaption", "Caption of the add button, without its key", "aggiungi"),
        caption_key<Function::insert>("InsertCaption", "Caption of the insert button", "inserisci"),
        caption_key<Function::remove>("DeleteCaption", "Caption of the delete button", "elimina"),
        caption_key<Function::copy>("CopyCaption", "Caption of the copy button", "copia"),
    };
    return keys;
}

// --- Reading -------------------------------------------------------------------------------------

/// The stored value as its type; what the bag or the target refuses names the key.
template <class Apply>
void read_key(const Settings& settings,
              platform::PropertyBag& bag,
              const std::string& name,
              Type type,
              const Value& default_value,
              Apply apply) {
    const Value stored = bag.ReadProperty(name, default_value);
    try {
        apply(automation::convert(stored, type, settings.state.host.formatter));
    } catch (const platform::RuntimeError& error) {
        throw platform::RuntimeError(
            error.number(), error.description() + " (" + name + ")", error.source());
    }
}

void read_keys(const Settings& settings, platform::PropertyBag& bag, const std::vector<Key>& keys) {
    for (const Key& key : keys) {
        read_key(settings,
                 bag,
                 std::string(key.name),
                 key.type,
                 key.default_value,
                 [&](const Value& value) { key.apply(settings, value.view()); });
    }
}

void read_column(const Settings& settings, platform::PropertyBag& bag, std::int32_t col) {
    for (const ColumnKey& key : column_keys()) {
        for (const auto apply : {key.apply, key.apply_to_input_line}) {
            if (apply != nullptr) {
                read_key(settings,
                         bag,
                         std::string(key.name) + std::to_string(col),
                         key.type,
                         key.default_value,
                         [&](const Value& value) { apply(settings, col, value.view()); });
            }
        }
    }
}

/// Columns are counted in 16 bits here.
/// \throws RuntimeError 6 for more
std::int16_t column_count(const Settings& settings) {
    return narrow<std::int16_t>(settings.state.parts.Grid.Cols());
}

} // namespace

void read_properties(const Settings& settings, platform::PropertyBag& bag) {
    read_keys(settings, bag, keys_before_columns());
    const std::int16_t cols = column_count(settings);
    settings.state.columns.Resize(cols - 1);
    for (std::int32_t col = 0; col < cols; ++col) {
        read_column(settings, bag, col);
    }
    read_keys(settings, bag, keys_after_columns());
}

// --- Writing -------------------------------------------------------------------------------------

namespace {

void write_keys(const Settings& settings,
                platform::PropertyBag& bag,
                const std::vector<Key>& keys) {
    for (const Key& key : keys) {
        const bool has_own = key.written_default.kind() != platform::ValueKind::empty;
        bag.WriteProperty(
            key.name, key.live(settings), has_own ? key.written_default : key.default_value);
    }
}

} // namespace

void write_properties(const Settings& settings, platform::PropertyBag& bag) {
    const std::int16_t cols = column_count(settings);
    write_keys(settings, bag, keys_before_columns());
    for (std::int32_t col = 0; col < cols; ++col) {
        for (const ColumnKey& key : column_keys()) {
            bag.WriteProperty(std::string(key.name) + std::to_string(col),
                              key.live(settings, col),
                              key.default_value);
        }
    }
    write_keys(settings, bag, keys_after_columns());
}

// --- Describing ----------------------------------------------------------------------------------

namespace {

std::vector<SettingKey> describe() {
    std::vector<SettingKey> all;
    const auto add = [&all](const auto& keys, KeyScope scope) {
        for (const auto& key : keys) {
            all.push_back({key.name, scope, key.meaning, key.default_value, key.default_value});
            if constexpr (requires { key.written_default; }) {
                if (key.written_default.kind() != platform::ValueKind::empty) {
                    all.back().default_written = key.written_default;
                }
            }
        }
    };
    add(keys_before_columns(), KeyScope::list);
    add(column_keys(), KeyScope::column);
    add(keys_after_columns(), KeyScope::list);
    return all;
}

} // namespace

std::span<const SettingKey> setting_keys() {
    static const std::vector<SettingKey> all = describe();
    return all;
}

} // namespace krv::persistence
