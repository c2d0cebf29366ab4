// The action of commands that are in the menu but not built yet: a notice that names the command.
#pragma once

#include <algorithm>
#include <cstddef>

#include "frame/services/guard.h"

// A command's name as a template argument, since an action is told nothing when it is called.
template <std::size_t Size>
struct CommandName {
    char text[Size];
    consteval CommandName(const char (&name)[Size]) { std::copy_n(name, Size, text); }
};

void ShowNotBuilt(const char* command);

template <CommandName Name>
void NotBuiltAction() {
    ShowNotBuilt(Name.text);
}
