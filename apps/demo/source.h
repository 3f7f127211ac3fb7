#pragma once

#include "column_plan.h"

#include "krv/platform/data_access.h"
#include "krv/platform/formatter.h"

#include <memory>
#include <string>
#include <vector>

namespace krv::demo {

struct Options;

/// What the list shows and what it needs for that.
struct Source {
    std::string database; ///< path of the file
    std::string connect;  ///< connection string for it, whatever characters the path holds
    std::string records;  ///< table or query
    std::string table;    ///< that the rows can be stored in; empty for none
    bool is_jet = false;  ///< a Jet database, which is only read
    std::string region;   ///< name of the regional settings
    std::vector<ColumnPlan> columns;
    std::shared_ptr<platform::DataAccess> data_access;
    std::shared_ptr<const platform::Formatter> formatter;
};

/// Looks into the database for the fields.
/// \param sample  path of the sample database
/// \throws RuntimeError when the file or the source cannot be opened, or has nothing to show
Source find_source(const Options& options, const std::string& sample = KRV_SAMPLE_DATABASE);

} // namespace krv::demo
