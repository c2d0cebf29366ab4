// Dimensions of drawings at the door.
#include "hostapi/host/dimension.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "simhost/core/text.h"
#include "simhost/door/door.h"
#include "simhost/model/dimension_measure.h"
#include "simhost/model/dimension_text.h"

using namespace simhost;

namespace {

Dimension& RequireDimension(const ProDimension* item) {
    if (!item->owner || item->type != PRO_DIMENSION) Refuse(PRO_TK_BAD_INPUTS);
    Model& owner = TheHost().session.RequireDrawing(static_cast<ProDrawing>(item->owner));
    Dimension* dimension = AnnotationsOf(owner).FindDimension(item->id);
    if (!dimension) Refuse(PRO_TK_BAD_INPUTS);
    return *dimension;
}

void NoteChange(const ProDimension* item) {
    TheHost().session.Require(item->owner).modified = true;
}

// A line in a record of ProLine, which is terminated or full.
WideText LineIn(const ProLine& line) {
    return WideText(line, std::size_t(std::find(line, std::end(line), WideChar{}) - line));
}

struct LineRecord {
    ProLine text;
};

ProLine* LendLines(const std::vector<WideText>& lines, const char* origin) {
    std::vector<LineRecord> records(lines.size());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        CopyCut(lines[i], records[i].text, PRO_LINE_SIZE);
    }
    LineRecord* made = TheHost().arrays.Make(records, origin);
    return made ? &made->text : nullptr;
}

// --- Making ---

const Selection& RequireAttached(ProSelection handle, const Model& drawing) {
    const Selection* found = TheHost().session.selections.Find(handle);
    if (!handle) Refuse(PRO_TK_BAD_INPUTS);
    if (!found) Complain(PRO_TK_BAD_INPUTS, "an attachment that is not a live selection");
    const DrawingView* view = FindView(found->view);
    if (!view || view->drawing != &drawing) Refuse(PRO_TK_BAD_INPUTS);
    return *found;
}

void RequireFinite(const double* position) {
    const bool finite =
        std::all_of(position, position + 3, [](double c) { return std::isfinite(c); });
    if (!finite) Complain(PRO_TK_BAD_INPUTS, "not a place on a sheet");
}

// One for each selection; all lie in one view, which comes back.
const DrawingView& ReadAttachments(const Model& drawing, ProSelection* selections,
                                   const ProDimSense* senses, std::vector<Attachment>* to) {
    const int count = SizeOfArray(selections);
    if (count < 1 || count > 2 || SizeOfArray(senses) != count) Refuse(PRO_TK_BAD_INPUTS);
    const DrawingView* view = nullptr;
    for (int i = 0; i < count; ++i) {
        const Selection& one = RequireAttached(selections[i], drawing);
        const DrawingView* its = FindView(one.view);
        if (view && its != view) Refuse(PRO_TK_BAD_INPUTS);
        view = its;
        to->push_back({WayOf(one), senses[i].type, senses[i].sense});
    }
    return *view;
}

}  // namespace

ProError ProDimensionTextGet(ProDimension* dimension, ProLine** lines) {
    Operation& op = Op<"ProDimensionTextGet">;
    return op.Call(
        [&] {
            const Dimension& found = RequireDimension(dimension);
            if (found.text) {
                *lines = LendLines(*found.text, op.name());
                return;
            }
            switch (AnnotationsOf(TheHost().session.Require(dimension->owner)).noText) {
                case Annotations::NoText::Status: Refuse(PRO_TK_E_NOT_FOUND);
                case Annotations::NoText::NullArray: *lines = nullptr; return;
                case Annotations::NoText::EmptyArray: *lines = LendLines({}, op.name());
            }
        },
        GIVEN(dimension), OUT_ARRAY(lines));
}

