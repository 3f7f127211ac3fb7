#include "providers/jet/frame_bytes.h"

#include "providers/shown.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace krv::providers::jet {
namespace {

using platform::ValueView;

TEST(FrameBytes, every_kind_of_value_comes_out_as_it_went_in) {
    const std::vector<std::byte> raw = {std::byte{0}, std::byte{255}};
    const std::vector<ValueView> values = {
        ValueView::null(),
        ValueView::boolean(true),
        ValueView::byte(255),
        ValueView::integer(-32768),
        ValueView::long_integer(std::numeric_limits<std::int32_t>::min()),
        ValueView::long_long(std::numeric_limits<std::int64_t>::max()),
        ValueView::single(1.5F),
        ValueView::double_float(0.1),
        ValueView::currency({std::numeric_limits<std::int64_t>::min()}),
        ValueView::decimal({~std::uint64_t{0}, ~std::uint32_t{0}, 28, true}),
        ValueView::date({-1.75}),
        ValueView::text("città 😀"),
        ValueView::text(""),
        ValueView::bytes(raw)};
    FrameWriter writer;
    for (const ValueView value : values) {
        writer.put_value(value);
    }
    FrameReader reader(writer.bytes());
    for (const ValueView value : values) {
        EXPECT_EQ(shown(reader.take_value()), shown(value));
    }
    reader.require_end();
}

TEST(FrameBytes, a_value_that_is_cut_anywhere_is_refused) {
    FrameWriter writer;
    writer.put_value(ValueView::decimal({1, 2, 3, false}));
    writer.put_value(ValueView::text("abc"));
    const auto bytes = writer.bytes();
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        FrameReader reader(bytes.first(size));
        EXPECT_THROW(
            {
                reader.take_value();
                reader.take_value();
            },
            BadFrame)
            << size;
    }
}

TEST(FrameBytes, memory_is_kept_from_one_frame_to_the_next) {
    FrameWriter writer;
    writer.put_text(std::string(5000, 'x'));
    const std::byte* const place = writer.bytes().data();
    writer.clear();
    writer.put(std::uint32_t{7});
    EXPECT_EQ(writer.bytes().data(), place);
    EXPECT_EQ(writer.size(), 4U);
}

} // namespace
} // namespace krv::providers::jet
