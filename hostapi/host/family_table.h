// Family tables: a generic model and instances of it, with a column for each thing that differs.
#pragma once

#include "hostapi/host/parameter.h"
#include "hostapi/host/types.h"

// A model's family table.
typedef ProModelitem ProFamtable;

// What a column of a family table is about.
// Assumed (record, 40 %): a column of our own making; a table is an item of its model
typedef struct VxFamtableItem {
    int type;
    ProModelitem owner;
    ProLine name;
} ProFamtableItem;

// The generic of an instance; with `immediate` the next one up, else the topmost.
// PRO_TK_E_NOT_FOUND: the model is no instance.
// Assumed (parameters, 75 %): in the order instance, whether the next generic only, place for the
//   generic
HOST_API ProError ProFaminstanceGenericGet(ProMdl instance, ProBoolean immediate, ProMdl* generic);

// Receives the model's family table, be it empty.
HOST_API ProError ProFamtableInit(ProMdl model, ProFamtable* table);

// The parameter as something that a column can be about. PRO_TK_E_NOT_FOUND: no such parameter.
HOST_API ProError ProParameterToFamtableItem(ProParameter* parameter, ProFamtableItem* item);

// Adds a column. PRO_TK_E_FOUND: the table has it already.
HOST_API ProError ProFamtableItemAdd(ProFamtable* table, ProFamtableItem* item);
