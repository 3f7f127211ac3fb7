#pragma once

#include "krv/platform/data_access.h"
#include "krv/platform/value.h"

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

namespace krv::server {

/// The names under which the client knows objects: recordsets are "rs1", "rs2" and so on, objects of
/// the host have the names that the host gave. An object with a name lives as long as the table.
class ObjectTable {
public:
    /// The object's name, a new one when it has none yet. Empty for no object.
    const std::string& name_of(const std::shared_ptr<platform::Object>& object);

    /// Gives an object of the host its name; an earlier one of that name loses it.
    /// \throws RuntimeError 457 when a recordset has the name
    void add(const std::string& name, std::shared_ptr<platform::Object> object);

    /// \throws RuntimeError 424 when nothing has the name
    const std::shared_ptr<platform::Object>& find(std::string_view name) const;

    /// \throws RuntimeError 424 when nothing has the name, 13 for an object of another kind
    std::shared_ptr<platform::Recordset> recordset(std::string_view name) const;

private:
    std::string new_name(const platform::Object& object);

    std::map<std::string, std::shared_ptr<platform::Object>, std::less<>> objects_;
    std::unordered_map<const platform::Object*, std::string> names_;
    std::size_t recordsets_ = 0;
    std::size_t others_ = 0;
};

} // namespace krv::server
