// Items of models at the door.
#include "hostapi/host/modelitem.h"

#include "simhost/door/describe.h"
#include "simhost/host.h"

using namespace simhost;

ProError ProModelitemMdlGet(ProModelitem* item, ProMdl* model) {
    static Operation op("ProModelitemMdlGet");
    return op.Call(
        [&] {
            Need(item, "the item");
            Need(model, "the place for the model");
            *model = TheHost().session.Require(item->owner).handle;
            return PRO_TK_NO_ERROR;
        },
        "item", item, "model", Out(model));
}
