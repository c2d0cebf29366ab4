// The vendor's own headers in the place of ours, for a build against the real host (VX_HOST_SDK).
// Only the four calls for appearances keep our declarations: the kit's headers do not name them.
#pragma once

#include "hostapi/export.h"
#include "hostapi/wide.h"

#include <ProToolkit.h>

#include <ProArray.h>
#include <ProAsmcomp.h>
#include <ProFeature.h>
#include <ProFeatType.h>
#include <ProMdl.h>
#include <ProMenuBar.h>
#include <ProMessage.h>
#include <ProMfg.h>
#include <ProModelitem.h>
#include <ProMode.h>
#include <ProNotify.h>
#include <ProPopupmenu.h>
#include <ProSelbuffer.h>
#include <ProSelection.h>
#include <ProSolid.h>
#include <ProSurface.h>
#include <ProUICmd.h>
#include <ProUIDialog.h>
#include <ProUIMessage.h>
#include <ProUIPushbutton.h>
#include <ProUtil.h>
#include <ProWindows.h>
#include <ProWstring.h>

#include "hostapi/host/appearance.h"
