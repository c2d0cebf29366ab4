// Element trees, from which features are made: elements by their ids, some with a value, below one
// root; and the features themselves.
#pragma once

#include "hostapi/host/feature.h"
#include "hostapi/host/selection.h"
#include "hostapi/host/types.h"

typedef int ProElemId;
typedef struct VxHostElement* ProElement;
typedef struct VxHostElempath* ProElempath;  // only null is handed over
typedef struct VxHostValue* ProValue;

// Kinds of values, as far as they are used.
typedef enum : int {
    PRO_VALUE_TYPE_INT = 1,
    PRO_VALUE_TYPE_WSTRING = 5,
    PRO_VALUE_TYPE_SELECTION = 6,
} ProValueDataType;

// Assumed (record, 50 %): the kind, and a union of 8 bytes; a kit may have one of 128
typedef struct VxValueData {
    ProValueDataType type;
    union {
        int i;
        double d;
        void* p;
        WideChar* w;
        ProSelection r;
    } v;
} ProValueData;

// A new element without value and parent. The caller frees the root of a tree, and with it all that
// was added below.
HOST_API ProError ProElementAlloc(ProElemId id, ProElement* element);
// Frees an element with all below it, and sets the variable to null.
HOST_API ProError ProElementFree(ProElement* element);

// A new value without data; it is the caller's until an element takes it.
HOST_API ProError ProValueAlloc(ProValue* value);
// Assumed (parameters, 70 %): takes the value, not its place
HOST_API ProError ProValueFree(ProValue value);
// Gives the value its data; texts and selections are copied.
// Assumed (frees, 60 %): texts and selections are copied, so that the caller may free them at once
HOST_API ProError ProValueDataSet(ProValue value, ProValueData* data);
// Gives an element its value, which belongs to the element from then on.
HOST_API ProError ProElementValueSet(ProElement element, ProValue value);

// Adds an element below another one. `path` leads from there to the parent, null: no further.
// Assumed (parameters, 70 %): in the order tree, path, element
HOST_API ProError ProElemtreeElementAdd(ProElement tree, ProElempath path, ProElement element);

// --- Features ---

typedef struct VxFeatureCreateOption ProFeatureCreateOption;  // never used

// What is wrong with one element of a tree.
typedef struct VxErrorItem {
    ProElemId element;
    ProError status;
} ProErrorItem;
// Assumed (record, 40 %): a host array with its length
typedef struct VxErrorlist {
    ProErrorItem* list;
    int count;
} ProErrorlist;

// Makes a feature in the selected model from a tree of elements. `errors` may be null; else it
// receives an array, which the caller frees, or null. PRO_TK_BAD_INPUTS: the tree is not complete,
// or asks for what cannot be. PRO_TK_NO_PERMISSION: the model may not be changed. Then nothing has
// changed.
// Assumed (parameters, 70 %): options with their number stand between the tree and the feature
HOST_API ProError ProFeatureCreate(ProSelection model, ProElement tree,
                                   ProFeatureCreateOption* options, int count, ProFeature* feature,
                                   ProErrorlist* errors);
