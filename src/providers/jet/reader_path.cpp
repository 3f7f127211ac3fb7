#include "providers/jet/reader_path.h"

#include "krv/standard/data_error.h"
#include "providers/jet/reader_process.h"

#include <filesystem>
#include <system_error>
#include <vector>

#include <dlfcn.h>
#include <unistd.h>

namespace krv::providers::jet {

namespace {

namespace fs = std::filesystem;

constexpr const char* name = "krvlist-jet-reader";

void add_folder_of(const fs::path& file, std::vector<fs::path>& places) {
    const fs::path folder = file.parent_path();
    if (folder.is_absolute()) {
        places.push_back(folder / name);
        places.push_back(folder.parent_path() / "libexec" / "krvList3" / name);
        // A library may lie one folder further down (lib/x86_64-linux-gnu).
        places.push_back(folder.parent_path().parent_path() / "libexec" / "krvList3" / name);
    }
}

std::vector<fs::path> usual_places() {
    std::vector<fs::path> places;
    std::error_code error;
    add_folder_of(fs::read_symlink("/proc/self/exe", error), places);
    Dl_info library{};
    if (dladdr(reinterpret_cast<void*>(&reader_path), &library) != 0 &&
        library.dli_fname != nullptr) {
        add_folder_of(fs::weakly_canonical(library.dli_fname, error), places);
    }
    places.emplace_back(KRV_JET_READER_INSTALLED);
    places.emplace_back(KRV_JET_READER_BUILT);
    return places;
}

} // namespace

std::string reader_path(const std::string& wanted) {
    if (!wanted.empty()) {
        return fs::absolute(wanted).string();
    }
    for (const fs::path& place : usual_places()) {
        if (access(place.c_str(), X_OK) == 0) {
            return place.string();
        }
    }
    throw standard::DataError(standard::data_error_number::unspecified,
                              std::string("The reader of Jet files, ") + name +
                                  ", was not found beside the program.",
                              layer);
}

} // namespace krv::providers::jet
