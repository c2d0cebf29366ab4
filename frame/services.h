// The services that all commands share, in one include: text, paths, settings, messages, dialogs,
// the assembly walk, host arrays and the guards around callbacks.
#pragma once

#include "frame/assembly_walk.h"
#include "frame/dialogs.h"
#include "frame/fixed_text.h"
#include "frame/guard.h"
#include "frame/host_array.h"
#include "frame/messages.h"
#include "frame/paths.h"
#include "frame/settings.h"
#include "frame/text.h"
