#include "server/form_parts.h"
#include "server/methods.h"
#include "server/values.h"

#include "krv/platform/grid.h"

#include <algorithm>
#include <string>

namespace krv::server {

namespace {

Json describe_surface(FormControl& control) {
    platform::Container& surface = control.surface();
    const auto parts = surface.Controls();
    const bool focused = std::any_of(parts.begin(), parts.end(), [&](const platform::Part* part) {
        return control.has_focus(*part);
    });
    return {{"Width", shortest(surface.Width())},
            {"Height", shortest(surface.Height())},
            {"FontSize", shortest(surface.FontSize())},
            {"BackColor", surface.BackColor()},
            {"Focused", focused}};
}

void add_own_members(Json& result, const platform::Grid& grid) {
    result.update({{"Rows", grid.Rows()},
                   {"Cols", grid.Cols()},
                   {"Row", grid.Row()},
                   {"Col", grid.Col()},
                   {"RowSel", grid.RowSel()},
                   {"ColSel", grid.ColSel()},
                   {"TopRow", grid.TopRow()}});
}

void add_own_members(Json& result, const platform::TextBox& box) {
    result.update({{"Text", box.Text()},
                   {"MaxLength", box.MaxLength()},
                   {"SelStart", box.SelStart()},
                   {"SelLength", box.SelLength()}});
}

void add_own_members(Json& result, const platform::Button& button) {
    result.update({{"Caption", button.Caption()}, {"BackColor", button.BackColor()}});
}

void add_own_members(Json& result, const platform::Line& line) {
    result.update({{"X1", shortest(line.X1())},
                   {"X2", shortest(line.X2())},
                   {"Y1", shortest(line.Y1())},
                   {"Y2", shortest(line.Y2())}});
}

Json describe_part(const FormControl& control, const platform::Part& part) {
    Json result = {{"Visible", part.Visible()},
                   {"Enabled", part.Enabled()},
                   {"Left", shortest(part.Left())},
                   {"Top", shortest(part.Top())},
                   {"Width", shortest(part.Width())},
                   {"Height", shortest(part.Height())},
                   {"FontSize", shortest(part.FontSize())},
                   {"Focused", control.has_focus(part)}};
    if (const auto* const line = dynamic_cast<const platform::Line*>(&part)) {
        add_own_members(result, *line);
        return result; // a line has no tab stop to ask for
    }
    result["TabStop"] = part.TabStop();
    if (const auto* const grid = dynamic_cast<const platform::Grid*>(&part)) {
        add_own_members(result, *grid);
    } else if (const auto* const box = dynamic_cast<const platform::TextBox*>(&part)) {
        add_own_members(result, *box);
    } else if (const auto* const button = dynamic_cast<const platform::Button*>(&part)) {
        add_own_members(result, *button);
    }
    return result;
}

Json part(ServerState& state, const Params& params) {
    FormControl& control = state.controls.find(params.text("id")).form_control();
    const std::string& name = params.text("name");
    return name == "control" ? describe_surface(control)
                             : describe_part(control, part_named(control, name));
}

platform::Grid& grid_of(ServerState& state, const Params& params) {
    FormControl& control = state.controls.find(params.text("id")).form_control();
    auto* const grid = dynamic_cast<platform::Grid*>(&part_named(control, params.text("part")));
    if (grid == nullptr) {
        fail_parameter("part", "no grid");
    }
    return *grid;
}

/// Rows from and to, both included; none when `from` stands behind `to`.
struct RowRange {
    std::int32_t from = 0;
    std::int32_t to = 0;

    bool is_empty() const { return from > to; }
};

Json cells(ServerState& state, const Params& params) {
    const platform::Grid& grid = grid_of(state, params);
    const RowRange range{params.long_integer("from"), params.long_integer("to")};
    Json rows = Json::array();
    if (!range.is_empty()) {
        // What the range lacks is known before a million rows are read.
        grid.TextMatrix(range.from, 0);
        grid.TextMatrix(range.to, 0);
    }
    for (std::int32_t row = range.from; row <= range.to; ++row) {
        Json& texts = rows.emplace_back(Json::array());
        for (std::int32_t col = 0; col < grid.Cols(); ++col) {
            texts.push_back(std::string(grid.TextMatrix(row, col)));
        }
    }
    return {{"rows", std::move(rows)}};
}

Json column_geometry(const platform::Grid& grid) {
    Json widths = Json::array();
    Json alignments = Json::array();
    Json places = Json::array();
    for (std::int32_t col = 0; col < grid.Cols(); ++col) {
        widths.push_back(grid.ColWidth(col));
        alignments.push_back(grid.ColAlignment(col));
        places.push_back(grid.ColPos(col));
    }
    return {{"ColWidth", std::move(widths)},
            {"ColAlignment", std::move(alignments)},
            {"ColPos", std::move(places)}};
}

Json row_geometry(const platform::Grid& grid, const RowRange& range) {
    Json heights = Json::array();
    Json places = Json::array();
    if (!range.is_empty()) {
        grid.RowHeight(range.from);
        grid.RowHeight(range.to);
    }
    for (std::int32_t row = range.from; row <= range.to; ++row) {
        heights.push_back(grid.RowHeight(row));
        places.push_back(grid.RowPos(row));
    }
    return {{"RowHeight", std::move(heights)}, {"RowPos", std::move(places)}};
}

RowRange row_range(const Json& ends) {
    if (ends.size() != 2) {
        fail_parameter("rows", "not two numbers");
    }
    const Json named = {{"from", ends[0]}, {"to", ends[1]}};
    const Params range(named);
    return {range.long_integer("from"), range.long_integer("to")};
}

Json geometry(ServerState& state, const Params& params) {
    const platform::Grid& grid = grid_of(state, params);
    if (params.has("rows")) {
        return row_geometry(grid, row_range(params.array("rows")));
    }
    if (!params.boolean("cols")) {
        fail_parameter("cols", "not true");
    }
    return column_geometry(grid);
}

constexpr Method methods[] = {{"part", part}, {"cells", cells}, {"geometry", geometry}};

} // namespace

std::span<const Method> part_methods() {
    return methods;
}

} // namespace krv::server
