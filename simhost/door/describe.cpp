// How handles and records look in the journal: by what they name, never by an address.
#include "simhost/door/describe.h"

#include <fmt/format.h>

#include <algorithm>

#include "simhost/core/handles.h"
#include "simhost/core/text.h"
#include "simhost/host.h"
#include "simhost/model/drawing.h"

namespace simhost {

namespace {

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
            if (const Selection* selection = session.FindSelection(handle)) {
                return "selection of " + JournalText<ProModelitem>::Of(selection->item);
            }
            break;
        case HandleKind::View: return DescribeView(handle);
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

std::string JournalText<ProModelitem>::Of(const ProModelitem& item) {
    return fmt::format("{} item {} of type {}", Describe(item.owner), item.id, int(item.type));
}

std::string JournalText<ProParameter>::Of(const ProParameter& parameter) {
    const WideChar* id = parameter.id;
    const WideText name(id, std::find(id, id + PRO_NAME_SIZE, WideChar{}));
    return fmt::format("{} of {}", InQuotes(Utf8(name)), Describe(parameter.owner.owner));
}

std::string JournalText<ProParamvalue>::Of(const ProParamvalue& value) {
    Parameter parameter;
    TakeValue(value, &parameter);
    const std::string text = ValueText(parameter);
    return parameter.type == PRO_PARAM_STRING ? InQuotes(text) : text;
}

}  // namespace simhost
