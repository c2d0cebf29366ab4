// The host at a terminal: the lines of a trail, typed by hand.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "simhost/trail/source.h"

namespace simhost {

// Lines from the terminal, with a prompt that shows what waits, a history that is kept from one day
// to the next, and the Tab key. Where standard input is no terminal its lines are read as a script.
std::unique_ptr<Source> PromptSource();

// Whether somebody sits at a terminal.
bool IsTyped();

// The words that can end what was typed so far: steps, @ words, commands, dialogs
// and their components, models. Each replaces the last word of the line.
std::vector<std::string> Completions(const std::string& line);

// The word that a completion replaces: what follows the line's last break.
std::string WordAtEnd(const std::string& line);

}  // namespace simhost
