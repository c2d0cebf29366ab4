// The services that all rooms build on, in one include: text and numbers, paths and settings,
// messages and dialogs, models and parameters, the assembly walk, host arrays and the guards around
// callbacks, and the shell of Windows.
#pragma once

#include "frame/services/assembly_walk.h"
#include "frame/services/column_list.h"
#include "frame/services/component_tree.h"
#include "frame/services/dialog.h"
#include "frame/services/fixed_text.h"
#include "frame/services/guard.h"
#include "frame/services/host_array.h"
#include "frame/services/host_record.h"
#include "frame/services/host_version.h"
#include "frame/services/left_to_host.h"
#include "frame/services/messages.h"
#include "frame/services/models.h"
#include "frame/services/numbers.h"
#include "frame/services/occurrences.h"
#include "frame/services/options.h"
#include "frame/services/parameter_text.h"
#include "frame/services/parameters.h"
#include "frame/services/paths.h"
#include "frame/services/pick.h"
#include "frame/services/settings.h"
#include "frame/services/shell.h"
#include "frame/services/surface_boxes.h"
#include "frame/services/table.h"
#include "frame/services/text.h"
