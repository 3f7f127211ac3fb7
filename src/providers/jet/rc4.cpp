#include "providers/jet/rc4.h"

#include <array>
#include <cstddef>
#include <numeric>
#include <utility>

namespace krv::providers::jet {

void apply_rc4(std::string_view key, std::span<unsigned char> data) {
    std::array<unsigned char, 256> state{};
    std::iota(state.begin(), state.end(), static_cast<unsigned char>(0));
    unsigned char j = 0;
    for (std::size_t i = 0; i < state.size(); ++i) {
        j = static_cast<unsigned char>(j + state[i] +
                                       static_cast<unsigned char>(key[i % key.size()]));
        std::swap(state[i], state[j]);
    }
    unsigned char i = 0;
    j = 0;
    for (unsigned char& byte : data) {
        j = static_cast<unsigned char>(j + state[++i]);
        std::swap(state[i], state[j]);
        byte ^= state[static_cast<unsigned char>(state[i] + state[j])];
    }
}

} // namespace krv::providers::jet
