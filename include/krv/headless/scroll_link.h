#pragma once

#include "krv/standard/flex_grid.h"
#include "krv/standard/flex_grid_view.h"

#include <cstdint>
#include <functional>
#include <utility>

namespace krv::headless {

/// Keeps the columns of two grids under each other: when one is scrolled sideways, so is the other.
class ScrollLink {
public:
    /// Both outlive the link.
    ScrollLink(standard::FlexGrid& first, standard::FlexGrid& second);
    ~ScrollLink();
    ScrollLink(const ScrollLink&) = delete;
    ScrollLink& operator=(const ScrollLink&) = delete;

    /// Told by how many twips the columns moved to the left, negative to the right. Empty for none.
    void set_on_moved(std::function<void(std::int64_t)> handler) { on_moved_ = std::move(handler); }

private:
    class End final : public standard::FlexGridView {
    public:
        End(ScrollLink& link, const standard::FlexGrid& grid, standard::FlexGrid& other)
            : link_(link)
            , grid_(grid)
            , other_(other) {}

        void cells_changed(std::int32_t /*first_row*/, std::int32_t /*last_row*/) override {}

        void rows_inserted(std::int32_t /*first_row*/, std::int32_t /*count*/) override {}

        void rows_removed(std::int32_t /*first_row*/, std::int32_t /*count*/) override {}

        void layout_changed() override {}

        void selection_changed() override {}

        void scrolled() override { link_.follow(grid_, other_); }

    private:
        ScrollLink& link_;
        const standard::FlexGrid& grid_;
        standard::FlexGrid& other_;
    };

    void follow(const standard::FlexGrid& grid, standard::FlexGrid& other);

    standard::FlexGrid& first_;
    standard::FlexGrid& second_;
    End first_end_;
    End second_end_;
    std::function<void(std::int64_t)> on_moved_;
    std::int64_t offset_ = 0;
    bool following_ = false;
};

} // namespace krv::headless
