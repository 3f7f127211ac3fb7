#pragma once

#include "krv/propertypage/property_page.h"

#include <cstdint>
#include <string>

namespace krv::qt {

/// What stands on a property page at a moment: what applying it would give the control.
struct PageDraft {
    // Texts and flags of the whole list, as they stand in their editors
    std::string DataBaseName;
    std::string Recordsource;
    std::string Connect;
    std::string Cols;
    std::string Rows;
    std::string LineNumberColumn;
    bool OkVisible = false;
    bool CopyVisible = false;
    bool DeleteVisible = false;
    bool InsertVisible = false;
    bool AddVisible = false;
    bool Enabled = false;
    bool AutoAdd = false;

    PageColumns columns;
};

/// Whether both would give a control the same, but for what showing a column changes by itself.
bool same_settings(const PageDraft& left, const PageDraft& right);

} // namespace krv::qt
