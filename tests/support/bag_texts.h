#pragma once

#include "krv/platform/property_store.h"
#include "krv/standard/bag_text.h"
#include "krv/standard/memory_bag.h"

#include <string>
#include <string_view>
#include <vector>

namespace krv::testing {

inline std::string setting_text(const platform::Value& value) {
    std::string text;
    standard::append_setting(value.view(), text);
    return text;
}

/// A bag as "key = value", in its order.
inline std::vector<std::string> texts_of(const standard::MemoryBag& bag) {
    std::vector<std::string> texts;
    for (const auto& entry : bag.entries()) {
        texts.push_back(entry.key + " = " + setting_text(entry.value));
    }
    return texts;
}

/// Writes down what a control asks of it.
class RecordingBag final : public platform::PropertyBag {
public:
    platform::Value ReadProperty(std::string_view key,
                                 const platform::Value& default_value) override {
        reads.push_back(std::string(key) + " " + setting_text(default_value));
        return held.ReadProperty(key, default_value);
    }

    void WriteProperty(std::string_view key,
                       const platform::Value& value,
                       const platform::Value& default_value) override {
        writes.push_back(std::string(key) + " " + setting_text(value) + " " +
                         setting_text(default_value));
        held.WriteProperty(key, value, default_value);
    }

    standard::MemoryBag held;
    std::vector<std::string> reads;  ///< "key default"
    std::vector<std::string> writes; ///< "key value default"
};

} // namespace krv::testing
