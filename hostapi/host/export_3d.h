// Parts and assemblies written in the exchange formats of other systems.
#pragma once

#include "hostapi/host/types.h"

// Formats of ProOutputFileWrite, as far as the plug-in names them.
// Assumed (codes, 60 %): 21 is IGES, 22 is STEP
typedef enum : int {
    PRO_IGES_3D_FILE = 21,
    PRO_STEP_FILE = 22  // application protocol 214
} ProImportExportFile;

// Formats of ProIntf3DFileWrite.
// Assumed (codes, 60 %): 4 is IGES
typedef enum : int {
    PRO_INTF_EXPORT_IGES = 4  // the only one that is asked for
} ProIntf3DFileType;

// How an assembly is divided into files.
// Assumed (codes, 50 %): 2 is several files; the host writes the one of the given name all the same
typedef enum : int {
    PRO_OUTPUT_ASSEMBLY_MULTI_FILES = 2  // likewise
} ProOutputAssemblyConfiguration;

typedef struct VxHostOutputBrepRepresentation* ProOutputBrepRepresentation;  // only null is given
typedef struct VxHostOutputInclusion* ProOutputInclusion;
typedef struct VxHostOutputLayerOptions* ProOutputLayerOptions;

// Writes a part or an assembly into a file of this very name, no ending is added; a path without a
// folder lies in the working folder. The last four are for other formats and null here.
// PRO_TK_BAD_INPUTS: no part or assembly, or another format. PRO_TK_GENERAL_ERROR: the model has no
// solid that could be written. PRO_TK_CANT_WRITE: the file cannot be written; one that was there
// stays as it was.
// Assumed (behaviour, 50 %): a file that is there is replaced
HOST_API ProError ProOutputFileWrite(ProMdl model, ProFileName file, ProImportExportFile format,
                                     ProAppData first, ProAppData second, ProAppData third,
                                     ProAppData fourth);

// The same with records that say what is written. `csys` is where the file's coordinates begin,
// null for the model's own; `representation`, `inclusion` and `layers` may be null: as usual.
// Assumed (parameters, 70 %): these eight, the records by their handles
HOST_API ProError ProIntf3DFileWrite(ProSolid solid, ProIntf3DFileType format, ProPath file,
                                     ProOutputAssemblyConfiguration configuration,
                                     ProSelection csys, ProOutputBrepRepresentation representation,
                                     ProOutputInclusion inclusion, ProOutputLayerOptions layers);

// Receives a new record of what is written beside visible solids: nothing before its flags are set.
HOST_API ProError ProOutputInclusionAlloc(ProOutputInclusion* inclusion);
// Whether datums, hidden components ("blanked") and facets instead of exact faces are written.
HOST_API ProError ProOutputInclusionFlagsSet(ProOutputInclusion inclusion, ProBoolean datums,
                                             ProBoolean blanked, ProBoolean facetted);

// Receives a new record of how layers are written.
HOST_API ProError ProOutputLayerOptionsAlloc(ProOutputLayerOptions* layers);
// Whether layers get numbers of their own.
HOST_API ProError ProOutputLayerOptionsAutoidSet(ProOutputLayerOptions layers, ProBoolean autoId);
