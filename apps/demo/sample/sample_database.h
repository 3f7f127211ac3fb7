#pragma once

#include "krv/platform/data_access.h"

#include <cstdint>

namespace krv::demo {

/// Rows of the table "Ordini".
inline constexpr std::int32_t order_count = 2400;

/// Number of the first order; the others follow without a gap.
inline constexpr std::int32_t first_order = 1001;

/// Fills an empty SQLite database with the orders of a shop: the tables "Clienti", "Articoli" and
/// "Ordini", and the view "OrdiniAperti" of the orders that have not been shipped.
///
/// The orders run from January 2019 to June 2026 in the order of their dates. The same every time.
/// \param connection  open, outside a transaction
/// \throws RuntimeError of the data layer; nothing is stored then
void write_sample(platform::Connection& connection);

} // namespace krv::demo
