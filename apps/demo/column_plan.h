#pragma once

#include "krv/control/karvo_list.h"
#include "krv/platform/data_access.h"

#include <cstdint>
#include <string>
#include <vector>

namespace krv::demo {

/// How a field of a record source is shown.
struct ColumnPlan {
    std::string caption;
    std::string field;
    std::int16_t type = 0; ///< data-type code
    std::string format;
    std::int32_t alignment = 0;
    platform::Twips width = 0;
    bool is_key = false;       ///< finds the record
    bool is_given = false;     ///< the database gives the value, so that nobody types it
    bool is_necessary = false; ///< a row needs a value
};

/// A column for each field that a list can show: bytes are left out.
std::vector<ColumnPlan> plan_columns(const platform::Fields& fields);

/// The columns of the sample's orders.
std::vector<ColumnPlan> sample_columns();

void set_up_columns(KarvoList& list, const std::vector<ColumnPlan>& columns);

} // namespace krv::demo
