// Orientation of dimensions: by a command, or by the window of one version.
#include "simhost/ui/dimension_menu.h"

#include <fmt/format.h>

#include "simhost/core/text.h"
#include "simhost/model/dimension_measure.h"
#include "simhost/model/dimension_text.h"
#include "simhost/model/session.h"
#include "simhost/ui/host_dialogs.h"
#include "simhost/ui/replace_dialog.h"
#include "simhost/user/desk.h"

namespace simhost {

namespace {

constexpr const char* kCommand = "ProCmdPmaOptDimOrient";
constexpr const char* kWindowVersion = "Creo 3.0";

bool HasWindow() {
    return HostVersion() == kWindowVersion;
}

Dimension* SelectedDimension(Session& session, Model** drawing) {
    const std::vector<Selection>& selected = session.selections.buffer();
    if (selected.size() != 1 || selected[0].item.type != PRO_DIMENSION) return nullptr;
    *drawing = session.Find(selected[0].item.owner);
    return *drawing ? AnnotationsOf(**drawing).FindDimension(selected[0].item.id) : nullptr;
}

}  // namespace

bool IsDimensionCommand(const std::string& name) {
    return name == kCommand && !HasWindow();
}

void OrientDimension(Desk& desk, Session& session, const std::string& choice) {
    Model* drawing = nullptr;
    Dimension* dimension = SelectedDimension(session, &drawing);
    const std::string of =
        dimension ? fmt::format("dimension {}", dimension->id) : "no dimension is selected";
    desk.Tell(Wide(fmt::format("{} {}: {}", kCommand, choice, of)));
    if (!dimension || choice != "diameter" || dimension->kind != DimensionKind::Radius) return;
    dimension->kind = DimensionKind::Diameter;
    dimension->text = UsualText(dimension->kind);
    Remeasure(*drawing, dimension);
    drawing->modified = true;
}

bool IsDimensionWindow(const std::string& dialog, const std::string& component) {
    if (!HasWindow()) return false;
    if (dialog == "dtl_attref_ui") return component == "psh_ent_att";
    return dialog == MainWindow::kName &&
           (component == "dim_types_rg" || component == "layGr_proe_win.dim_types_menu");
}

}  // namespace simhost
