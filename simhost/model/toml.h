// The TOML library, for every file that reads models, so that all see it alike.
#pragma once

// The parser checks itself by assertions that some broken files set off; without them it goes on
// and says what is wrong with the file.
#define TOML_ASSERT(expr) static_cast<void>(0)

#include <toml++/toml.h>
