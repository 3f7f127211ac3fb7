#include "file_header.h"

#include "krv/standard/data_error.h"
#include "providers/jet/rc4.h"
#include "support/errors.h"

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

namespace krv::jet_reader {
namespace {

using krv::testing::error_number_of;
namespace number = standard::data_error_number;

/// A file of two pages. \param place  of the header, before its mask is laid over it
std::vector<unsigned char> file(unsigned char version, auto place) {
    const std::size_t page = version == 0 ? 2048 : 4096;
    std::vector<unsigned char> bytes(2 * page);
    bytes[0x14] = version;
    place(bytes.data());
    providers::jet::apply_rc4(providers::jet::header_key,
                              std::span(bytes).subspan(0x18, version == 0 ? 126 : 128));
    return bytes;
}

void nothing(unsigned char*) {}

TEST(FileHeader, RC4_is_as_published) {
    std::vector<unsigned char> text = {'P', 'l', 'a', 'i', 'n', 't', 'e', 'x', 't'};
    providers::jet::apply_rc4("Key", text);
    EXPECT_EQ(text,
              (std::vector<unsigned char>{0xBB, 0xF3, 0x16, 0xE8, 0xD9, 0x40, 0xAF, 0x0A, 0xD3}));
}

TEST(FileHeader, the_version_decides_the_page_size) {
    EXPECT_EQ(FileHeader(file(0, nothing)).page_size(), 2048U);
    EXPECT_EQ(FileHeader(file(1, nothing)).page_size(), 4096U);
    EXPECT_TRUE(FileHeader(file(0, nothing)).is_jet3());
    EXPECT_FALSE(FileHeader(file(5, nothing)).is_jet3());
}

TEST(FileHeader, a_file_is_a_whole_number_of_pages) {
    auto bytes = file(1, nothing);
    for (const std::size_t size : {std::size_t{0},
                                   std::size_t{20},
                                   std::size_t{4095},
                                   std::size_t{4097},
                                   std::size_t{8191}}) {
        EXPECT_EQ(error_number_of([&] { FileHeader(Bytes(bytes).first(size)); }),
                  number::unspecified)
            << size;
    }
    EXPECT_EQ(FileHeader(Bytes(bytes).first(4096)).page_size(), 4096U);
}

TEST(FileHeader, a_file_without_a_password_takes_any) {
    const FileHeader header(file(1, nothing));
    EXPECT_EQ(header.password(), "");
    header.require_access("");
    header.require_access("anything");
}

TEST(FileHeader, the_password_is_masked_by_the_day_of_creation) {
    const FileHeader header(file(1, [](unsigned char* bytes) {
        const double created = 38000.75; // 0x9470
        std::memcpy(bytes + 0x72, &created, sizeof created);
        const char16_t text[] = u"Pàx";
        std::memcpy(bytes + 0x42, text, 6);
        for (std::size_t i = 0; i < 40; i += 4) {
            bytes[0x42 + i] ^= 0x70;
            bytes[0x43 + i] ^= 0x94;
        }
    }));
    EXPECT_EQ(header.password(), "Pàx");
    EXPECT_EQ(error_number_of([&] { header.require_access(""); }), number::login_refused);
    EXPECT_EQ(error_number_of([&] { header.require_access("pàx"); }), number::login_refused);
    header.require_access("Pàx");
}

TEST(FileHeader, the_password_of_Jet_3_has_one_byte_a_character) {
    const FileHeader header(
        file(0, [](unsigned char* bytes) { std::memcpy(bytes + 0x42, "segreto", 7); }));
    EXPECT_EQ(header.password(), "segreto");
}

TEST(FileHeader, an_encrypted_file_of_the_later_kind_is_refused) {
    const auto encrypted = [](unsigned char* bytes) { bytes[0x299] = 1; };
    const FileHeader later(file(2, encrypted));
    EXPECT_TRUE(later.is_encrypted());
    EXPECT_EQ(error_number_of([&] { later.require_access("x"); }), number::unspecified);
    EXPECT_FALSE(FileHeader(file(1, encrypted)).is_encrypted());
}

} // namespace
} // namespace krv::jet_reader
