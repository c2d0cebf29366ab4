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
            const double unit = LengthUnit(model);
            for (std::size_t i = 0; i < 2; ++i) {
                outline[i][0] = Converted(corners[i].x, 1, unit);
                outline[i][1] = Converted(corners[i].y, 1, unit);
                outline[i][2] = Converted(corners[i].z, 1, unit);
            }
        },
        ARG(solid), OUT(outline));
}
