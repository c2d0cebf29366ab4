// How a row of the command table is written: what follows from a command's name is derived from it,
// so that a row says only what it has of its own.
#pragma once

#include <algorithm>
#include <cstddef>
#include <stdexcept>
#include <string_view>

#include "frame/command_table.h"
#include "frame/services/guard.h"

// A command's name as a template argument.
template <std::size_t Size>
struct CommandName {
    char text[Size];
    consteval CommandName(const char (&name)[Size]) { std::copy_n(name, Size, text); }
};

// A name with something after it. The text is part of the module and lives as long as it.
template <CommandName Name, CommandName Ending>
inline constexpr auto kJoined = [] {
    constexpr std::size_t length = sizeof Name.text - 1;
    std::array<char, length + sizeof Ending.text> text = {};
    std::copy_n(Name.text, length, text.begin());
    std::copy_n(Ending.text, sizeof Ending.text, text.begin() + length);
    return text;
}();

// A row in the making: the command's own texts unless the row says otherwise.
struct RowMaker {
    CommandRow row;

    constexpr RowMaker Help(const char* key) const { return With(&CommandRow::helpKey, key); }
    constexpr RowMaker Icon(const char* file) const { return With(&CommandRow::icon, file); }
    constexpr RowMaker NoIcon() const { return With(&CommandRow::icon, nullptr); }
    // Not offered for the customising of the ribbon.
    constexpr RowMaker MenuOnly() const {
        RowMaker changed = *this;
        changed.row.designated = false;
        return changed;
    }
    constexpr operator CommandRow() const { return row; }

private:
    constexpr RowMaker With(const char* CommandRow::*text, const char* value) const {
        RowMaker changed = *this;
        changed.row.*text = value;
        return changed;
    }
};

// The row of a command: Row<"VxBom">(Command<VxBom>, AccessAssemblyOrMfg).
template <CommandName Name>
constexpr RowMaker Row(uiCmdCmdActFn action, uiCmdAccessFn access) {
    return {{Name.text, kJoined<Name, "_Help">.data(), kJoined<Name, ".png">.data(), action, access,
             /*designated=*/true}};
}

// The row of this name in a table. A name without a row is refused by the compiler.
template <std::size_t Size>
consteval const CommandRow* RowOf(const std::array<CommandRow, Size>& table,
                                  std::string_view name) {
    for (const CommandRow& row : table) {
        if (row.name == name) return &row;
    }
    throw std::logic_error("no such command");
}
