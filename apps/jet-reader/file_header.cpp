#include "file_header.h"

#include "errors.h"
#include "krv/standard/data_error.h"
#include "providers/jet/rc4.h"
#include "standard/utf8.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace krv::jet_reader {

namespace {

constexpr std::size_t version_at = 0x14;
constexpr std::size_t mask_at = 0x18;
constexpr std::size_t jet3_mask_size = 126;
constexpr std::size_t jet4_mask_size = 128;
constexpr std::size_t password_at = 0x42;
constexpr std::size_t jet3_password_size = 20;
constexpr std::size_t jet4_password_size = 40;
constexpr std::size_t creation_at = 0x72;
constexpr std::size_t encryption_info_at = 0x299;
constexpr std::size_t jet3_page = 2048;
constexpr std::size_t jet4_page = 4096;

std::string jet3_password(const unsigned char* header) {
    const auto* const first = reinterpret_cast<const char*>(header + password_at);
    return {first, std::find(first, first + jet3_password_size, '\0')};
}

std::string jet4_password(const unsigned char* header) {
    // The whole days since 1899-12-30 at which the file was made are the mask.
    const auto created = load_float<double, std::uint64_t>(header + creation_at);
    const auto day = std::abs(created) < 1e6
                         ? static_cast<std::uint32_t>(static_cast<std::int32_t>(created))
                         : 0;
    std::u16string text;
    for (std::size_t at = 0; at < jet4_password_size; at += 2) {
        const auto mask = static_cast<std::uint16_t>(day >> (at % 4 * 8));
        const auto unit =
            static_cast<std::uint16_t>(load<std::uint16_t>(header + password_at + at) ^ mask);
        if (unit == 0) {
            break;
        }
        text += static_cast<char16_t>(unit);
    }
    std::string storage;
    return std::string(standard::utf8_from_utf16(text, storage));
}

} // namespace

FileHeader::FileHeader(Bytes file)
    : version_(file.size() > version_at ? file[version_at] : 0)
    , page_size_(version_ == 0 ? jet3_page : jet4_page) {
    if (file.size() < page_size_ || file.size() % page_size_ != 0) {
        refuse_damaged("its size is no whole number of pages");
    }
    std::vector<unsigned char> header(file.begin(),
                                      file.begin() + static_cast<std::ptrdiff_t>(page_size_));
    providers::jet::apply_rc4(
        providers::jet::header_key,
        std::span(header).subspan(mask_at, is_jet3() ? jet3_mask_size : jet4_mask_size));
    password_ = is_jet3() ? jet3_password(header.data()) : jet4_password(header.data());
    is_encrypted_ = version_ >= static_cast<unsigned char>(JetVersion::accdb_2007) &&
                    load<std::uint16_t>(header.data() + encryption_info_at) != 0;
}

void FileHeader::require_access(std::string_view password) const {
    namespace number = standard::data_error_number;
    if (is_encrypted_) {
        throw standard::DataError(
            number::unspecified, "The database file is encrypted; it cannot be read.", layer);
    }
    if (!password_.empty() && password != password_) {
        throw standard::DataError(number::login_refused, "Not a valid password.", layer);
    }
}

} // namespace krv::jet_reader
