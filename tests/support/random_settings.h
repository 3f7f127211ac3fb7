#pragma once

#include "krv/persistence/setting_keys.h"
#include "krv/standard/memory_bag.h"

#include <cstdint>
#include <random>
#include <string>
#include <string_view>

namespace krv::testing {

/// Settings by chance, each key with its default as often as not. The same seed gives the same bag.
class RandomSettings {
public:
    explicit RandomSettings(std::uint32_t seed)
        : random_(seed) {}

    /// What a control can hold: rows and current row fit together, numbers are in their ranges.
    standard::MemoryBag bag() {
        standard::MemoryBag bag;
        const std::int32_t rows = below(6) + 1;
        const std::int32_t cols = below(5) + 1;
        number(bag, "BackColor", below(0x1000000));
        flag(bag, "Enabled");
        text(bag, "MsgTitle");
        bag.set("Rows", whole(rows));
        bag.set("Cols", whole(cols));
        number(bag, "Row", below(rows));
        if (chance()) {
            bag.set("ButtonsHeight",
                    platform::Value(
                        platform::ValueView::single(static_cast<float>(below(8000)) / 8 + 1)));
        }
        number(bag, "LineNumberColumn", below(cols + 1) - 1);
        for (const char* key : {"Connect", "DataBaseName", "RecordSource"}) {
            text(bag, key);
        }
        flag(bag, "ReadOnlyRecordset");
        for (std::int32_t col = 0; col < cols; ++col) {
            column(bag, std::to_string(col));
        }
        for (const char* key : {"AddVisible",
                                "InsertVisible",
                                "DeleteVisible",
                                "CopyVisible",
                                "OkVisible",
                                "AutoAdd",
                                "AutoStartInputOnClick",
                                "MoveWithTab"}) {
            flag(bag, key);
        }
        for (const char* key : {"KeyAdd", "KeyInsert", "KeyDelete", "KeyCopy", "KeyOK"}) {
            number(bag, key, below(300) - 20);
        }
        for (const char* key : {"AddCaption", "InsertCaption", "DeleteCaption", "CopyCaption"}) {
            text(bag, key);
        }
        return bag;
    }

private:
    std::int32_t below(std::int32_t limit) {
        return std::uniform_int_distribution<std::int32_t>(0, limit - 1)(random_);
    }

    bool chance() { return below(2) == 0; }

    static platform::Value whole(std::int32_t value) {
        return platform::Value(platform::ValueView::long_integer(value));
    }

    void number(standard::MemoryBag& bag, std::string_view key, std::int32_t value) {
        if (chance()) {
            bag.set(key, whole(value));
        }
    }

    void flag(standard::MemoryBag& bag, std::string_view key) {
        if (chance()) {
            bag.set(key, platform::Value(platform::ValueView::boolean(chance())));
        }
    }

    void text(standard::MemoryBag& bag, std::string_view key) {
        static constexpr std::string_view pieces[] = {
            "a", "Z", "0", " ", "\"", "\\", "\n",   "\r", "\t", "#",   "=",
            "&", "<", "è", "Ж", "漢", "😀",  "\x01", "'",  ";",  "]]>", ","};
        if (!chance()) {
            return;
        }
        std::string value;
        for (std::int32_t i = below(9); i > 0; --i) {
            value += pieces[below(static_cast<std::int32_t>(std::size(pieces)))];
        }
        bag.set(key, platform::Value::text(std::move(value)));
    }

    void column(standard::MemoryBag& bag, const std::string& n) {
        number(bag, "ColWidth" + n, below(20000));
        number(bag, "ColAlignment" + n, below(10));
        text(bag, "Caption" + n);
        flag(bag, "ColEditable" + n);
        number(bag, "ColIsKey" + n, below(65536) - 32768);
        number(bag, "ColFromRecord" + n, below(3));
        text(bag, "ColDataField" + n);
        text(bag, "ColFormat" + n);
        flag(bag, "ColIsNecessary" + n);
        number(bag, "ColFieldLength" + n, below(32768));
        number(bag, "ColFieldType" + n, below(206));
    }

    std::mt19937 random_;
};

} // namespace krv::testing
