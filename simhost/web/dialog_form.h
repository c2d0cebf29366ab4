// A dialog as the page shows it: what its resource lays out, with what its components hold now.
#pragma once

#include <cstddef>

#include "simhost/ui/dialogs.h"
#include "simhost/ui/table.h"
#include "simhost/web/json_text.h"

namespace simhost {

// So many rows of a table come with the dialog; the page asks for others when they are seen.
constexpr std::size_t kRowsWithDialog = 100;
constexpr std::size_t kMostRowsAtOnce = 500;

// {name, title, defaultButton, closes, layout, layouts, components}: see docs/workbench.md.
Json FormOf(const Dialog& dialog);

// {count, from, rows} of a table, from row number `from` on, counted from 0; at most
// kMostRowsAtOnce of them, none beyond the last.
Json RowsOf(const Table& table, std::size_t from, std::size_t count);

}  // namespace simhost
