#include "walk/player.h"

#include "krv/platform/error.h"
#include "krv/standard/value_formatter.h"

#include <sstream>

namespace krv::walk {

namespace {

using platform::Value;
using platform::ValueView;

constexpr int deepest_meddling = 2;

std::string shown(const Value& value) {
    const ValueView view = value.view();
    if (view.kind() == platform::ValueKind::text) {
        return "'" + std::string(view.as_text()) + "'";
    }
    if (view.kind() == platform::ValueKind::single) {
        return std::to_string(view.as_single());
    }
    return std::to_string(view.as_whole());
}

void show_grid(std::ostream& out, const platform::Grid& grid) {
    out << ' ' << grid.Rows() << 'x' << grid.Cols() << " at " << grid.Row() << ',' << grid.Col()
        << ' ' << grid.RowSel() << ',' << grid.ColSel() << " top " << grid.TopRow();
    for (std::int32_t row = 0; row < grid.Rows(); ++row) {
        out << '\n';
        for (std::int32_t col = 0; col < grid.Cols(); ++col) {
            out << '[' << grid.TextMatrix(row, col) << ']';
        }
    }
}

} // namespace

Player::Player(std::unique_ptr<server::Form> form, std::uint64_t seed, Manners manners)
    : dice_(seed)
    , manners_(manners)
    , data_(std::make_shared<testing::ScriptedData>())
    , form_(std::move(form))
    , objects_{nullptr, form_->make_object("takes", true), form_->make_object("takes none", false)}
    , control_(form_->new_control(
          {data_,
           std::make_shared<standard::ValueFormatter>(standard::regional_settings("it-IT")),
           [this](std::string_view name) { tell("changed " + std::string(name)); }}))
    , forwarder_(std::make_unique<automation::EventForwarder>(*this, list().formatter())) {
    form_->set_ask([this](std::string_view text, platform::MessageButtons buttons) {
        return answer(text, buttons);
    });
    list().SetAutoAdd(false);
    list().SetCols(4);
    for (std::int32_t col = 0; col < 4; ++col) {
        list().SetColEditable(col, col > 0);
        list().SetColWidth(col, 960);
    }
    list().SetColFormat(3, "dd/mm/yyyy");
    list().SetLineNumberColumn(0);
    list().SetRows(5);
    for (std::int32_t row = 0; row < 5; ++row) {
        list().SetTextMatrix(row, 0, std::to_string(row + 1));
        list().SetTextMatrix(row, 1, "b" + std::to_string(row));
        list().SetTextMatrix(
            row, 3, row % 2 == 0 ? "0" + std::to_string(row + 1) + "/02/2003" : "");
    }
    list().subscribe(*forwarder_);
    form_->turn();
    trace_.clear();
}

Player::~Player() = default;

platform::Grid& Player::grid(std::string_view name) const {
    return dynamic_cast<platform::Grid&>(*control_->part(name));
}

platform::TextBox& Player::editor() const {
    return dynamic_cast<platform::TextBox&>(*control_->part("InpFld"));
}

std::vector<std::string> Player::take_trace() {
    return std::exchange(trace_, {});
}

void Player::tell(const std::string& what) {
    trace_.push_back(what);
    if (on_told) {
        on_told(what);
    }
}

// --- The host ------------------------------------------------------------------------------------

platform::MessageAnswer Player::answer(std::string_view text, platform::MessageButtons buttons) {
    using platform::MessageAnswer;
    MessageAnswer reply = MessageAnswer::ok;
    if (buttons == platform::MessageButtons::yes_no) {
        reply = dice_.chance(60) ? MessageAnswer::yes : MessageAnswer::no;
    }
    const char* const word =
        reply == MessageAnswer::ok ? "ok" : (reply == MessageAnswer::yes ? "yes" : "no");
    tell("message " + std::string(text) + " = " + word);
    return reply;
}

void Player::raise(const automation::Event& event, std::span<Value> arguments) {
    answer_event(event, arguments);
    std::string line = "event " + std::string(event.name);
    for (const Value& argument : arguments) {
        line += ' ' + shown(argument);
    }
    tell(line);
    if (manners_ == Manners::wild && depth_ < deepest_meddling && dice_.chance(8)) {
        meddle();
    }
}

void Player::answer_event(const automation::Event& event, std::span<Value> arguments) {
    static const std::vector<std::string> rewritten = {"", "altro", "04/05/2006", "8,25"};
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string_view name = event.parameters[i].name;
        if (name == "Cancel" && dice_.chance(12)) {
            arguments[i] = Value(ValueView::boolean(true));
        } else if (name == "ExternalHandling" && dice_.chance(8)) {
            arguments[i] = Value(ValueView::boolean(true));
        } else if (name == "Value" && event.name != "InputFieldChange" && dice_.chance(15)) {
            arguments[i] = Value::text(dice_.pick(rewritten));
        } else if (name == "Value" && dice_.chance(3)) {
            arguments[i] = Value::text("maiuscolo");
        }
    }
}

/// What a host should not do inside an event, but does.
void Player::meddle() {
    if (dice_.chance(25)) {
        tell("throws");
        throw platform::RuntimeError(1000, "host failed", "host");
    }
    Act act = next_act(dice_, manners_, list().Rows(), list().Cols());
    while (act.kind != Act::Kind::call && act.kind != Act::Kind::put) {
        act = next_act(dice_, manners_, list().Rows(), list().Cols());
    }
    ++depth_;
    tell("meddles: " + act.describe());
    guarded([&] { carry_out(act); });
    --depth_;
}

