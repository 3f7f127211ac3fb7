#pragma once

#include "krv/control/karvo_list.h"
#include "krv/platform/life.h"

#include <cstdint>
#include <string>
#include <vector>

namespace krv::companions {

/// A row that is about to leave the list, so that it can be put back.
class RemovedRow {
public:
    /// \param row  public row, which is there
    RemovedRow(const KarvoList& list, std::int32_t row);

    /// Whether this very row, and no other, has left the list since.
    bool is_gone_from(const KarvoList& list) const;

    /// Puts the row back where it stood, with its texts, and makes it the current one.
    /// \param watch  ends with the list, which the host may destroy meanwhile
    void put_back(KarvoList& list, const platform::LifeWatch& watch) const;

private:
    using Texts = std::vector<std::string>;

    static Texts texts_of(const KarvoList& list, std::int32_t row);
    static void write(KarvoList& list, std::int32_t row, const Texts& texts);

    std::int32_t row_;
    std::int32_t rows_; // the row counted
    Texts texts_;
    Texts next_; // of the row below; none for the last
};

} // namespace krv::companions
