#include "propertypage/page_columns.h"

namespace krv::propertypage {

void resize(PageColumns& columns, std::size_t count) {
    columns.colWidths.resize(count);
    columns.colAlignments.resize(count);
    columns.colCaptions.resize(count);
    columns.colEditable.resize(count);
    columns.colDataFields.resize(count);
    columns.colFieldTypes.resize(count);
    columns.colNecessary.resize(count);
    columns.colFormats.resize(count);
    columns.colFieldLengths.resize(count);
}

} // namespace krv::propertypage
