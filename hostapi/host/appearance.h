// Appearances of parts, assemblies and surfaces, by the host's older database calls.
// They return 0 on success.
#pragma once

#include "hostapi/host/types.h"

// Item types of these calls: the whole object (with id -1), or a surface (with its id).
#define PRODB_WHOLE_OBJECT 69
#define PRODB_SURFACE 2

// How something looks: all values 0 to 1.
// Assumed (record, 40 %): thirteen 64-bit numbers in this order, under a name of ours. No compiler
//   can tell: colour a part and read it back first
typedef struct ProdbSurfaceProps {
    double ambient;
    double diffuse;
    double highlight;
    double shininess;
    double reserved;
    double transparency;
    double colour[3];           // red, green, blue
    double highlightColour[3];  // red, green, blue
    double reflection;
} ProdbSurfaceProps;

// The host's object of a model, by its name and kind "PRT" or "ASM"; null where there is none.
// Assumed (parameters, 50 %): name wide, kind narrow ("PRT", "ASM"); null when there is no such
//   object. No kit's headers name it: see first whether the libraries offer it
HOST_API Prohandle prodb_get_object_ptr(WideChar* name, char* kind);

// Receives the appearance of the item: its own, or what it shows without one of its own.
// Assumed (parameters, 50 %): in the order object, item type, id, an unused integer 0, record; 0 on
//   success; the two others alike
HOST_API int prodb_get_surface_props(Prohandle object, int itemType, int id, int unused,
                                     ProdbSurfaceProps* props);

// Gives the item an appearance of its own.
HOST_API int prodb_set_surface_props(Prohandle object, int itemType, int id, int unused,
                                     ProdbSurfaceProps* props);

// Takes the item's own appearance away, so that it shows that of the whole.
HOST_API int prodb_unset_surface_props(Prohandle object, int itemType, int id, int unused);
