#include "qt/form_settings.h"

#include "qt/columns_text.h"

#include "krv/control/karvo_list.h"
#include "krv/persistence/setting_keys.h"
#include "krv/platform/error.h"
#include "krv/standard/bag_text.h"

#include <algorithm>
#include <optional>

namespace krv::qt {

namespace {

using platform::Value;
using platform::ValueView;
using standard::MemoryBag;

MemoryBag settings_of(const KarvoList& list) {
    MemoryBag bag;
    list.WriteProperties(bag);
    return bag;
}

const persistence::SettingKey& described(std::string_view name) {
    const auto keys = persistence::setting_keys();
    return *std::find_if(keys.begin(), keys.end(), [name](const persistence::SettingKey& key) {
        return key.name == name;
    });
}

/// The row that has to be current before so many rows are there only; none when the current one
/// stays.
std::optional<std::int64_t> row_to_go_to(MemoryBag& bag) {
    const auto number = [&bag](std::string_view key) {
        return bag.ReadProperty(key, described(key).default_read).view().as_whole();
    };
    const std::int64_t last = number("Rows") - 1;
    if (last < 0 || number("Row") <= last) {
        return std::nullopt;
    }
    return last;
}

/// A bag that remembers which key was read last: the one that a failure is about.
class WatchedBag final : public platform::PropertyBag {
public:
    explicit WatchedBag(MemoryBag& bag)
        : bag_(bag) {}

    Value ReadProperty(std::string_view key, const Value& default_value) override {
        last_key_ = key;
        return bag_.ReadProperty(key, default_value);
    }

    void
    WriteProperty(std::string_view key, const Value& value, const Value& default_value) override {
        bag_.WriteProperty(key, value, default_value);
    }

    /// The column of the last key; none for a key of the whole list.
    std::optional<std::size_t> column() const {
        const std::size_t digits = last_key_.find_first_of("0123456789");
        if (digits == std::string::npos) {
            return std::nullopt;
        }
        return std::stoul(last_key_.substr(digits));
    }

private:
    MemoryBag& bag_;
    std::string last_key_;
};

/// Reads the settings with these columns.
/// \return what the control refuses in one of them
std::optional<ColumnsFault>
try_columns(KarvoList& list, const ColumnSettings& settings, MemoryBag& bag) {
    replace_columns(settings.columns, bag);
    WatchedBag watched(bag);
    try {
        list.ReadProperties(watched);
    } catch (const platform::RuntimeError& error) {
        const std::optional<std::size_t> col = watched.column();
        if (!col || *col >= settings.columns.size()) {
            throw;
        }
        return ColumnsFault{settings.lines[*col], error.description()};
    }
    return std::nullopt;
}

} // namespace

void restore(KarvoList& list, std::string_view key, const Value& value) {
    MemoryBag before = settings_of(list);
    MemoryBag bag = before;
    bag.WriteProperty(key, value, described(key).default_written);
    try {
        // A grid that loses its current row would tell the control in the next turn.
        if (const auto row = row_to_go_to(bag); row && key == "Rows") {
            MemoryBag first = before;
            first.set("Row", Value(ValueView::long_long(*row)));
            list.ReadProperties(first);
            bag.set("Row", Value(ValueView::long_long(*row)));
        }
        list.ReadProperties(bag);
    } catch (...) {
        list.ReadProperties(before);
        throw;
    }
}

void restore_columns(KarvoList& list,
                     std::string_view text,
                     const std::vector<std::string>& captions) {
    MemoryBag bag = settings_of(list);
    for (auto col = static_cast<std::size_t>(list.Cols()); col < captions.size(); ++col) {
        bag.set("Caption" + std::to_string(col), Value::text(captions[col]));
    }
    ColumnSettings settings = read_columns(text);
    if (const auto refused = try_columns(list, settings, bag)) {
        const auto first = std::find(settings.lines.begin(), settings.lines.end(), refused->line);
        std::fill(settings.columns.begin() + (first - settings.lines.begin()),
                  settings.columns.end(),
                  new_column());
        try_columns(list, settings, bag);
        settings.fault = refused;
    }
    if (settings.fault) {
        throw platform::RuntimeError(standard::BagTextError::invalid_format,
                                     "Invalid Columns, line " +
                                         std::to_string(settings.fault->line) + ": " +
                                         settings.fault->text,
                                     "krvList3");
    }
}

std::string columns_text(const KarvoList& list) {
    return columns_text(settings_of(list));
}

} // namespace krv::qt
