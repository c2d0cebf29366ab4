// The size of solids at the door.
#include "hostapi/host/outline.h"

#include "simhost/door/door.h"
#include "simhost/model/projection.h"

using namespace simhost;

ProError ProSolidOutlineGet(ProSolid solid, Pro3dPnt outline[2]) {
    return Op<"ProSolidOutlineGet">.Call(
        [&] {
            const Model& model = TheHost().session.RequireSolid(solid);
            const Extents box = ExtentsIn(model, Placement(), Sight::Measures);
            if (box.empty) Refuse(PRO_TK_E_NOT_FOUND);
            const Vec3 corners[] = {box.low, box.high};
            for (std::size_t i = 0; i < 2; ++i) {
                outline[i][0] = corners[i].x;
                outline[i][1] = corners[i].y;
                outline[i][2] = corners[i].z;
            }
        },
        ARG(solid), OUT(outline));
}
