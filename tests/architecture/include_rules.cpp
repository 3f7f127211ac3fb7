#include "architecture/include_rules.h"

#include "architecture/standard_headers.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>

namespace krv::architecture {

namespace {

using Names = std::set<std::string, std::less<>>;

/// A folder of the house: which rooms it may include besides itself, and how the names of the third
/// parties' headers begin that it may use.
struct Room {
    Names below;
    std::vector<std::string> third_parties;
};

const std::map<std::string, Room, std::less<>>& rooms() {
    static const Names core = {
        "platform", "control", "data", "editing", "persistence", "propertypage"};
    const auto core_and = [](Names names) {
        names.insert(core.begin(), core.end());
        return names;
    };
    static const std::map<std::string, Room, std::less<>> all = {
        {"platform", {}},
        {"control", {core, {}}},
        {"data", {core, {}}},
        {"editing", {core, {}}},
        {"persistence", {core, {}}},
        {"propertypage", {core, {}}},
        {"companions", {{"platform", "control"}, {}}},
        {"standard", {core, {"fcntl.h", "sys/stat.h", "unistd.h"}}},
        {"providers/sqlite", {core_and({"standard"}), {"sqlite3.h"}}},
        {"providers/odbc",
         {core_and({"standard"}), {"sql.h", "sqlext.h", "sqlucode.h", "odbcinst.h", "dlfcn.h"}}},
        {"providers/jet",
         {core_and({"standard"}),
          {"dlfcn.h", "fcntl.h", "poll.h", "spawn.h", "sys/", "unistd.h"}}},
        {"headless", {core_and({"companions", "standard", "providers/sqlite"}), {}}},
        {"qt", {core_and({"companions", "standard", "providers/sqlite"}), {"Q"}}},
        {"qt/designer",
         {core_and({"standard", "providers/sqlite", "providers/odbc", "providers/jet", "qt"}),
          {"Q"}}},
        {"server",
         {core_and(
              {"companions", "standard", "providers/sqlite", "providers/odbc", "headless", "qt"}),
          {"Q", "nlohmann/", "poll.h", "unistd.h"}}},
        {"apps",
         {core_and({"companions",
                    "standard",
                    "providers/sqlite",
                    "providers/odbc",
                    "providers/jet",
                    "headless",
                    "qt",
                    "server"}),
          {"Q", "sqlite3.h", "unistd.h"}}},
        {"apps/jet-reader",
         {core_and({"standard", "providers/jet"}),
          {"glib.h", "iconv.h", "mdbtools.h", "seccomp.h", "sqlite3.h", "sys/", "unistd.h"}}},
    };
    return all;
}

struct Include {
    std::size_t line;
    std::string name;
    bool quoted;
};

struct Edge {
    const SourceFile* from;
    Include include;
    /// Path of the project's file that is meant; none for headers from outside.
    std::optional<std::string> to;
};

std::string_view without_blanks_before(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    return text;
}

/// Takes a word off the front of a text; false, and the text as it was, when it begins otherwise.
bool take(std::string_view& text, std::string_view word) {
    const std::string_view rest = without_blanks_before(text);
    if (!rest.starts_with(word)) {
        return false;
    }
    text = rest.substr(word.size());
    return true;
}

std::vector<Include> includes_of(const SourceFile& file) {
    std::vector<Include> includes;
    for (std::size_t i = 0; i < file.lines.size(); ++i) {
        std::string_view line = file.lines[i];
        if (!take(line, "#") || !take(line, "include")) {
            continue;
        }
        const bool quoted = take(line, "\"");
        if (quoted || take(line, "<")) {
            const auto end = line.find(quoted ? '"' : '>');
            includes.push_back({i + 1, std::string(line.substr(0, end)), quoted});
        }
    }
    return includes;
}

bool is_source(std::string_view path) {
    return path.ends_with(".h") || path.ends_with(".cpp");
}

std::optional<std::string>
resolve(const std::string& from, const Include& include, const Names& paths) {
    std::vector<std::string> places = {"src/", "include/", "tests/"};
    if (include.quoted) {
        places.insert(places.begin(), from.substr(0, from.rfind('/') + 1));
    }
    for (const std::string& place : places) {
        const auto path = std::filesystem::path(place + include.name).lexically_normal();
        if (paths.contains(path.generic_string())) {
            return path.generic_string();
        }
    }
    return std::nullopt;
}

std::vector<Edge> edges_of(const std::vector<SourceFile>& files) {
    Names paths;
    for (const SourceFile& file : files) {
        paths.insert(file.path);
    }
    std::vector<Edge> edges;
    for (const SourceFile& file : files) {
        if (is_source(file.path)) {
            for (const Include& include : includes_of(file)) {
                edges.push_back({&file, include, resolve(file.path, include, paths)});
            }
        }
    }
    return edges;
}

/// The folder that a file lives in; empty outside the layers. The plugin of Qt Designer is a room of
/// its own, and so is each provider: its folder, and its public header when that is a single one
/// (`include/krv/providers/sqlite.h`). So is the program that libmdb is locked up in.
std::string room_of(std::string_view path) {
    if (path.starts_with("apps/jet-reader/")) {
        return "apps/jet-reader";
    }
    if (path.starts_with("apps/")) {
        return "apps";
    }
    if (!take(path, "include/krv/") && !take(path, "src/")) {
        return {};
    }
    if (path.starts_with("qt/designer/")) {
        return "qt/designer";
    }
    std::string room(path.substr(0, path.find('/')));
    if (take(path, "providers/")) {
        room += '/';
        room += path.substr(0, path.find_first_of("./"));
    }
    return room;
}

bool is_within_the_layers(std::string_view path) {
    return path.starts_with("include/") || path.starts_with("src/") || path.starts_with("apps/");
}

bool is_made_by_moc(const Include& include) {
    return include.name.ends_with(".moc") || include.name.starts_with("moc_");
}

/// What is wrong with an include of a header from outside the project; empty when nothing is.
std::string fault_outside(const Include& include, const Room& room, const std::string& name) {
    const auto begins_the_name = [&](const std::string& prefix) {
        return include.name.starts_with(prefix);
    };
    const bool is_third_party =
        std::any_of(room.third_parties.begin(), room.third_parties.end(), begins_the_name);
    if (include.quoted) {
        const bool is_made = std::count(room.third_parties.begin(), room.third_parties.end(), "Q");
        return is_made && is_made_by_moc(include) ? "" : "is no file of the project";
    }
    return is_third_party || is_standard_header(include.name) ? "" : "is nothing for " + name;
}

std::string fault_of(const Edge& edge) {
    const std::string name = room_of(edge.from->path);
    const auto room = rooms().find(name);
    if (room == rooms().end()) {
        return "stands in a folder that has no place among the layers";
    }
    if (!edge.to) {
        return fault_outside(edge.include, room->second, name);
    }
    const std::string other = room_of(*edge.to);
    if (!edge.include.quoted) {
        return "is a file of the project and wants quotation marks";
    }
    if (edge.from->path.starts_with("include/") && !edge.to->starts_with("include/")) {
        return "is private, but included by a public header";
    }
    return other == name || room->second.below.contains(other) ? "" : "is above " + name;
}

/// Walks the includes depth first and remembers the road, so that a circle can be shown whole.
class CircleFinder {
public:
    explicit CircleFinder(const std::vector<Edge>& edges) {
        for (const Edge& edge : edges) {
            if (edge.to) {
                targets_[edge.from->path].insert(*edge.to);
            }
        }
    }

