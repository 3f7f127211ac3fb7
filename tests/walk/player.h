#pragma once

#include "walk/act.h"
#include "walk/dice.h"

#include "server/form.h"

#include "krv/control/automation.h"

#include "support/scripted_data.h"

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace krv::walk {

/// A control on one backend with a host that decides by chance, and everything that is heard and
/// seen of them. Players with the same seed decide alike as long as they hear the same.
class Player final : public automation::EventSink {
public:
    Player(std::unique_ptr<server::Form> form, std::uint64_t seed, Manners manners);
    ~Player();

    void perform(const Act& act);

    /// What was heard since the last call: events, notifications, messages with their answers,
    /// errors.
    std::vector<std::string> take_trace();

    /// Everything that can be seen: parts, cells, flags.
    std::string state() const;

    KarvoList& list() const { return control_->list(); }

    platform::Grid& grid(std::string_view name) const;
    platform::TextBox& editor() const;

    bool is_part_visible(std::string_view name) const { return control_->part(name)->Visible(); }

    /// Told of every line of the trace while it happens.
    std::function<void(const std::string&)> on_told;

private:
    void raise(const automation::Event& event, std::span<platform::Value> arguments) override;

    void tell(const std::string& what);
    void carry_out(const Act& act);
    void call(const Act& act);
    void put(const Act& act);
    void mouse(const Act& act);
    void guarded(const std::function<void()>& what);
    platform::MessageAnswer answer(std::string_view text, platform::MessageButtons buttons);
    void answer_event(const automation::Event& event, std::span<platform::Value> arguments);
    void meddle();

    Dice dice_;
    Manners manners_;
    int depth_ = 0;
    std::vector<std::string> trace_;
    std::shared_ptr<testing::ScriptedData> data_;
    std::unique_ptr<server::Form> form_;
    std::array<std::shared_ptr<platform::Object>, 3> objects_;
    std::unique_ptr<server::FormControl> control_;
    std::unique_ptr<automation::EventForwarder> forwarder_;
};

} // namespace krv::walk
