#include "providers/odbc/driver_manager.h"

#include <array>

#include <dlfcn.h>
#include <odbcinst.h>

namespace krv::providers::odbc {

namespace {

std::string entry(const std::string& section, const char* keyword, const char* file) {
    // Longer names are none: the driver manager's own buffers end there.
    constexpr std::size_t longest = 1000;
    if (section.empty() || section.size() > longest || section.find('\0') != std::string::npos) {
        return {};
    }
    std::array<char, 1024> text{};
    SQLGetPrivateProfileString(
        section.c_str(), keyword, "", text.data(), static_cast<int>(text.size()), file);
    text.back() = '\0';
    return text.data();
}

} // namespace

std::string library_of_driver(std::string_view driver) {
    const std::string name(driver);
    std::string library = entry(name, "Driver64", "odbcinst.ini");
    if (library.empty()) {
        library = entry(name, "Driver", "odbcinst.ini");
    }
    return library.empty() ? name : library;
}

std::string library_of_source(std::string_view name) {
    return library_of_driver(entry(std::string(name), "Driver", "odbc.ini"));
}

bool has_narrow_texts_only(const std::string& library) {
    // It is loaded already, or will be in a moment.
    void* const handle = dlopen(library.c_str(), RTLD_LAZY | RTLD_LOCAL);
    if (handle == nullptr) {
        return false;
    }
    const bool is_narrow = dlsym(handle, "SQLDriverConnectW") == nullptr &&
                           dlsym(handle, "SQLDriverConnect") != nullptr;
    dlclose(handle);
    return is_narrow;
}

} // namespace krv::providers::odbc
