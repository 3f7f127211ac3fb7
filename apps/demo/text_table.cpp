#include "text_table.h"

#include "text_width.h"

#include <algorithm>
#include <ostream>
#include <string>
#include <vector>

namespace krv::demo {

namespace {

using Line = std::vector<std::string>;

Line line_of(const KarvoList& list, std::int32_t row) {
    Line line;
    for (std::int32_t col = 0; col < list.Cols(); ++col) {
        line.push_back(one_line(list.TextMatrix(row, col)));
    }
    return line;
}

std::vector<int> widths_of(const std::vector<Line>& lines, std::size_t cols) {
    std::vector<int> widths(cols, 0);
    for (const Line& line : lines) {
        for (std::size_t col = 0; col < cols; ++col) {
            widths[col] = std::max(widths[col], text_width(line[col]));
        }
    }
    return widths;
}

/// Blanks in front of a text in a column with so many to spare.
int blanks_before(std::int32_t alignment, int spare) {
    switch (alignment) {
    case krvright:
        return spare;
    case krvcenter:
        return spare / 2;
    default:
        return 0;
    }
}

std::string padded(const std::string& text, std::int32_t alignment, int width) {
    const int spare = width - text_width(text);
    const int before = blanks_before(alignment, spare);
    return std::string(static_cast<std::size_t>(before), ' ') + text +
           std::string(static_cast<std::size_t>(spare - before), ' ');
}

void print_line(std::ostream& out, const std::vector<std::string>& cells) {
    std::string line;
    for (const std::string& cell : cells) {
        line += (line.empty() ? "" : "  ") + cell;
    }
    line.erase(line.find_last_not_of(' ') + 1);
    out << line << '\n';
}

} // namespace

void print_table(std::ostream& out, const KarvoList& list, std::int32_t rows) {
    constexpr std::int32_t caption_row = -1;
    std::vector<Line> lines{line_of(list, caption_row)};
    for (std::int32_t row = 0; row < std::min(rows, list.Rows()); ++row) {
        lines.push_back(line_of(list, row));
    }
    const std::vector<int> widths = widths_of(lines, lines.front().size());
    Line rule;
    for (const int width : widths) {
        rule.emplace_back(static_cast<std::size_t>(width), '-');
    }
    for (std::size_t i = 0; i < lines.size(); ++i) {
        Line cells;
        for (std::size_t col = 0; col < widths.size(); ++col) {
            const std::int32_t alignment = list.ColAlignment(static_cast<std::int32_t>(col));
            cells.push_back(padded(lines[i][col], alignment, widths[col]));
        }
        print_line(out, cells);
        if (i == 0) {
            print_line(out, rule);
        }
    }
}

} // namespace krv::demo
