// Element trees, and features from them, at the door.
#include "hostapi/host/element.h"

#include <fmt/format.h>

#include "simhost/door/door.h"
#include "simhost/door/owned.h"
#include "simhost/model/frames.h"
#include "simhost/model/shown.h"
#include "simhost/model/solid_features.h"

using namespace simhost;

namespace {

Elements& TheElements() {
    return TheHost().session.elements;
}

Element& RequireElement(ProElement element) {
    return RequireOf(TheElements().elements, element, "an element");
}

Value& RequireValue(ProValue value) {
    return RequireOf(TheElements().values, value, "a value");
}

void Take(const ProValueData& data, Value* value) {
    switch (data.type) {
        case PRO_VALUE_TYPE_INT: value->number = data.v.i; break;
        case PRO_VALUE_TYPE_WSTRING:
            Need(data.v.w, "the text of a value");
            value->text = data.v.w;
            break;
        case PRO_VALUE_TYPE_SELECTION: {
            if (!data.v.r) Refuse(PRO_TK_BAD_INPUTS);
            const Selection* found = TheHost().session.selections.Find(data.v.r);
            if (!found) Complain(PRO_TK_BAD_INPUTS, "not a live selection");
            value->selection = *found;
            break;
        }
        default: Refuse(PRO_TK_NOT_IMPLEMENTED);
    }
    value->kind = data.type;
}

// --- Merges ---

// Where a part is in the present window, in mm, at its first use in the order of the tree; nothing
// where it is not there.
std::optional<Placement> FirstPlaceOf(const Model& part) {
    const Model* current = TheHost().session.CurrentModel();
    if (!current) return std::nullopt;
    std::optional<Placement> place;
    const std::function<void(const Model&, const Placement&)> look = [&](const Model& model,
                                                                         const Placement& at) {
        if (&model == &part) place = at;
        for (const Feature& feature : model.features()) {
            if (place) return;
            if (feature.type != PRO_FEAT_COMPONENT || !feature.model) continue;
            look(*feature.model, Compose(at, PlaceInMm(feature.placement, model)));
        }
    };
    look(ContentsOf(*current), {});
    return place;
}

// The place of a selected item in its top, in mm; nothing if the way there is gone.
std::optional<Placement> PlaceOf(const Selection& selection) {
    Placement place;
    Model* model = selection.top;
    for (const int id : selection.path) {
        const Feature* feature = model->FindFeature(id);
        if (!feature || !feature->model) return std::nullopt;
        place = Compose(place, PlaceInMm(feature->placement, *model));
        model = feature->model;
    }
    return place;
}

Feature& MakeMerge(Model& target, const MergeRequest& request) {
    Session& session = TheHost().session;
    const Selection& selected = request.source;
    Model* source = session.Find(selected.item.owner);
    if (!source) Refuse(PRO_TK_BAD_INPUTS);
    const auto refuse = [&](const std::string& why) {
        TheHost().Tell(fmt::format("{} is not merged: {}", source->FileName(), why));
        Refuse(PRO_TK_BAD_INPUTS);
    };
    const std::string why = WhyNoMerge(target, *source);
    if (!why.empty()) refuse(why);
    const auto from = PlaceOf(selected);
    if (!from) refuse("the way to it is gone");
    const auto to = FirstPlaceOf(target);
    return PlaceMerge(target, request.name,
                      {source->FileName(), source, *from, to.value_or(Placement())});
}

// What is wrong with elements, for a caller who wants to know.
void Report(const std::vector<ProElemId>& faulty, ProErrorlist* errors) {
    if (!errors) return;
    std::vector<ProErrorItem> list;
    list.reserve(faulty.size());
    for (const ProElemId id : faulty) list.push_back({id, PRO_TK_BAD_INPUTS});
    errors->list = list.empty() ? nullptr : TheHost().arrays.Make(list, "ProFeatureCreate");
    errors->count = int(list.size());
}

}  // namespace

ProError ProElementAlloc(ProElemId id, ProElement* element) {
    Operation& op = Op<"ProElementAlloc">;
    return op.Call(
        [&] {
            Element made;
            made.id = id;
            *element = Give<ProElement>(&TheElements().elements, made, op.name());
        },
        ARG(id), OUT(element));
}

ProError ProElementFree(ProElement* element) {
    return Op<"ProElementFree">.Call(
        [&] {
            if (RequireElement(*element).hasParent) {
                Complain(PRO_TK_BAD_INPUTS, "an element that belongs to a tree");
            }
            TheElements().FreeTree(*element,
                                   [](const void* each) { TheHost().arrays.ForgetHandle(each); });
            *element = nullptr;
        },
        GIVEN(element));
}

ProError ProValueAlloc(ProValue* value) {
    Operation& op = Op<"ProValueAlloc">;
    return op.Call([&] { *value = Give<ProValue>(&TheElements().values, Value{}, op.name()); },
                   OUT(value));
}

ProError ProValueFree(ProValue value) {
    return Op<"ProValueFree">.Call([&] { TakeBack(&TheElements().values, value, "a value"); },
                                   ARG(value));
}

ProError ProValueDataSet(ProValue value, ProValueData* data) {
    return Op<"ProValueDataSet">.Call([&] { Take(*data, &RequireValue(value)); }, ARG(value),
                                      GIVEN(data));
}

ProError ProElementValueSet(ProElement element, ProValue value) {
    return Op<"ProElementValueSet">.Call(
        [&] {
            Element& known = RequireElement(element);
            known.value = TakeBack(&TheElements().values, value, "a value");
        },
        ARG(element), ARG(value));
}

ProError ProElemtreeElementAdd(ProElement tree, ProElempath path, ProElement element) {
    return Op<"ProElemtreeElementAdd">.Call(
        [&] {
            Element& parent = RequireElement(tree);
            Element& added = RequireElement(element);
            if (path) Refuse(PRO_TK_NOT_IMPLEMENTED);
            if (added.hasParent || &added == &parent) {
                Complain(PRO_TK_BAD_INPUTS,
                         fmt::format("the element {} has a parent already", added.id));
            }
            added.hasParent = true;
            added.added = ++TheElements().additions;
            parent.children.push_back(element);
            TheHost().arrays.ForgetHandle(element);
        },
        ARG(tree), ARG(path), ARG(element));
}

ProError ProFeatureCreate(ProSelection model, ProElement tree, ProFeatureCreateOption* options,
                          int count, ProFeature* feature, ProErrorlist* errors) {
    return Op<"ProFeatureCreate">.Call(
        [&] {
            Session& session = TheHost().session;
            if (!model) Refuse(PRO_TK_BAD_INPUTS);
            const Selection* selected = session.selections.Find(model);
            if (!selected) Complain(PRO_TK_BAD_INPUTS, "not a live selection");
            Model& target = session.RequireSolid(selected->item.owner);
            RequireElement(tree);
            if (options || count != 0) Refuse(PRO_TK_NOT_IMPLEMENTED);
            const TreeReading reading = ReadMergeTree(TheElements(), tree);
            if (!reading.misuse.empty()) Complain(PRO_TK_BAD_INPUTS, reading.misuse);
            Report(reading.faulty, errors);
            if (!reading.faulty.empty() || target.type != PRO_MDL_PART) Refuse(PRO_TK_BAD_INPUTS);
            if (target.readOnly) Refuse(PRO_TK_NO_PERMISSION);
            *feature = {PRO_FEATURE, MakeMerge(target, reading.merge).id, target.handle};
        },
        ARG(model), ARG(tree), ARG(options), ARG(count), OUT(feature), "errors", Out(errors));
}
