#include "standard/bag/whole_file.h"

#include "krv/platform/error.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sstream>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace krv::standard {

namespace {

namespace fs = std::filesystem;

constexpr std::int32_t file_not_found = 53;
constexpr std::int32_t path_access = 75;

[[noreturn]] void fail(const fs::path& path, const std::string& reason) {
    throw platform::RuntimeError(path_access, path.string() + ": " + reason, "krvList3");
}

[[noreturn]] void fail(const fs::path& path) {
    fail(path, std::strerror(errno));
}

/// A new file beside the one that it is to replace; goes when it does not come to that.
class Replacement {
public:
    explicit Replacement(fs::path target)
        : target_(std::move(target))
        , path_(target_.string() + ".XXXXXX")
        , descriptor_(::mkstemp(path_.data())) {
        if (descriptor_ < 0) {
            fail(target_);
        }
    }

    ~Replacement() {
        close();
        if (!path_.empty()) {
            ::unlink(path_.c_str());
        }
    }

    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;

    void write(std::string_view content) {
        while (!content.empty()) {
            const ssize_t written = ::write(descriptor_, content.data(), content.size());
            if (written < 0 && errno != EINTR) {
                fail(target_);
            }
            content.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(written, 0)));
        }
    }

    void take_place() {
        if (::fchmod(descriptor_, permissions()) != 0 || ::fsync(descriptor_) != 0) {
            fail(target_);
        }
        close();
        if (::rename(path_.c_str(), target_.c_str()) != 0) {
            fail(target_);
        }
        path_.clear();
        sync_folder();
    }

private:
    /// Those of the file that is there, else what the process gives new files.
    mode_t permissions() const {
        struct stat old {};

        if (::stat(target_.c_str(), &old) == 0) {
            return old.st_mode & 07777U;
        }
        const mode_t mask = ::umask(0);
        ::umask(mask);
        return 0666U & ~mask;
    }

    void close() {
        if (descriptor_ >= 0) {
            ::close(std::exchange(descriptor_, -1));
        }
    }

    /// So that the new name outlives a loss of power. Not every file system can do it.
    void sync_folder() const {
        const fs::path folder = target_.has_parent_path() ? target_.parent_path() : ".";
        const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        if (descriptor >= 0) {
            ::fsync(descriptor);
            ::close(descriptor);
        }
    }

    fs::path target_;
    std::string path_;
    int descriptor_;
};

/// The file itself when the path is a link, also one that leads to no file yet.
fs::path resolved(fs::path path) {
    constexpr int most_links = 40; // as many as the kernel follows
    std::error_code error;
    for (int links = 0; links < most_links && fs::is_symlink(path, error); ++links) {
        const fs::path target = fs::read_symlink(path, error);
        if (error) {
            fail(path, error.message());
        }
        path = path.parent_path() / target; // an absolute target stands for itself
    }
    if (fs::is_symlink(path, error)) {
        fail(path, "too many links");
    }
    return path;
}

} // namespace

std::string read_whole_file(const fs::path& path) {
    std::error_code error;
    if (!fs::exists(path, error)) {
        if (error) {
            fail(path, error.message());
        }
        throw platform::RuntimeError(
            file_not_found, "File not found: " + path.string(), "krvList3");
    }
    if (fs::is_directory(path, error)) {
        fail(path, "Is a directory");
    }
    std::ifstream file(path, std::ios::binary);
    std::ostringstream content;
    if (!file || (file.peek() != std::ifstream::traits_type::eof() && !(content << file.rdbuf()))) {
        fail(path, "cannot be read");
    }
    return std::move(content).str();
}

void write_whole_file(const fs::path& path, std::string_view content) {
    const fs::path target = resolved(path);
    std::error_code error;
    if (fs::exists(target, error) && !fs::is_regular_file(target, error)) {
        fail(path, "is no ordinary file");
    }
    // A new file may take the place of one that nobody may write to; that is not what its owner wants.
    if (fs::exists(target, error) && ::access(target.c_str(), W_OK) != 0) {
        fail(path);
    }
    Replacement replacement(target);
    replacement.write(content);
    replacement.take_place();
}

} // namespace krv::standard
