// Models: the current one, names, types.
#pragma once

#include "hostapi/host/types.h"

typedef enum : int {
    PRO_MDL_UNUSED = -1,
    PRO_MDL_ASSEMBLY = 1,
    PRO_MDL_PART = 2,
    PRO_MDL_DRAWING = 4,
    PRO_MDL_DWGFORM = 33,
    PRO_MDL_MFG = 37
} ProMdlType;

typedef enum : int {
    PROMDLSTYPE_NONE = -1,
    PROMDLSTYPE_PART_SOLID = 1,
    PROMDLSTYPE_PART_SHEETMETAL = 4
} ProMdlsubtype;

// The model of the current window. PRO_TK_BAD_CONTEXT: there is none.
HOST_API ProError ProMdlCurrentGet(ProMdl* model);

// The model that is worked on in the current window: a component that the user has activated, else
// the window's own. PRO_TK_BAD_CONTEXT: no model is open.
// Assumed (behaviour, 80 %): an activated component is the active model, and the window's own stays
//   the current one
HOST_API ProError ProMdlActiveGet(ProMdl* model);

// The kind of a model as text: "PRT", "ASM", "DRW" and so on.
#define PRO_TYPE_SIZE 4
// Assumed (record, 25 %): name, kind as text and origin, of which name, kind, device and path are
//   read; the kit's has more fields, and its device and path may be of other lengths
typedef struct VxModelData {
    ProName device;  // the drive without its colon: "C"
    ProPath path;    // the folder without the drive, with a separator at its end: "\Work\"
    ProName name;
    WideChar type[PRO_TYPE_SIZE];
    int version;
} ProMdldata;

// Receives the model's name, its kind as text, and the folder that it came from; for a model that
// was never saved the one that it will be saved in.
HOST_API ProError ProMdlDataGet(ProMdl model, ProMdldata* data);

// The model of this name and type, from memory or from the working folder.
// PRO_TK_E_NOT_FOUND: there is none.
// Assumed (length, 40 %): as ProMdlNameGet
HOST_API ProError ProMdlRetrieve(WideChar* name, ProMdlType type, ProMdl* model);

// The model of a file, by its full path, with or without a version at its end; what lies below it
// is looked for beside it, and then in the working folder, which stays as it is. A model of that
// name that is in memory is taken as it is there. `askUser`: lets the user choose a representation.
// PRO_TK_E_NOT_FOUND: no such file. PRO_TK_INVALID_TYPE: the file is of another type.
// PRO_TK_INVALID_FILE: it cannot be read.
// Assumed (parameters, 70 %): in the order path, type, flag, model
HOST_API ProError ProMdlLoad(ProPath path, ProMdlType type, ProBoolean askUser, ProMdl* model);

// Makes a copy of a model in memory under a new name of 1 to 32 characters. It belongs to the
// working folder, and is on no disk before it is saved; an assembly's copy has the same components.
// PRO_TK_E_FOUND: a model of its type has the name, in memory or in the working folder.
// PRO_TK_BAD_INPUTS: a name that no model can have.
// Assumed (length, 40 %): as ProMdlNameGet
HOST_API ProError ProMdlCopy(ProMdl model, WideChar* name, ProMdl* copy);

// Gives the model another name, of 1 to 32 characters: in memory, in whatever refers to it there,
// and for all versions of its file in the folder that it came from, which keep their numbers. What
// refers to it counts as changed, and has the old name on disk until it is saved.
// PRO_TK_E_FOUND: a model of its type has the name, in memory or on disk, be it this one in other
// letters. PRO_TK_BAD_INPUTS: a name that no model can have. PRO_TK_CANT_WRITE: a file is held or
// read-only. Then nothing has changed.
// Assumed (behaviour, 60 %): the versions on disk are renamed at once, and nothing is if one of
//   them cannot be
// Assumed (length, 40 %): as ProMdlNameGet
HOST_API ProError ProMdlRename(ProMdl model, WideChar* name);

// Takes a model out of memory; its files stay. PRO_TK_E_FOUND: something in memory needs it, or a
// window shows it; then it stays.
// Assumed (behaviour, 70 %): refused while something in memory needs the model
HOST_API ProError ProMdlErase(ProMdl model);

// Takes out of memory whatever no window shows and nothing shown needs, saved or not; the files
// stay. All handles of what is gone end. PRO_TK_E_NOT_FOUND: no model is in memory.
// Assumed (behaviour, 70 %): takes what was changed and never saved as well, without a question
HOST_API ProError ProMdlEraseNotDisplayed();

// Writes the next version of this one model into the folder that it came from, or into the working
// folder if the option override_store_back is "yes". PRO_TK_CANT_WRITE: that cannot be done.
HOST_API ProError ProMdlSave(ProMdl model);

// Writes the model, as it is in memory, and all that it needs into the folder of the record's path,
// each as the next version there; what lies there with the same bytes is not written again. The
// record is the one of ProMdlDataGet with another path: one without a drive lies on its device. The
// model in memory goes on belonging to the folder that it came from.
// PRO_TK_BAD_INPUTS: an empty path. PRO_TK_INVALID_DIR: no such folder. PRO_TK_CANT_WRITE: a file
// could not be written; the user is told which.
// Assumed (behaviour, 50 %): takes the whole path, with its drive, in the path's field, whatever
//   the device's field says
HOST_API ProError ProMdlBackup(ProMdl model, ProMdldata* data);

// Whether the model may be changed. `checkAll`: also asks what a release or a workspace says.
// Assumed (behaviour, 30 %): the flag, set to 1, asks to look at everything. If it means "show a
//   dialog about conflicts", a batch may show one for each generic
HOST_API ProError ProMdlIsModifiable(ProMdl model, ProBoolean checkAll, ProBoolean* modifiable);

// Receives the model's name, without its type, in capitals as far as it is ASCII. One of 32
// characters fills the record to its end, without a terminator.
// Assumed (length, 40 %): a name has at most 31 characters. Newer hosts allow longer ones and have
//   newer calls: see what this one answers then
HOST_API ProError ProMdlNameGet(ProMdl model, ProName name);

HOST_API ProError ProMdlTypeGet(ProMdl model, ProMdlType* type);
// Assumed (codes, 70 %): the enumeration is named ProMdlsubtype; sheet metal is 4
HOST_API ProError ProMdlSubtypeGet(ProMdl model, ProMdlsubtype* subtype);

// Receives 1 for a skeleton model, which holds the design's references and no product, else 0.
// Assumed (parameters, 75 %): takes the model and the place for a ProBoolean
HOST_API ProError ProMdlIsSkeleton(ProMdl model, ProBoolean* skeleton);

// The model as an item, as which it owns parameters and relations.
HOST_API ProError ProMdlToModelitem(ProMdl model, ProModelitem* item);

// The assembly that a manufacturing model works on. PRO_TK_BAD_INPUTS: not such a model.
// Assumed (parameters, 70 %): takes the manufacturing model and the place for its assembly's handle
HOST_API ProError ProMfgAssemGet(ProMfg manufacturing, ProAssembly* assembly);
