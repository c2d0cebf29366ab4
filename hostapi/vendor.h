// The vendor's own headers in the place of ours, for a build against the real host (VX_HOST_SDK).
// Only the four calls for appearances keep our declarations: the kit's headers do not name them.
// Configuring tells which of these headers a kit does not have.
#pragma once

// clang-format off
#include "hostapi/export.h"
#include "hostapi/wide.h"

#include <ProToolkit.h>  // before all others

#include <ProAnnotation.h>
#include <ProArray.h>
#include <ProAsmcomp.h>
#include <ProAsmcomppath.h>
#include <ProCsys.h>
#include <ProDimension.h>
#include <ProDrawing.h>
#include <ProDrawingView.h>
#include <ProEdge.h>
#include <ProDwgtable.h>
#include <ProElement.h>
#include <ProElempath.h>
#include <ProFaminstance.h>
#include <ProFamtable.h>
#include <ProFeatType.h>
#include <ProFeature.h>
#include <ProGeomitem.h>
#include <ProGeomitemdata.h>
#include <ProMaterial.h>
#include <ProGroup.h>
#include <ProIntf3Dexport.h>
#include <ProMdl.h>
#include <ProMenuBar.h>
#include <ProMessage.h>
#include <ProMfg.h>
#include <ProMode.h>
#include <ProModelitem.h>
#include <ProNotify.h>
#include <ProParameter.h>
#include <ProParamval.h>
#include <ProPDF.h>
#include <ProPopupmenu.h>
#include <ProRelSet.h>
#include <ProSelbuffer.h>
#include <ProSelection.h>
#include <ProSimprep.h>
#include <ProSimprepdata.h>
#include <ProSolid.h>
#include <ProSurface.h>
#include <ProTreetool.h>
#include <ProUICheckbutton.h>
#include <ProUICmd.h>
#include <ProUIDialog.h>
#include <ProUIDrawingarea.h>
#include <ProUIInputpanel.h>
#include <ProUIMessage.h>
#include <ProUIOptionmenu.h>
#include <ProUIPushbutton.h>
#include <ProUIRadiogroup.h>
#include <ProUITable.h>
#include <ProUITextarea.h>
#include <ProUnits.h>
#include <ProUdf.h>
#include <ProUtil.h>
#include <ProValue.h>
#include <ProView.h>
#include <ProWindows.h>
#include <ProWstring.h>

#include "hostapi/host/appearance.h"
// clang-format on
