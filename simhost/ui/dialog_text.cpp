// Dialogs as text: every grid becomes a block of lines, its columns set side by side.
#include <algorithm>
#include <numeric>

#include "simhost/core/text.h"
#include "simhost/ui/dialogs.h"
#include "simhost/ui/text_frame.h"

namespace simhost {
namespace {

using Block = std::vector<std::string>;

constexpr std::size_t kGap = 2;  // between two columns

std::size_t WidthOf(const Block& block) {
    std::size_t width = 0;
    for (const std::string& line : block) width = std::max(width, DisplayWidth(line));
    return width;
}

// The grid of a child: the child itself, or what a layout component holds.
const Grid* GridOf(const Dialog& dialog, const Grid& child) {
    if (child.component.empty()) return &child;
    const auto& layouts = dialog.resource().layouts;
    const auto inner = layouts.find(child.component);
    return inner == layouts.end() ? nullptr : &inner->second;
}

const Component* ShownComponent(const Dialog& dialog, const Grid& child) {
    const Component* component = dialog.Find(child.component);
    return component && component->visible ? component : nullptr;
}

// A layout component with a label gets a frame that bears it.
constexpr std::size_t kFrameColumns = 4;
bool HasFrame(const Dialog& dialog, const Grid& child) {
    const Component* component = dialog.Find(child.component);
    return component && !component->label.empty() && GridOf(dialog, child);
}

std::size_t NaturalWidth(const Dialog& dialog, const Grid& grid);

// The widths of the grid's columns without any spare room.
std::vector<std::size_t> ColumnWidths(const Dialog& dialog, const Grid& grid) {
    std::vector<std::size_t> widths(grid.cols.size());
    for (std::size_t i = 0; i < grid.children.size(); ++i) {
        const Grid& child = grid.children[i];
        const bool shown = child.component.empty() || ShownComponent(dialog, child);
        if (!shown) continue;
        const Grid* inner = GridOf(dialog, child);
        const std::size_t frame = HasFrame(dialog, child) ? kFrameColumns : 0;
        const std::size_t width = inner ? NaturalWidth(dialog, *inner) + frame
                                        : WidthOf(ShownComponent(dialog, child)->Picture());
        widths[i % widths.size()] = std::max(widths[i % widths.size()], width);
    }
    return widths;
}

std::size_t NaturalWidth(const Dialog& dialog, const Grid& grid) {
    const std::vector<std::size_t> widths = ColumnWidths(dialog, grid);
    return std::accumulate(widths.begin(), widths.end(), kGap * (widths.size() - 1));
}

// Shares spare room among the columns that want some, as the resource's numbers say.
void Stretch(const std::vector<int>& weights, std::size_t spare, std::vector<std::size_t>* widths) {
    int left = 0;
    for (const int weight : weights) left += std::max(weight, 0);
    for (std::size_t i = 0; i < widths->size() && left > 0; ++i) {
        const int weight = std::max(weights[i], 0);
        const std::size_t share =
            spare * static_cast<std::size_t>(weight) / static_cast<std::size_t>(left);
        (*widths)[i] += share;
        spare -= share;
        left -= weight;
    }
}

// The grid as lines that are at most `width` columns wide.
Block Draw(const Dialog& dialog, const Grid& grid, std::size_t width) {
    const std::size_t columns = grid.cols.size();
    std::vector<std::size_t> widths = ColumnWidths(dialog, grid);
    const std::size_t natural = NaturalWidth(dialog, grid);
    if (width > natural) Stretch(grid.cols, width - natural, &widths);
    std::vector<Block> cells;
    for (std::size_t i = 0; i < grid.children.size(); ++i) {
        const Grid& child = grid.children[i];
        const Component* component =
            child.component.empty() ? nullptr : ShownComponent(dialog, child);
        const Grid* inner = GridOf(dialog, child);
        if (!child.component.empty() && !component) {
            cells.emplace_back();
        } else if (!inner) {
            cells.push_back(component->Picture());
        } else if (HasFrame(dialog, child)) {
            const std::size_t room = std::max(widths[i % columns], kFrameColumns) - kFrameColumns;
            Block inside = Draw(dialog, *inner, room);
            if (!inside.empty()) inside[0] = Padded(inside[0], room);  // the frame fills its cell
            cells.push_back(Framed(Utf8(component->label), inside));
        } else {
            cells.push_back(Draw(dialog, *inner, widths[i % columns]));
        }
    }
    Block lines;
    for (std::size_t row = 0; row * columns < cells.size(); ++row) {
        const std::size_t end = std::min((row + 1) * columns, cells.size());
        std::size_t height = 0;
        for (std::size_t i = row * columns; i < end; ++i) {
            height = std::max(height, cells[i].size());
        }
        for (std::size_t k = 0; k < height; ++k) {
            std::string line;
            for (std::size_t i = row * columns; i < end; ++i) {
                if (i > row * columns) line += std::string(kGap, ' ');
                line += Padded(k < cells[i].size() ? cells[i][k] : "", widths[i % columns]);
            }
            lines.push_back(line.substr(0, line.find_last_not_of(' ') + 1));
        }
    }
    return lines;
}

}  // namespace

std::vector<std::string> DialogText(const Dialog& dialog) {
    const auto& layouts = dialog.resource().layouts;
    Block lines;
    if (const auto own = layouts.find(""); own != layouts.end()) {
        lines = Draw(dialog, own->second, NaturalWidth(dialog, own->second));
    } else {
        // Without a layout of its own the components are one below the other.
        for (const auto& component : dialog.components()) {
            if (!component->visible) continue;
            for (const std::string& line : component->Picture()) lines.push_back(line);
        }
    }
    return Framed(Utf8(dialog.title()), lines);
}

}  // namespace simhost
