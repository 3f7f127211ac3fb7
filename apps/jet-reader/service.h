#pragma once

#include "channel.h"
#include "jet_file.h"
#include "krv/standard/provider.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>

namespace krv::jet_reader {

/// Serves the requests of one connection.
class Service {
public:
    /// \param file  bytes of the database file, which outlive this
    Service(Channel& channel, Bytes file)
        : channel_(channel)
        , bytes_(file) {}

    /// Until the program closes its end.
    /// \throws BadFrame for a request that does not parse
    void run();

private:
    using Reader = providers::jet::FrameReader;

    void serve(const Channel::Request& request);
    void answer(const Channel::Request& request);
    void answer_error(std::int32_t number, std::int32_t native_code, std::string_view text);
    void open(std::string_view password);
    void open_cursor(std::unique_ptr<standard::ProviderCursor> rows);
    void send_rows(std::uint32_t cursor);
    JetFile& file();

    Channel& channel_;
    Bytes bytes_;
    std::optional<JetFile> file_; // outlives the cursors
    std::map<std::uint32_t, std::unique_ptr<standard::ProviderCursor>> cursors_;
    std::uint32_t last_cursor_ = 0;
    providers::jet::FrameWriter payload_;
};

} // namespace krv::jet_reader
