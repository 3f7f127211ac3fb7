#pragma once

#include "control/failures.h"

#include "krv/propertypage/property_page.h"

#include <cstddef>
#include <cstdint>

namespace krv::propertypage {

/// Gives all nine arrays so many entries; those that remain keep their values, new ones are empty.
void resize(PageColumns& columns, std::size_t count);

/// One entry of an array of the page; `col` counts from 0.
/// \throws RuntimeError 9 outside the array
template <class Array>
decltype(auto) entry(Array& array, std::int32_t col) {
    if (col < 0 || static_cast<std::size_t>(col) >= array.size()) {
        fail_subscript();
    }
    return array[static_cast<std::size_t>(col)];
}

} // namespace krv::propertypage
