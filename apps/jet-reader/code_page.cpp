#include "code_page.h"

#include "standard/utf8.h"

#include <array>
#include <cerrno>

namespace krv::jet_reader {

std::string_view decode_code_page(iconv_t converter, Bytes data, std::string& storage) {
    const std::string_view raw(reinterpret_cast<const char*>(data.data()), data.size());
    if (standard::is_ascii(raw)) {
        return raw;
    }
    storage.clear();
    std::array<char, 1024> buffer{};
    char* from = const_cast<char*>(raw.data());
    std::size_t left = raw.size();
    while (left > 0) {
        char* to = buffer.data();
        std::size_t room = buffer.size();
        const std::size_t result = iconv(converter, &from, &left, &to, &room);
        const int error = result == static_cast<std::size_t>(-1) ? errno : 0;
        storage.append(buffer.data(), to);
        if (error != 0 && error != E2BIG) {
            storage += "\xEF\xBF\xBD";
            ++from;
            --left;
            iconv(converter, nullptr, nullptr, nullptr, nullptr);
        }
    }
    return storage;
}

void load_code_pages() {
    // The names that libmdb 1.0.0 asks for.
    for (const char* name :
         {"UCS-2LE",      "CP1252",       "WINDOWS-874",  "SHIFT-JIS",    "WINDOWS-936",
          "BIG-5",        "BIG5-HKSCS",   "WINDOWS-1250", "WINDOWS-1251", "WINDOWS-1252",
          "WINDOWS-1253", "WINDOWS-1254", "WINDOWS-1255", "WINDOWS-1256", "WINDOWS-1257",
          "WINDOWS-1258", "CP1361",       "EUC-KR",       "EUC-CN",       "EUC-JP"}) {
        iconv_open("UTF-8", name);
        iconv_open(name, "UTF-8");
    }
}

} // namespace krv::jet_reader