    std::vector<std::string> find() {
        for (const auto& [path, targets] : targets_) {
            visit(path);
        }
        return circles_;
    }

private:
    void visit(const std::string& path) {
        const auto on_the_road = std::find(road_.begin(), road_.end(), path);
        if (on_the_road != road_.end()) {
            std::string circle;
            std::for_each(
                on_the_road, road_.end(), [&](const std::string& step) { circle += step + " > "; });
            circles_.push_back(circle + path);
            return;
        }
        if (!seen_.insert(path).second) {
            return;
        }
        road_.push_back(path);
        if (const auto targets = targets_.find(path); targets != targets_.end()) {
            for (const std::string& target : targets->second) {
                visit(target);
            }
        }
        road_.pop_back();
    }

    std::map<std::string, Names, std::less<>> targets_;
    Names seen_;
    std::vector<std::string> road_;
    std::vector<std::string> circles_;
};

} // namespace

std::vector<std::string> include_violations(const std::vector<SourceFile>& files) {
    std::vector<std::string> violations;
    for (const Edge& edge : edges_of(files)) {
        if (!is_within_the_layers(edge.from->path)) {
            continue;
        }
        if (const std::string fault = fault_of(edge); !fault.empty()) {
            const auto [left, right] =
                edge.include.quoted ? std::pair('"', '"') : std::pair('<', '>');
            violations.push_back(edge.from->path + ':' + std::to_string(edge.include.line) + ": " +
                                 left + edge.include.name + right + ' ' + fault);
        }
    }
    return violations;
}

std::vector<std::string> include_circles(const std::vector<SourceFile>& files) {
    return CircleFinder(edges_of(files)).find();
}

} // namespace krv::architecture
