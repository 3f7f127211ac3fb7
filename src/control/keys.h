#pragma once

#include <cstdint>

namespace krv {

struct ControlState;
class FunctionButtons;

/// What the control does with a key that went down on it: a command, a move in the list, else the
/// event `KeyDown`. Modifiers play no part in the matching. Tab is swallowed: `key_code` becomes 0.
/// The control may be gone when this returns.
void key_down(ControlState& state,
              const FunctionButtons& buttons,
              std::int16_t& key_code,
              std::int16_t& shift);

} // namespace krv