ProError ProDimensionTextSet(ProDimension* dimension, ProLine* lines) {
    return Op<"ProDimensionTextSet">.Call(
        [&] {
            Dimension& found = RequireDimension(dimension);
            const int count = SizeOfArray(lines);
            if (count < 1) Refuse(PRO_TK_BAD_INPUTS);
            std::vector<WideText> text;
            text.reserve(std::size_t(count));
            for (int i = 0; i < count; ++i) text.push_back(LineIn(lines[i]));
            found.text = std::move(text);
            NoteChange(dimension);
        },
        GIVEN(dimension), ARRAY(lines));
}

ProError ProDimensionToltypeSet(ProDimension* dimension, ProToleranceType type) {
    return Op<"ProDimensionToltypeSet">.Call(
        [&] {
            Dimension& found = RequireDimension(dimension);
            switch (type) {
                case PRO_TOL_DEFAULT:
                case PRO_TOL_LIMITS:
                case PRO_TOL_PLUS_MINUS:
                case PRO_TOL_PLUS_MINUS_SYM: break;
                default: Refuse(PRO_TK_BAD_INPUTS);
            }
            found.tolerance = type;
            NoteChange(dimension);
        },
        GIVEN(dimension), ARG(type));
}

ProError ProDimensionTollabelSet(ProDimension* dimension, ProToleranceTable table, WideChar* name,
                                 int column) {
    return Op<"ProDimensionTollabelSet">.Call(
        [&] {
            RequireDimension(dimension);
            // There are no tables of tolerances here.
            if (int(table) != 0 || name || column != 0) Refuse(PRO_TK_E_NOT_FOUND);
        },
        GIVEN(dimension), ARG(table), ARG(name), ARG(column));
}

ProError ProDimensionToleranceSet(ProDimension* dimension, double upper, double lower) {
    return Op<"ProDimensionToleranceSet">.Call(
        [&] {
            Dimension& found = RequireDimension(dimension);
            if (!std::isfinite(upper) || !std::isfinite(lower)) Refuse(PRO_TK_BAD_INPUTS);
            found.upper = upper;
            found.lower = lower;
            NoteChange(dimension);
        },
        GIVEN(dimension), ARG(upper), ARG(lower));
}

ProError ProDrawingDimCreate(ProDrawing drawing, ProSelection* attachments, ProDimSense* senses,
                             ProVector position, ProBoolean reference, ProDimension* dimension) {
    return Op<"ProDrawingDimCreate">.Call(
        [&] {
            Model& model = TheHost().session.RequireDrawing(drawing);
            RequireFinite(position);
            Dimension made;
            const DrawingView& view = ReadAttachments(model, attachments, senses, &made.to);
            ProError status = PRO_TK_NO_ERROR;
            const auto kind = KindOf(view, made.to, senses[0].orient_hint, &status);
            if (!kind) Refuse(status);
            made.kind = *kind;
            made.view = view.id;
            made.at = Vec3{position[0], position[1], 0} - view.at;
            made.text = UsualText(*kind);
            Dimension& added = AnnotationsOf(model).Add(std::move(made));
            Remeasure(model, &added);
            model.modified = true;
            *dimension = {PRO_DIMENSION, added.id, model.handle};
        },
        ARG(drawing), ARRAY(attachments), ARRAY(senses), GIVEN(position), ARG(reference),
        OUT(dimension));
}

ProError ProAnnotationShow(ProAnnotation* annotation, ProAsmcomppath* path, ProView view) {
    return Op<"ProAnnotationShow">.Call(
        [&] {
            Dimension& found = RequireDimension(annotation);
            Model& owner = TheHost().session.Require(annotation->owner);
            if (path || !view) Refuse(PRO_TK_BAD_INPUTS);
            const DrawingView* shown = FindView(view);
            if (!shown) Complain(PRO_TK_BAD_INPUTS, "not a live view");
            if (shown != ViewOf(owner, found)) Refuse(PRO_TK_BAD_CONTEXT);
            found.shown = true;
            owner.modified = true;
        },
        GIVEN(annotation), ARG(path), ARG(view));
}
