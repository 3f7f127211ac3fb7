#include "text_decoding.h"

#include <gtest/gtest.h>

namespace krv::jet_reader {
namespace {

using namespace std::string_literals;

std::string decoded(const std::string& bytes) {
    std::string storage;
    return std::string(
        decode_text({reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size()}, storage));
}

TEST(TextDecoding, pairs_are_UTF_16) {
    EXPECT_EQ(decoded("a\0b\0"s), "ab");
    EXPECT_EQ(decoded("\xE0\0\x00\x4E"s), "à一");
    EXPECT_EQ(decoded("\x3D\xD8\x00\xDE"s), "😀");
    EXPECT_EQ(decoded(""), "");
}

TEST(TextDecoding, a_lone_surrogate_becomes_the_replacement_character) {
    EXPECT_EQ(decoded("a\0\x3D\xD8"s), "a\uFFFD");
    EXPECT_EQ(decoded("\x00\xDE\x62\0"s), "\uFFFDb");
}

TEST(TextDecoding, an_odd_byte_at_the_end_is_dropped) {
    EXPECT_EQ(decoded("a\0b"s), "a");
    EXPECT_EQ(decoded("\xFF\xFE\0\x41"s), "");
}

TEST(TextDecoding, behind_the_mark_bytes_are_Latin_1) {
    EXPECT_EQ(decoded("\xFF\xFE"s), "");
    EXPECT_EQ(decoded("\xFF\xFE"
                      "abc"),
              "abc");
    EXPECT_EQ(decoded("\xFF\xFE"
                      "caff\xE8"),
              "caffè");
}

TEST(TextDecoding, a_zero_changes_to_pairs_and_back) {
    EXPECT_EQ(decoded("\xFF\xFE"
                      "a\0\x1C\x04\0b"s),
              "aМb");
    EXPECT_EQ(decoded("\xFF\xFE\0\x3D\xD8\x0A\xDE\0!"s), "😊!"s.replace(0, 4, "\xF0\x9F\x98\x8A"));
}

} // namespace
} // namespace krv::jet_reader
