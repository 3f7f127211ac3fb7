#pragma once

#include "krv/standard/bag_text.h"
#include "krv/standard/memory_bag.h"

#include <filesystem>
#include <map>
#include <string>
#include <string_view>

namespace krv {
class KarvoList;
}

namespace krv::standard {

/// The settings of a control in a file, for hosts without a form designer: UTF-8 text, a setting a
/// line, in the fixed order of the keys, so that versions can be compared. Lines that begin with `#`
/// are comments; each stays with the setting below it. Keys that are not of the control stay behind
/// the others.
class BagFile {
public:
    /// \throws BagTextError (321) with the line for text that is no setting, a key that stands
    ///         twice, or bytes that are no UTF-8
    static BagFile parse(std::string_view text);

    /// \throws RuntimeError 53 for a file that is not there, 75 for one that cannot be read, and as
    ///         `parse`
    static BagFile load(const std::filesystem::path& path);

    /// For `KarvoList::ReadProperties`, and for keys of the host's own.
    MemoryBag& bag() noexcept { return bag_; }

    const MemoryBag& bag() const noexcept { return bag_; }

    /// Takes over the settings of the control.
    /// \throws what `KarvoList::WriteProperties` raises; nothing has changed then
    void store(const KarvoList& list);

    std::string text() const;

    /// Writes the file whole or not at all: into a new file beside it, which takes its place when it
    /// is safe on the disk. A link stays a link, and permissions stay.
    /// \throws RuntimeError 75 when it cannot be written, 13 for a text that is not UTF-8; the old
    ///         file is as it was
    void save(const std::filesystem::path& path) const;

private:
    void take_line(std::string_view line, std::string& comment);

    MemoryBag bag_;
    std::map<std::string, std::string, std::less<>> comments_; ///< above a key, line ends included
    std::string last_comment_;                                 ///< below all keys
};

} // namespace krv::standard
