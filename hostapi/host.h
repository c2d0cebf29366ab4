// The host's operations that the plug-in calls, under their published names and parameter lists.
// One header per topic lies in host/; a room includes this one. A build with VX_HOST_SDK takes the
// vendor's own headers in their place (see docs/host-operations.md), and no other line changes.
//
// Contracts common to all operations:
//   - An operation returns 0 (PRO_TK_NO_ERROR) on success, otherwise a negative status; outputs
//     are then left as they were.
//   - Text parameters are read, never written, unless the comment says "receives". They are not
//     const because the published lists are not.
//   - Codes are enumerations, and a host may answer one that is not listed: each has int beneath,
//     so that such a value is no mistake of the program.
//   - Handles are the host's: the plug-in never frees one unless the comment says so.
#pragma once

#ifdef VX_HOST_SDK
#include "hostapi/vendor.h"
#else
#include "hostapi/host/appearance.h"
#include "hostapi/host/array.h"
#include "hostapi/host/assembly.h"
#include "hostapi/host/command.h"
#include "hostapi/host/component_path.h"
#include "hostapi/host/config.h"
#include "hostapi/host/csys.h"
#include "hostapi/host/dialog.h"
#include "hostapi/host/dialog_checkbutton.h"
#include "hostapi/host/dialog_drawingarea.h"
#include "hostapi/host/dialog_inputpanel.h"
#include "hostapi/host/dialog_optionmenu.h"
#include "hostapi/host/dialog_radiogroup.h"
#include "hostapi/host/dialog_table.h"
#include "hostapi/host/dialog_textarea.h"
#include "hostapi/host/dimension.h"
#include "hostapi/host/drawing.h"
#include "hostapi/host/drawing_sheet.h"
#include "hostapi/host/drawing_table.h"
#include "hostapi/host/drawing_template.h"
#include "hostapi/host/drawing_view.h"
#include "hostapi/host/edge.h"
#include "hostapi/host/element.h"
#include "hostapi/host/export2d.h"
#include "hostapi/host/export_3d.h"
#include "hostapi/host/family_table.h"
#include "hostapi/host/feature.h"
#include "hostapi/host/file_dialog.h"
#include "hostapi/host/files_list.h"
#include "hostapi/host/geometry.h"
#include "hostapi/host/group.h"
#include "hostapi/host/material.h"
#include "hostapi/host/message.h"
#include "hostapi/host/model.h"
#include "hostapi/host/modelitem.h"
#include "hostapi/host/outline.h"
#include "hostapi/host/parameter.h"
#include "hostapi/host/pdf.h"
#include "hostapi/host/relation.h"
#include "hostapi/host/selection.h"
#include "hostapi/host/session.h"
#include "hostapi/host/sheet_metal.h"
#include "hostapi/host/simprep.h"
#include "hostapi/host/solid.h"
#include "hostapi/host/treetool.h"
#include "hostapi/host/types.h"
#include "hostapi/host/units.h"
#include "hostapi/host/view.h"
#include "hostapi/host/window.h"
#endif
