#include "spoiled_file.h"

#include <charconv>
#include <numeric>
#include <vector>

namespace krv::providers {

namespace {

/// The same numbers everywhere, unlike the generators of the library.
class Random {
public:
    Random(std::string_view mode, std::uint64_t seed) {
        const std::uint64_t mixed = std::accumulate(
            mode.begin(), mode.end(), seed * 1'000'003, [](std::uint64_t sum, char c) {
                return sum + static_cast<unsigned char>(c);
            });
        state_ = mixed * 0x9E3779B97F4A7C15U + 0x1234567U;
        state_ = state_ == 0 ? 1 : state_;
        for (int i = 0; i < 8; ++i) {
            below(2);
        }
    }

    std::size_t below(std::size_t count) {
        state_ ^= state_ << 13U;
        state_ ^= state_ >> 7U;
        state_ ^= state_ << 17U;
        return (state_ >> 11U) % count;
    }

private:
    std::uint64_t state_;
};

void flip(std::string& file, std::size_t at, std::size_t bit) {
    file[at] = static_cast<char>(static_cast<unsigned char>(file[at]) ^ 1U << bit);
}

void flip_definitions(std::string& file, std::size_t page_size, Random& random) {
    std::vector<std::size_t> pages;
    for (std::size_t at = 0; at + page_size <= file.size(); at += page_size) {
        if (file[at] == 2) {
            pages.push_back(at);
        }
    }
    for (int i = 0; i < 8 && !pages.empty(); ++i) {
        const std::size_t page = pages[random.below(pages.size())];
        const std::size_t at = page + random.below(page_size);
        flip(file, at, random.below(8));
    }
}

void fill_with_noise(std::string& file, std::size_t page_size, Random& random) {
    const std::size_t page = (1 + random.below(file.size() / page_size - 1)) * page_size;
    for (std::size_t at = page + 2; at < page + page_size; ++at) {
        file[at] = static_cast<char>(random.below(256));
    }
}

} // namespace

std::string spoiled(std::string file, std::string_view mode, std::uint64_t seed) {
    Random random(mode, seed);
    const std::size_t page_size = file[0x14] != 0 ? 4096 : 2048;
    if (mode == "trunc") {
        file.resize(random.below(file.size()));
    } else if (mode == "page") {
        file.resize(random.below(file.size() / page_size) * page_size);
    } else if (mode == "noise") {
        fill_with_noise(file, page_size, random);
    } else if (mode == "meta") {
        flip_definitions(file, page_size, random);
    } else {
        int count = 0;
        std::from_chars(mode.data() + 4, mode.data() + mode.size(), count);
        for (int i = 0; i < count; ++i) {
            const std::size_t at = random.below(file.size());
            flip(file, at, random.below(8));
        }
    }
    return file;
}

} // namespace krv::providers
