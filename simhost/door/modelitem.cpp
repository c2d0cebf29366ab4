// Items of models at the door.
#include "hostapi/host/modelitem.h"

#include "simhost/door/door.h"

using namespace simhost;

ProError ProModelitemMdlGet(ProModelitem* item, ProMdl* model) {
    return Op<"ProModelitemMdlGet">.Call(
        [&] { *model = TheHost().session.Require(item->owner).handle; }, GIVEN(item), OUT(model));
}
