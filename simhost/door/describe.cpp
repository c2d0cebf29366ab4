// How handles and records look in the journal: by what they name, never by an address.
#include "simhost/door/describe.h"

#include <fmt/format.h>

#include <algorithm>

#include "simhost/core/handles.h"
#include "simhost/core/text.h"
#include "simhost/host.h"
#include "simhost/model/constraints.h"
#include "simhost/model/csys.h"
#include "simhost/model/drawing.h"
#include "simhost/model/edge_handles.h"

namespace simhost {

namespace {

std::string PathText(const Selection& selection) {
    std::string path;
    for (const int id : selection.path) path += (path.empty() ? "" : ", ") + Describe(id);
    return '[' + path + ']';
}

// "selection of bolt.prt item -1 of type 2 at top.asm [3, 7]".
std::string DescribeSelection(const Selection& selection) {
    return fmt::format("selection of {} at {} {}", TextOf(selection.item),
                       Describe(selection.top->handle), PathText(selection));
}

// "constraint csys, assembly selection of …, side 1, component selection of …, side 1".
std::string DescribeConstraint(const ConstraintDraft& draft) {
    std::string text = "constraint";
    if (draft.type) text += std::string(" ") + ConstraintTypeName(*draft.type);
    const auto add = [&](const char* what, const std::optional<ConstraintDraft::Reference>& one) {
        if (!one) return;
        text += fmt::format(", {} {}, side {}", what, DescribeSelection(one->selection),
                            int(one->side));
    };
    add("assembly", draft.assembly);
    add("component", draft.component);
    return text;
}

std::string DescribeValue(const Value& value) {
    if (!value.kind) return "a value without data";
    switch (*value.kind) {
        case PRO_VALUE_TYPE_INT: return fmt::format("integer {}", value.number);
        case PRO_VALUE_TYPE_WSTRING: return "text " + InQuotes(Utf8(value.text));
        case PRO_VALUE_TYPE_SELECTION:
            return fmt::format("selection of {} at {}", simhost::TextOf(value.selection.item),
                               PathText(value.selection));
    }
    return fmt::format("a value of the kind {}", int(*value.kind));
}

// "PDF options 0=1 1=2 5=0 25=1 28=0", by the numbers that they are set by.
std::string TextOf(const PlotOptions& options) {
    return fmt::format("PDF options 0={} 1={} 5={} 25={} 28={}", int(options.strokes),
                       int(options.colours), int(options.shown), int(options.numbered25),
                       int(options.sheets));
}

std::string DescribeHandle(const void* handle) {
    const Session& session = TheHost().session;
    switch (KindOf(handle)) {
        case HandleKind::Model:
            if (const Model* model = session.Find(const_cast<void*>(handle))) {
                return model->FileName();
            }
            return "dangling model";
        case HandleKind::Object:
            if (const Model* model = session.FindObject(handle)) {
                return model->FileName() + " object";
            }
            break;
        case HandleKind::Surface:
            if (const Surface* surface = session.FindSurface(handle)) {
                return fmt::format("{} surface {}", surface->part->FileName(), surface->id);
            }
            break;
        case HandleKind::Selection:
            if (const Selection* selection = session.selections.Find(handle)) {
                return DescribeSelection(*selection);
            }
            return "dangling selection";
        case HandleKind::SelectionEnvironment:
            if (const auto* found = session.selections.FindEnvironment(handle)) {
                return found->box ? "environment with a box" : "environment without a box";
            }
            break;
        case HandleKind::ExportData:
            if (const ExportData* data = session.plotRecords.datas.Find(handle)) {
                return fmt::format("option {}, sheet {}", data->option, data->sheet);
            }
            return "dangling export data";
        case HandleKind::PdfOptions:
            if (const PlotOptions* options = session.plotRecords.options.Find(handle)) {
                return TextOf(*options);
            }
            return "dangling PDF options";
        case HandleKind::SimprepData:
            if (const Simprep* data = session.simprepDatas.Find(handle)) {
                return "data of " + InQuotes(Utf8(data->name));
            }
            return "dangling data";
        case HandleKind::UdfData:
            if (const UdfData* data = session.udfs.datas.Find(handle)) {
                return "data of the group " + InQuotes(Utf8(data->name));
            }
            return "dangling data";
        case HandleKind::UdfReference:
            if (const UdfReference* reference = session.udfs.references.Find(handle)) {
                return "a reference for " + InQuotes(Utf8(reference->prompt));
            }
            return "a reference of a group";
        case HandleKind::UdfDimension:
            if (const UdfDimension* dimension = session.udfs.dimensions.Find(handle)) {
                return fmt::format("{} = {}", Utf8(dimension->name), dimension->value);
            }
            return "a dimension of a group";
        case HandleKind::Element:
            if (const Element* element = session.elements.elements.Find(handle)) {
                return element->value ? fmt::format("element {} ({})", element->id,
                                                    DescribeValue(*element->value))
                                      : fmt::format("element {}", element->id);
            }
            return "dangling element";
        case HandleKind::Value:
            if (const Value* value = session.elements.values.Find(handle)) {
                return DescribeValue(*value);
            }
            return "a value";
        case HandleKind::Edge: return DescribeEdge(session, handle);
        case HandleKind::Csys:
            if (const Csys* csys = session.csyses.Find(handle)) {
                return fmt::format("csys {} of {}",
                                   CsysIdOf(*csys->model->FindFeature(csys->feature)),
                                   csys->model->FileName());
            }
            return "dangling csys";
        case HandleKind::Constraint:
            if (const ConstraintDraft* draft = session.constraints.Find(handle)) {
                return DescribeConstraint(*draft);
            }
            return "dangling constraint";
        case HandleKind::View: return DescribeView(handle);
        case HandleKind::OutputInclusion:
            if (const OutputInclusion* inclusion =
                    TheHost().outputRecords.inclusions.Find(handle)) {
                return TextOf(*inclusion);
            }
            return "an inclusion record";
        case HandleKind::OutputLayers:
            if (const OutputLayers* layers = TheHost().outputRecords.layers.Find(handle)) {
                return TextOf(*layers);
            }
            return "a record of layers";
        case HandleKind::Command: return TheHost().commands.Describe(handle);
    }
    return "pointer";
}

// Core knows no handles; it is told once, when the library is loaded.
[[maybe_unused]] const bool told = [] {
    Operation::DescribeHandlesBy(DescribeHandle);
    return true;
}();

}  // namespace

namespace {

// A text in a record, which may fill it to its end.
template <std::size_t Size>
std::string TextIn(const WideChar (&text)[Size]) {
    return InQuotes(Utf8(WideText(text, std::find(text, text + Size, WideChar{}))));
}

std::string Numbers(const double* numbers, std::size_t count) {
    std::string text = "(";
    for (std::size_t i = 0; i < count; ++i) text += (i ? ", " : "") + Describe(numbers[i]);
    return text + ')';
}

}  // namespace

std::string TextOf(const ProModelitem& item) {
    return fmt::format("{} item {} of type {}", Describe(item.owner), item.id, int(item.type));
}

std::string TextOf(const ProParameter& parameter) {
    return fmt::format("{} of {}", TextIn(parameter.id), Describe(parameter.owner.owner));
}

std::string TextOf(const ProParamvalue& value) {
    Parameter parameter;
    TakeValue(value, &parameter);
    const std::string text = ValueText(parameter);
    return parameter.type == PRO_PARAM_STRING ? InQuotes(text) : text;
}

std::string TextOf(const ProMdldata& data) {
    return fmt::format("{}:{}, {}, {}, version {}", TextIn(data.device), TextIn(data.path),
                       TextIn(data.name), TextIn(data.type), data.version);
}

std::string TextOf(const ProModel& model) {
    return fmt::format("{} of type {}", TextIn(model.name), TextIn(model.type));
}

std::string TextOf(const ProMaterial& material) {
    return fmt::format("{} of {}", TextIn(material.matl_name), Describe(material.part));
}

std::string TextOf(const ProRelset& set) {
    return (set.afterRegeneration ? "after regeneration, of " : "of ") + Describe(set.owner.owner);
}

std::string TextOf(const ProFamtableItem& item) {
    return fmt::format("{} of type {} in {}", TextIn(item.name), item.type,
                       Describe(item.owner.owner));
}

std::string TextOf(const ProAsmcomppath& path) {
    const int count = std::clamp(path.table_num, 0, PRO_MAX_ASSEM_LEVEL);
    return Describe(static_cast<const void*>(path.owner)) + ' ' +
           Describe(ListOf{path.comp_id_tab, count});
}

std::string TextOf(const ProGeomitemdata& data) {
    if (data.obj_type == PRO_EDGE) {
        const ProCurvedata& curve = *data.data.p_curve_data;
        return fmt::format("curve {} of radius {} from {} to {}", curve.type, curve.radius,
                           Numbers(curve.from, 3), Numbers(curve.to, 3));
    }
    const ProSurfacedata& surface = *data.data.p_surface_data;
    return fmt::format("type {} from {} to {}", surface.type, Numbers(surface.xyz_min, 3),
                       Numbers(surface.xyz_max, 3));
}

std::string TextOf(const ProDimSense& sense) {
    return fmt::format("sense {} value {} angle [{}, {}, {}] hint {}", sense.type, sense.sense,
                       sense.angle[0], sense.angle[1], sense.angle[2], sense.orient_hint);
}

std::string TextOf(const ProDrawingViewDisplay& display) {
    return fmt::format("style {}, quilt {}, tangent edges {}, cables {}, concept {}, welds {}",
                       int(display.style), int(display.quilt_hlr),
                       int(display.tangent_edge_display), int(display.cable_display),
                       int(display.concept_model), int(display.weld_xsec));
}

std::string TextOf(const ProdbSurfaceProps& props) {
    return Numbers(&props.ambient, sizeof props / sizeof(double));
}

std::string TextOf(const ProSelectionEnvOption& option) {
    return fmt::format("{} = {}", int(option.attribute), option.attribute_value);
}

std::string TextOf(const ProSimprepAction& action) {
    return fmt::format("action {}", int(action.type));
}

std::string TextOf(const ProSimprepitem& item) {
    const int count = std::clamp(item.count, 0, PRO_MAX_ASSEM_LEVEL);
    return fmt::format("{} feature {} {}", Describe(ListOf{item.path, count}), item.feature,
                       TextOf(item.action));
}

std::string TextOf(const ProUIPoint& point) {
    return fmt::format("({}, {})", point.x, point.y);
}

std::string TextOf(const ProUnititem& unit) {
    return fmt::format("{} of {}", TextIn(unit.name), Describe(unit.owner));
}

std::string TextOf(const ProUnitsystem& system) {
    return fmt::format("{} of {}", TextIn(system.name), Describe(system.owner));
}

std::string TextOf(const ProValueData& data) {
    switch (data.type) {
        case PRO_VALUE_TYPE_INT: return fmt::format("integer {}", data.v.i);
        case PRO_VALUE_TYPE_WSTRING: return "text " + Describe(data.v.w);
        case PRO_VALUE_TYPE_SELECTION: return Describe(static_cast<const void*>(data.v.r));
    }
    return fmt::format("a value of the kind {}", int(data.type));
}

std::string TextOf(const ProErrorlist& errors) {
    return DescribeList(std::size_t(errors.count), [&](std::size_t i) {
        return fmt::format("element {}: {}", errors.list[i].element, int(errors.list[i].status));
    });
}

std::string PointText::Of(const double* point) {
    return point ? Numbers(point, 3) : "null";
}

std::string JournalText<double (*)[4]>::Of(const double (*matrix)[4]) {
    if (!matrix) return "null";
    return DescribeList(4, [&](std::size_t row) { return Numbers(matrix[row], 4); });
}

std::string JournalText<double (*)[3]>::Of(const double (*corners)[3]) {
    if (!corners) return "null";
    return DescribeList(2, [&](std::size_t i) { return Numbers(corners[i], 3); });
}

int SizeOfArray(const void* array) {
    try {
        return array ? TheHost().arrays.Size(const_cast<void*>(array)) : 0;
    } catch (const Refusal&) {
        return 0;  // the call has complained
    }
}

std::string Describe(const NameOut& out) {
    const auto* end = std::find(out.place, out.place + PRO_NAME_SIZE, WideChar{});
    return simhost::Describe(WideText(out.place, std::size_t(end - out.place)).c_str());
}

std::string Describe(const NumberOut& out) {
    return Describe(*out.place);
}

std::string Describe(const PointOut& out) {
    return Numbers(out.place, 3);
}

}  // namespace simhost
