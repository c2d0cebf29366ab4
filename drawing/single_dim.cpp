// VxSingleDim: dimensions with the fewest clicks. The user picks one or two items in a view and
// clicks where the text belongs; what is meant follows from both. Then it begins anew, until the
// user ends the first pick.
#include <cstddef>

#include "drawing/commands.h"
#include "drawing/dimension_hint.h"
#include "frame/services.h"

namespace {

// The host's numbers: items at the ends of edges, kinds of edges, senses and hints.
constexpr int kEdgeStart = 71, kEdgeEnd = 72;
constexpr int kArc = 3, kCircle = 10;
constexpr int kWhole = 0, kPoint = 1;  // what a sense speaks of
constexpr int kCentre = 3;             // and which point
constexpr int kRadiusHint = 2, kDiameterHint = 3;

static_assert(sizeof(ProDimSense) == 24);
static_assert(offsetof(ProDimSense, type) == 0);
static_assert(offsetof(ProDimSense, sense) == 4);
static_assert(offsetof(ProDimSense, orient_hint) == 20);

constexpr const char* kFilter =
    "edge_end,point,dtl_axis,datum,csys,edge,curve,sldedge,qltedge,silhedge";

constexpr const WideChar* kDiameterOfThatVersion = WIDE(
    "~ Activate `dtl_attref_ui` `psh_ent_att`;"
    " ~ Select `main_dlg_cur` `layGr_proe_win.dim_types_menu`;"
    " ~ Close `main_dlg_cur` `layGr_proe_win.dim_types_menu`;"
    "~ Select `main_dlg_cur` `dim_types_rg` 1 `diameter`;"
    " ~ Command `VxDim`;");
constexpr const WideChar* kDiameter =
    WIDE("~ Command `ProCmdPmaOptDimOrient`  `diameter`; ~ Command `VxDim`;");
// Without a semicolon after its argument, and so it stays.
constexpr const WideChar* kAngle =
    WIDE("~ Command `ProCmdPmaOptDimOrient`  `ang_inside` ~ Command `VxDim`;");

// A pass ends, or with it the whole command.
enum class Next { Pass, End };

// That one version chooses the kind of dimension by its own window.
bool IsThatVersion() {
    return Narrow(HostVersionText) == "Creo 3.0";
}

bool IsRound(ProEnttype type) {
    return int(type) == kArc || int(type) == kCircle;
}

// --- What a pass works with. The host keeps the arrays: nothing frees them ---

struct Pass {
    ProMdl drawing = nullptr;
    ProSelection* picked = nullptr;  // 2, null where nothing was picked
    ProDimSense* senses = nullptr;   // 2
    ProView view = nullptr;          // of the first pick
    ProMatrix toSheet = {};

    ProDrawing Drawing() const { return static_cast<ProDrawing>(drawing); }
};

template <class Element>
Element* NewArray(int count) {
    ProArray array = nullptr;
    if (ProArrayAlloc(count, int(sizeof(Element)), 1, &array) != PRO_TK_NO_ERROR) return nullptr;
    return static_cast<Element*>(array);
}

// What a dimension of one pick is made from. The senses are freed, the pick is not.
struct OnePick {
    ProSelection* attachment = NewArray<ProSelection>(1);
    ProDimSense* sense = attachment ? NewArray<ProDimSense>(1) : nullptr;

