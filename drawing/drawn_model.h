// The model that a command is to make or open the drawing of: the selected one, or the current one.
#pragma once

#include "frame/services.h"

// The selection, which lasts as long as this does.
struct DrawnSelection {
    bool read = false;  // false: nothing is selected
    HostArray<ProSelection> items;
    int count = 0;
    ProMdl model = nullptr;  // of the only item; of an item in a model, that model
};
DrawnSelection ReadDrawnSelection();

// The model of the only selected item, or the current model where nothing is selected, which is
// asked for if the caller has not got it yet; with the type that it has. The assembly of a
// manufacturing model comes in its place, and the type stays. No model (null) where there is none,
// and, with a notice, for any other number of items.
TopModel DrawnModel(ProMdl current = nullptr);
