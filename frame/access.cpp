// When a command is available.
#include "frame/access.h"

#include <algorithm>
#include <initializer_list>
#include <iterator>

#include "frame/services/left_to_host.h"

namespace {

uiCmdAccessState AvailableInModes(std::initializer_list<ProMode> modes) {
    ProMode current = PRO_MODE_UNKNOWN;
    if (ProModeCurrentGet(&current) != PRO_TK_NO_ERROR) return ACCESS_INVISIBLE;
    const bool listed = std::find(modes.begin(), modes.end(), current) != modes.end();
    return listed ? ACCESS_AVAILABLE : ACCESS_INVISIBLE;
}

// The kind of the first selected item and how many are selected. PRO_TYPE_UNUSED: none, or it
// cannot be told.
struct SelectedItems {
    ProError status = PRO_TK_NO_ERROR;
    int count = 0;
    ProType firstType = PRO_TYPE_UNUSED;
};

SelectedItems ReadSelectedItems() {
    SelectedItems selected;
    ProSelection* selections = nullptr;
    selected.status = ProSelbufferSelectionsGet(&selections);
    if (selected.status != PRO_TK_NO_ERROR || !selections) return selected;
    ProArraySizeGet(selections, &selected.count);
    if (selected.count >= 1) {
        ProModelitem item = {PRO_TYPE_UNUSED, 0, nullptr};
        ProSelectionModelitemGet(selections[0], &item);
        selected.firstType = item.type;
    }
    LeaveSelections(selections);
    return selected;
}

}  // namespace

uiCmdAccessState AccessAlways(uiCmdAccessMode) noexcept {
    return ACCESS_AVAILABLE;
}

uiCmdAccessState AccessSolid(uiCmdAccessMode) noexcept {
    return AvailableInModes({PRO_MODE_PART, PRO_MODE_SHEET_METAL, PRO_MODE_ASSEMBLY});
}

uiCmdAccessState AccessSolidOrMfg(uiCmdAccessMode) noexcept {
    return AvailableInModes(
        {PRO_MODE_PART, PRO_MODE_SHEET_METAL, PRO_MODE_ASSEMBLY, PRO_MODE_MANUFACTURING});
}

uiCmdAccessState AccessAssemblyOrMfg(uiCmdAccessMode) noexcept {
    return AvailableInModes({PRO_MODE_ASSEMBLY, PRO_MODE_MANUFACTURING});
}

uiCmdAccessState AccessDrawing(uiCmdAccessMode) noexcept {
    return AvailableInModes({PRO_MODE_DRAWING});
}

uiCmdAccessState PopupAccessComponent(uiCmdCmdId, ProAppData, PopupSelection) noexcept {
    const SelectedItems selected = ReadSelectedItems();
    if (selected.status != PRO_TK_NO_ERROR) return ACCESS_INVISIBLE;
    const bool component = selected.firstType == PRO_ASSEMBLY || selected.firstType == PRO_PART;
    return selected.count >= 1 && component ? ACCESS_AVAILABLE : ACCESS_REMOVE;
}

uiCmdAccessState PopupAccessSingleItem(uiCmdCmdId, ProAppData, PopupSelection) noexcept {
    static constexpr ProType kTypes[] = {PRO_ASSEMBLY, PRO_PART,       PRO_SURFACE,
                                         PRO_EDGE,     PRO_CSYS,       PRO_QUILT,
                                         PRO_CURVE,    PRO_COMP_CURVE, PRO_BODY};
    const SelectedItems selected = ReadSelectedItems();
    if (selected.status != PRO_TK_NO_ERROR) return ACCESS_INVISIBLE;
    const bool listed =
        std::find(std::begin(kTypes), std::end(kTypes), selected.firstType) != std::end(kTypes);
    return selected.count == 1 && listed ? ACCESS_AVAILABLE : ACCESS_REMOVE;
}