    bool IsThere() const { return sense != nullptr; }
    void FreeSense() const {
        ProArray array = sense;
        ProArrayFree(&array);
    }
};

// --- Steps of every path ---

// False: the user wants none, or the host could not ask.
bool PickInto(ProSelection* slot) {
    ShowMessage("Please select entity to dim:");
    ProSelection* selections = nullptr;
    int count = 0;
    const ProError status =
        ProSelect(HostText(kFilter), 1, nullptr, nullptr, nullptr, nullptr, &selections, &count);
    if (status != PRO_TK_NO_ERROR || count < 1) return false;
    ProSelectionCopy(selections[0], slot);
    return true;
}

bool ClickPlace(Pro3dPnt place) {
    ProMouseButton pressed = {};
    return ProMousePickGet(ProMouseButton(0x1fff), &pressed, place) == PRO_TK_NO_ERROR;
}

ProError Create(const Pass& pass, ProSelection* attachments, ProDimSense* senses, Pro3dPnt place,
                ProDimension* made) {
    const ProError status =
        ProDrawingDimCreate(pass.Drawing(), attachments, senses, place, PRO_B_FALSE, made);
    if (status == PRO_TK_NO_ERROR) ProAnnotationShow(made, nullptr, pass.view);
    return status;
}

// Leaves the dimension alone in the selection buffer, for the macro that works on it. `slot` is
// taken for its selection.
void SelectAlone(ProDimension* dimension, ProSelection* slot) {
    ProSelbufferClear();
    ProSelectionAlloc(nullptr, dimension, slot);
    ProSelbufferSelectionAdd(*slot);
}

// An item that the host did not tell is no edge, and nobody is asked about it.
ProError EdgeOf(ProModelitem* item, ProEdge* edge) {
    return item->owner ? ProGeomitemToEdge(item, edge) : PRO_TK_BAD_INPUTS;
}

ProEnttype TypeOf(ProEdge edge) {
    ProEnttype type = {};
    if (edge) ProEdgeTypeGet(edge, &type);
    return type;
}

// --- One pick ---

Next DimensionOnePick(Pass& pass, ProSelection pick) {
    ProModelitem item = {};
    ProSelectionModelitemGet(pick, &item);
    ProEdge edge = nullptr;
    EdgeOf(&item, &edge);
    const ProEnttype type = TypeOf(edge);
    OnePick one;
    if (!one.IsThere()) return Next::Pass;
    ProSelectionCopy(pick, &one.attachment[0]);
    ProSelectionViewGet(pick, &pass.view);
    Pro3dPnt place = {};
    if (!ClickPlace(place)) return Next::End;
    if (IsRound(type)) one.sense[0].orient_hint = kRadiusHint;
    ProDimension made = {};
    Create(pass, one.attachment, one.sense, place, &made);
    one.FreeSense();
    return Next::Pass;
}

// --- Two picks on the same round edge ---

bool IsSame(const ProModelitem& a, const ProModelitem& b) {
    return a.type == b.type && a.id == b.id;
}

// Whether both picks are on one edge that is round. Which handle belongs to which pick does not
// matter then, so both are asked of the first one.
bool IsRoundTwice(const Pass& pass) {
    ProModelitem first = {}, second = {};
    ProSelectionModelitemGet(pass.picked[0], &first);
    ProSelectionModelitemGet(pass.picked[1], &second);
    if (!IsSame(first, second)) return false;
    ProEdge edges[2] = {};
    for (std::size_t i = 0; i < 2; ++i) {
        if (EdgeOf(&first, &edges[i]) != PRO_TK_NO_ERROR) pass.senses[i].type = kWhole;
    }
    const ProEnttype type = TypeOf(edges[0]);
    const ProEnttype again = TypeOf(edges[0]);
    return IsRound(type) && IsRound(again);
}

Next DimensionDiameterThere(const Pass& pass) {
    Pro3dPnt place = {};
    if (!ClickPlace(place)) return Next::End;
    ProDimension made = {};
    Create(pass, pass.picked, pass.senses, place, &made);
    ProMacroLoad(HostText(kDiameterOfThatVersion));
    return Next::Pass;
}

Next DimensionDiameter(Pass& pass) {
    OnePick one;
    if (!one.IsThere()) return Next::Pass;
    ProSelectionCopy(pass.picked[0], &one.attachment[0]);
    ProSelectionViewGet(pass.picked[0], &pass.view);
    Pro3dPnt place = {};
    if (!ClickPlace(place)) return Next::End;
    one.sense[0].orient_hint = kDiameterHint;
    ProDimension made = {};
    if (Create(pass, one.attachment, one.sense, place, &made) == PRO_TK_NO_ERROR) {
        SelectAlone(&made, &one.attachment[0]);
        ProMacroLoad(HostText(kDiameter));
    }
    one.FreeSense();
    return Next::Pass;
}

// --- Two picks ---

// The point of a pick on the sheet; a pick without one, or of what has no point, stays at zero.
void PutPoint(Pass& pass, ProSelection pick, Pro3dPnt point) {
    Pro3dPnt picked = {};
    if (ProSelectionPoint3dGet(pick, picked) != PRO_TK_NO_ERROR) return;
    ProPntTrfEval(picked, pass.toSheet, point);
}

// Circles are measured from their centre, as far as the host tells their geometry.
bool HasGeometry(ProModelitem* edge) {
    ProGeomitemdata* data = nullptr;
    if (ProGeomitemdataGet(edge, &data) != PRO_TK_NO_ERROR) return false;
    ProGeomitemdataFree(&data);
    return true;
}

void FindPoint(Pass& pass, std::size_t i, Pro3dPnt point) {
    const ProSelection pick = pass.picked[i];
    ProModelitem item = {};
    const ProError status = ProSelectionModelitemGet(pick, &item);
    if (status == PRO_TK_GENERAL_ERROR) return PutPoint(pass, pick, point);
    if (int(item.type) == kEdgeStart || int(item.type) == kEdgeEnd) {
        return PutPoint(pass, pick, point);
    }
    ProEdge edge = nullptr;
    if (EdgeOf(&item, &edge) != PRO_TK_NO_ERROR || !IsRound(TypeOf(edge))) return;
    if (!HasGeometry(&item)) {
        pass.senses[i].type = kWhole;
        return;
    }
    pass.senses[i].type = kPoint;
    pass.senses[i].sense = kCentre;
    PutPoint(pass, pick, point);
}

// What the first attempt made of the points is tried once more without them.
void CreateTwice(const Pass& pass, Pro3dPnt place, ProDimension* made) {
    if (Create(pass, pass.picked, pass.senses, place, made) == PRO_TK_NO_ERROR) return;
    for (std::size_t i = 0; i < 2; ++i) pass.senses[i].type = kWhole;
    Create(pass, pass.picked, pass.senses, place, made);
}

Next DimensionGeneral(Pass& pass) {
    Pro3dPnt points[2] = {};
    for (std::size_t i = 0; i < 2; ++i) FindPoint(pass, i, points[i]);
    Pro3dPnt place = {};
    if (!ClickPlace(place)) return Next::End;
    int& hint = pass.senses[0].orient_hint;
    hint = OrientationHint(points[0], points[1], place, hint);
    ProDimension made = {};
    CreateTwice(pass, place, &made);
    if (IsThatVersion()) return Next::Pass;
    SelectAlone(&made, &pass.picked[0]);
    ProMacroLoad(HostText(kAngle));
    return Next::Pass;
}

Next DimensionTwoPicks(Pass& pass) {
    ProSelectionViewGet(pass.picked[0], &pass.view);
    ProDrawingViewTransformGet(pass.Drawing(), pass.view, PRO_B_TRUE, pass.toSheet);
    if (IsRoundTwice(pass)) {
        const Next next = IsThatVersion() ? DimensionDiameterThere(pass) : DimensionDiameter(pass);
        if (next == Next::End) return next;
    }
    // A diameter, too, is followed by a dimension of both picks.
    return DimensionGeneral(pass);
}

// --- A pass ---

Next RunPass() {
    Pass pass;
    if (ProMdlCurrentGet(&pass.drawing) != PRO_TK_NO_ERROR) return Next::End;
    pass.picked = NewArray<ProSelection>(2);
    pass.senses = NewArray<ProDimSense>(2);
    if (!pass.picked || !pass.senses) return Next::End;
    if (!PickInto(&pass.picked[0])) return Next::End;
    PickInto(&pass.picked[1]);
    const ProSelection first = pass.picked[0], second = pass.picked[1];
    if (!first && !second) return Next::End;
    if (first && second) return DimensionTwoPicks(pass);
    return DimensionOnePick(pass, first ? first : second);
}

}  // namespace

void VxSingleDim() {
    while (RunPass() == Next::Pass) {
    }
}
