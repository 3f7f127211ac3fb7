#pragma once

#include <bit>
#include <cstddef>
#include <vector>

namespace krv::standard {

/// Running totals over a sequence of items (a binary indexed tree): an item's total changes and the
/// sum before an item is found in logarithmic time, items come and go in time linear in those
/// after.
///
/// `Sum` is a number or a small struct of numbers with `+=`, zero when value-initialised.
template <class Sum>
class PrefixSums {
public:
    std::size_t size() const noexcept { return nodes_.size(); }

    /// After it a `rebuild` up to `count` items cannot fail.
    void reserve(std::size_t count) {
        if (count > nodes_.capacity()) {
            nodes_.reserve(count + count / 2);
        }
    }

    /// Makes it `count` items; those from `from` on are new or different.
    template <class ItemTotal>
    void rebuild(std::size_t from, std::size_t count, ItemTotal item_total) {
        nodes_.resize(count);
        for (std::size_t item = from; item < count; ++item) {
            Sum sum = item_total(item);
            const std::size_t node = item + 1;
            for (std::size_t step = 1; step < (node & (~node + 1)); step *= 2) {
                sum += nodes_[node - step - 1];
            }
            nodes_[item] = sum;
        }
    }

    void add(std::size_t item, const Sum& difference) noexcept {
        for (std::size_t node = item + 1; node <= nodes_.size(); node += node & (~node + 1)) {
            nodes_[node - 1] += difference;
        }
    }

    Sum before(std::size_t item) const noexcept {
        Sum sum{};
        for (std::size_t node = item; node > 0; node &= node - 1) {
            sum += nodes_[node - 1];
        }
        return sum;
    }

    struct Found {
        std::size_t item; // size() when the target lies behind all
        Sum before;
    };

    /// The item in which the measure's running total passes `target`; items that measure 0 are
    /// passed over.
    template <class Measure, class Target>
    Found find(Target target, Measure measure) const noexcept {
        Found found{0, Sum{}};
        for (std::size_t step = std::bit_floor(nodes_.size()); step > 0; step /= 2) {
            if (found.item + step > nodes_.size()) {
                continue;
            }
            Sum sum = found.before;
            sum += nodes_[found.item + step - 1];
            if (measure(sum) <= target) {
                found.item += step;
                found.before = sum;
            }
        }
        return found;
    }

    std::size_t memory_bytes() const noexcept { return nodes_.capacity() * sizeof(Sum); }

private:
    std::vector<Sum> nodes_;
};

} // namespace krv::standard
