// The assembly walk alone as a module of its own, so that its instructions can be told from those
// of a whole command: walk from the current model, reduce to the list of models, free the array.
#include "frame/services.h"

// Receives the number of components; returns the number of different models.
PLUGIN_ENTRY int bench_walk(int* components) {
    ProMdl top = nullptr;
    if (ProMdlCurrentGet(&top) != PRO_TK_NO_ERROR) return 0;
    ComponentArray array = ComponentCollector(top, VisitAllComponents);
    *components = array.Size();
    return int(ReduceToModelList(std::move(array), *components).size());
}