// --- The person, and the host's own acts ---------------------------------------------------------

void Player::perform(const Act& act) {
    guarded([&] { carry_out(act); });
    // What an error left in the queue is delivered too, each error by itself.
    for (int turns = 0; turns < 20; ++turns) {
        const std::size_t before = trace_.size();
        guarded([&] { form_->turn(); });
        if (trace_.size() == before) {
            break;
        }
    }
}

void Player::guarded(const std::function<void()>& what) {
    try {
        what();
    } catch (const platform::RuntimeError& error) {
        tell("error " + std::to_string(error.number()));
    }
}

void Player::carry_out(const Act& act) {
    using Kind = Act::Kind;
    switch (act.kind) {
    case Kind::key:
        form_->key(static_cast<std::int16_t>(act.a), static_cast<std::int16_t>(act.b));
        break;
    case Kind::text:
        form_->text(act.text);
        break;
    case Kind::click:
    case Kind::double_click:
    case Kind::drag:
        mouse(act);
        break;
    case Kind::focus:
        control_->focus(*control_->part(act.name));
        break;
    case Kind::focus_outside:
        form_->focus_outside();
        break;
    case Kind::call:
        call(act);
        break;
    case Kind::put:
        put(act);
        break;
    case Kind::resize:
        control_->resize(static_cast<float>(act.a), static_cast<float>(act.b));
        break;
    }
}

void Player::mouse(const Act& act) {
    using server::MouseAction;
    platform::Part& part = *control_->part(act.name);
    server::Mouse place;
    place.x = static_cast<float>(act.a);
    place.y = static_cast<float>(act.b);
    if (act.kind == Act::Kind::drag) {
        control_->mouse(part, MouseAction::press, place);
        place.y += 500;
        control_->mouse(part, MouseAction::move, place);
        control_->mouse(part, MouseAction::release, place);
        return;
    }
    const bool twice = act.kind == Act::Kind::double_click;
    control_->mouse(part, twice ? MouseAction::double_click : MouseAction::click, place);
}

void Player::call(const Act& act) {
    std::vector<Value> arguments;
    const auto number = [&](int value) { arguments.emplace_back(ValueView::long_integer(value)); };
    if (act.name == "SetInput" || act.name == "EvidenziaFunzione" || act.name == "SetFont") {
        number(act.a);
    } else if (act.name == "RowClick") {
        number(act.a);
        number(1);
        number(0);
    } else if (act.name == "SendKeys") {
        number(act.a);
        number(0);
    }
    const Value result = automation::call(list(), act.name, arguments);
    if (act.name == "SetInput") {
        tell("result " + shown(result));
    }
}

void Player::put(const Act& act) {
    if (act.name == "GiveFocusTo") {
        list().SetGiveFocusTo(objects_[static_cast<std::size_t>(act.a)]);
        return;
    }
    std::vector<Value> indexes;
    const auto index = [&](int value) { indexes.emplace_back(ValueView::long_integer(value)); };
    Value value(ValueView::long_integer(act.a));
    if (act.name == "InputArray" || act.name == "ColFormat") {
        index(act.a);
        value = Value::text(act.text);
    } else if (act.name == "TextMatrix") {
        index(act.a);
        index(act.b);
        value = Value::text(act.text);
    } else if (act.name == "ColEditable") {
        index(act.a);
        value = Value(ValueView::boolean(act.b != 0));
    } else if (act.name == "ColWidth") {
        index(act.a);
        value = Value(ValueView::long_integer(act.b));
    }
    automation::put(list(), act.name, indexes, value);
}

// --- What can be seen ----------------------------------------------------------------------------

std::string Player::state() const {
    std::ostringstream out;
    const KarvoList& face = list();
    out << "Adding " << face.Adding() << " Inserting " << face.Inserting() << " Editing "
        << face.Editing() << " Modified " << face.Modified() << " InputModified "
        << face.InputModified() << " Line1 ";
    const auto& line = dynamic_cast<const platform::Line&>(*control_->part("Line1"));
    out << line.X1() << ' ' << line.X2() << ' ' << line.Y1() << '\n';
    for (const char* name :
         {"Grid", "GridIn", "InpFld", "btnAdd", "btnInsert", "btnCopy", "btnDelete", "btnOK"}) {
        const platform::Part& part = *control_->part(name);
        out << name << (part.Visible() ? " visible" : "") << (part.Enabled() ? " enabled" : "")
            << (part.TabStop() ? " stop" : "") << (control_->has_focus(part) ? " FOCUS" : "") << ' '
            << part.Left() << ' ' << part.Top() << ' ' << part.Width() << ' ' << part.Height()
            << " font " << part.FontSize();
        if (const auto* shown_grid = dynamic_cast<const platform::Grid*>(&part)) {
            show_grid(out, *shown_grid);
        } else if (const auto* button = dynamic_cast<const platform::Button*>(&part)) {
            out << " '" << button->Caption() << "' " << button->BackColor();
        } else {
            out << " '" << editor().Text() << "' " << editor().SelStart() << '+'
                << editor().SelLength() << " of " << editor().MaxLength();
        }
        out << '\n';
    }
    return out.str();
}

} // namespace krv::walk
