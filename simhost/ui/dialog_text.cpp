// Dialogs as text: every grid becomes a block of lines, its columns set side by side.
#include <algorithm>

#include "simhost/core/text.h"
#include "simhost/ui/dialogs.h"
#include "simhost/ui/text_frame.h"

namespace simhost {
namespace {

using Block = std::vector<std::string>;

std::size_t WidthOf(const Block& block) {
    std::size_t width = 0;
    for (const std::string& line : block) width = std::max(width, DisplayWidth(line));
    return width;
}

Block Draw(const Dialog& dialog, const Grid& grid);

Block DrawChild(const Dialog& dialog, const Grid& child) {
    if (child.component.empty()) return Draw(dialog, child);
    const Component* component = dialog.Find(child.component);
    if (!component || !component->visible) return {};
    const auto& layouts = dialog.resource().layouts;
    if (const auto inner = layouts.find(child.component); inner != layouts.end()) {
        const Block block = Draw(dialog, inner->second);
        return component->label.empty() ? block : Framed(Utf8(component->label), block);
    }
    return component->Picture();
}

Block Draw(const Dialog& dialog, const Grid& grid) {
    const std::size_t columns = grid.cols.size();
    std::vector<Block> cells;
    std::vector<std::size_t> widths(columns);
    for (std::size_t i = 0; i < grid.children.size(); ++i) {
        cells.push_back(DrawChild(dialog, grid.children[i]));
        widths[i % columns] = std::max(widths[i % columns], WidthOf(cells.back()));
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
                if (i > row * columns) line += "  ";
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
        lines = Draw(dialog, own->second);
    } else {
        // Without a layout of its own the components stand below each other.
        for (const auto& component : dialog.components()) {
            if (!component->visible) continue;
            for (const std::string& line : component->Picture()) lines.push_back(line);
        }
    }
    return Framed(Utf8(dialog.title()), lines);
}

}  // namespace simhost
