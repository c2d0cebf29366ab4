// Parameters of models: finding, writing and deleting them. What tables and file names show of a
// value is in parameter_text.h.
#pragma once

#include "hostapi/host.h"

// A value of text, cut where the host's record ends.
ProParamvalue TextValue(WideView text);

// The value of a whole number.
ProParamvalue WholeValue(int number);

// In what follows a name is cut where the host's record for it ends.

// Receives the handle of an item's parameter. False: the item has none of this name, or the host
// says so; a host that fills the record all the same has named one.
bool FindParameter(ProModelitem* item, WideView name, ProParameter* found);

// Removes a model's parameter, if the host names one.
void DeleteParameter(ProMdl model, WideView name);

// Two ways to write a parameter: both make it or, if the model has it already, change its value.
// They differ in what the host is asked, and each command keeps the one that it has always used.
// This one asks for the parameter first.
void FindAndWriteParameter(ProMdl model, WideView name, ProParamvalue value);
// This one makes it at once, and asks for it only if the host refuses without naming the one that
// is there. False: the parameter has not got its value.
bool CreateOrSetParameter(ProMdl model, WideView name, ProParamvalue value);
