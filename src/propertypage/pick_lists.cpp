#include "propertypage/pick_lists.h"

#include "krv/control/enumerations.h"

#include <cstddef>
#include <iterator>
#include <string_view>

namespace krv::propertypage {

namespace {

struct DataType {
    std::string_view text;
    std::int32_t code; ///< of ADO's DataTypeEnum
};

// Deliberate: neither spelling nor order is tidied; both are what users know.
constexpr DataType data_types[] = {
    {"Big Integer", 20},
    {"Binary", 128},
    {"Boolean", 11},
    {"Byte String", 8},
    {"Chapter", 136},
    {"Char (string)", 129},
    {"Currency", 6},
    {"Date/Time", 7},
    {"Date", 133},
    {"Time", 134},
    {"TimeStamp", 135},
    {"Decimal", 14},
    {"Double", 5},
    {"Empty", 0},
    {"ErrorCode", 10},
    {"FileTime", 64},
    {"Guid", 72},
    {"Long", 3},
    {"LongVarBinary", 205},
    {"LongVarChar", 201},
    {"LongWChar", 203},
    {"Numeric", 131},
    {"PropVariant", 138},
    {"Single", 4},
    {"Integer", 2},
    {"TinyInteger", 16},
    {"UnsignedBigInteger", 21},
    {"UnsignedLong", 19},
    {"UnsignedInteger", 18},
    {"UnsignedTinyInteger", 17},
    {"UserDefined", 132},
    {"VarBinary", 204},
    {"VarChar(String)", 200},
    {"Variant", 12},
    {"VarNumeric", 139},
    {"VarWChar(string)", 202},
    {"WChar(string)", 130},
};

struct Alignment {
    std::string_view text;
    krvAlignment value;
};

// Deliberate: right stands before center, unlike their numbers.
constexpr Alignment alignments[] = {
    {"Auto align", krvauto},
    {"Left align", krvleft},
    {"Right align", krvright},
    {"Center align", krvcenter},
};

} // namespace

void fill_data_types(platform::ComboBox& list) {
    list.Clear();
    std::int16_t position = 0;
    for (const DataType& type : data_types) {
        list.AddItem(type.text, position);
        list.SetItemData(position, type.code);
        ++position;
    }
}

std::int16_t position_of_data_type(const platform::ComboBox& list, std::int32_t code) {
    for (std::int16_t position = 0; position < list.ListCount(); ++position) {
        if (list.ItemData(position) == code) {
            return position;
        }
    }
    return -1;
}

void fill_alignments(platform::ComboBox& list) {
    list.Clear();
    std::int16_t position = 0;
    for (const Alignment& alignment : alignments) {
        list.AddItem(alignment.text, position++);
    }
}

std::int16_t position_of_alignment(std::int32_t alignment) {
    for (std::size_t i = 0; i < std::size(alignments); ++i) {
        if (static_cast<std::int32_t>(alignments[i].value) == alignment) {
            return static_cast<std::int16_t>(i);
        }
    }
    return 0;
}

std::int32_t alignment_at(std::int16_t position) {
    const bool is_known = position > 0 && position < static_cast<int>(std::size(alignments));
    return static_cast<std::int32_t>(is_known ? alignments[position].value : krvauto);
}

} // namespace krv::propertypage
