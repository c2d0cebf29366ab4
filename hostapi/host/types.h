// The host's basic records, handles, sizes and status numbers, shared by all topics of the door.
#pragma once

#include "hostapi/export.h"
#include "hostapi/wide.h"

#ifndef VX_HOST_SDK

// Sizes in characters, terminator included.
#define PRO_NAME_SIZE 32
#define PRO_PATH_SIZE 260
#define PRO_LINE_SIZE 81

typedef WideChar ProName[PRO_NAME_SIZE];  // a model's, feature's or parameter's name
typedef WideChar ProPath[PRO_PATH_SIZE];  // a full path
typedef WideChar ProLine[PRO_LINE_SIZE];  // a line of the message area
// Assumed (record, 25 %): 260 characters; 80 in some kits. Only null is handed over for one
typedef WideChar ProFileName[PRO_PATH_SIZE];
typedef WideChar ProMacro[PRO_PATH_SIZE];  // passed as a pointer; macros may be longer than this

typedef enum : int { PRO_B_FALSE = 0, PRO_B_TRUE = 1 } ProBoolean;
typedef void* ProAppData;      // handed back to a callback untouched
typedef void* ProArray;        // an expandable array; points at its first element
typedef int (*ProFunction)();  // a callback whose real parameter list its event tells

typedef enum : int {
    PRO_TK_NO_ERROR = 0,
    PRO_TK_GENERAL_ERROR = -1,
    PRO_TK_BAD_INPUTS = -2,
    PRO_TK_USER_ABORT = -3,
    PRO_TK_E_NOT_FOUND = -4,
    PRO_TK_E_FOUND = -5,
    PRO_TK_LINE_TOO_LONG = -6,
    PRO_TK_CONTINUE = -7,
    PRO_TK_BAD_CONTEXT = -8,
    PRO_TK_NOT_IMPLEMENTED = -9,
    PRO_TK_OUT_OF_MEMORY = -10,
    PRO_TK_COMM_ERROR = -11,
    PRO_TK_NO_CHANGE = -12,
    PRO_TK_SUPP_PARENTS = -13,
    PRO_TK_PICK_ABOVE = -14,
    PRO_TK_INVALID_DIR = -15,
    PRO_TK_INVALID_FILE = -16,
    PRO_TK_CANT_WRITE = -17,
    PRO_TK_INVALID_TYPE = -18,
    PRO_TK_INVALID_PTR = -19,
    PRO_TK_UNAV_SEC = -20,
    PRO_TK_INVALID_MATRIX = -21,
    PRO_TK_INVALID_NAME = -22,
    PRO_TK_NOT_EXIST = -23,
    PRO_TK_CANT_OPEN = -24,
    PRO_TK_ABORT = -25,
    PRO_TK_NOT_VALID = -26,
    PRO_TK_INVALID_ITEM = -27,
    PRO_TK_MSG_NOT_FOUND = -28,
    PRO_TK_MSG_NO_TRANS = -29,
    PRO_TK_MSG_FMT_ERROR = -30,
    PRO_TK_MSG_USER_QUIT = -31,
    PRO_TK_MSG_TOO_LONG = -32,
    PRO_TK_CANT_ACCESS = -33,
    PRO_TK_CRE_VIEW_BAD_SHEET = -50,
    PRO_TK_CRE_VIEW_BAD_MODEL = -51,
    PRO_TK_CRE_VIEW_BAD_PARENT = -52,
    PRO_TK_CRE_VIEW_BAD_EXPLODE = -54,
    PRO_TK_DWGCREATE_ERRORS = -57,
    PRO_TK_NO_PERMISSION = -59
} ProError;

// Kinds of items, as far as the plug-in meets them. ProMdlType uses the same numbers for models.
typedef enum : int {
    PRO_TYPE_UNUSED = -1,
    PRO_ASSEMBLY = 1,
    PRO_PART = 2,
    PRO_FEATURE = 3,
    PRO_DRAWING = 4,
    PRO_SURFACE = 5,
    PRO_EDGE = 6,
    PRO_DIMENSION = 8,
    PRO_CSYS = 25,
    PRO_DWGFORM = 33,
    PRO_MFG = 37,
    PRO_QUILT = 66,
    // Assumed (codes, 40 %): the host alone fills it in and reads it
    PRO_SIMP_REP = 77,
    PRO_CURVE = 71,
    PRO_COMP_CURVE = 72,
    // Assumed (codes, 40 %): the host alone fills it in and reads it
    PRO_DRAW_TABLE = 84,
    // Assumed (names, 70 %): the kit knows bodies; one older than those has no such name, and
    //   frame/access.cpp needs the number
    PRO_BODY = 176
} ProType;

// The host's objects. Two handles name the same object exactly when they are equal; their numeric
// order says nothing.
typedef void* ProMdl;
typedef struct VxHostSolid* ProSolid;  // a part or an assembly
typedef ProSolid ProAssembly;
typedef ProSolid ProPart;
typedef ProSolid ProMfg;  // a manufacturing model
typedef struct VxHostSurface* ProSurface;
typedef struct VxHostCsys* ProCsys;  // a coordinate system
typedef struct VxHostEdge* ProEdge;
typedef struct VxHostSelection* ProSelection;
typedef void* Prohandle;  // an object of the older database calls

// An item of a model: kind, id, and the model that owns it. Features and components are such items.
typedef struct pro_model_item {
    ProType type;
    int id;
    ProMdl owner;
} ProModelitem, ProGeomitem, ProFeature, ProAsmcomp;

#endif
