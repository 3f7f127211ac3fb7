#pragma once

#include "bytes.h"
#include "krv/platform/value.h"

#include <optional>
#include <string>

namespace krv::jet_reader {

// Numbers and dates as the file keeps them. What a value of the platform cannot hold comes out as
// text in `storage`.

/// A Decimal: a sign byte and four words of 32 bits, the highest first. 17 bytes.
platform::ValueView decode_numeric(const unsigned char* data, int scale, std::string& storage);

/// The result of a calculated Decimal: an OLE DECIMAL of 16 bytes.
platform::ValueView decode_ole_decimal(const unsigned char* data, std::string& storage);

/// A serial date; text outside the years 100 to 9999.
platform::ValueView date_value(double serial, std::string& storage);

/// Date/Time Extended: `days:ticks:7` in ASCII, days since 0001-01-01, ticks of 100 ns.
/// \return the serial date; nothing for another text
std::optional<double> decode_extended_date(std::string_view text);

/// A Replication ID: `{XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}`. 16 bytes.
std::string_view decode_guid(const unsigned char* data, std::string& storage);

} // namespace krv::jet_reader
