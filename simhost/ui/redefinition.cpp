// The redefinition works on a copy of the constraints, which the component gets by OK.
#include "simhost/ui/redefinition.h"

#include <fmt/format.h>

#include <charconv>
#include <optional>
#include <vector>

#include "simhost/core/text.h"
#include "simhost/model/constraints.h"
#include "simhost/model/model.h"
#include "simhost/ui/checkbutton.h"
#include "simhost/ui/dialogs.h"
#include "simhost/ui/textfield.h"
#include "simhost/user/language.h"

namespace simhost {

namespace {

constexpr const char* kName = "comp_placement";
constexpr const char* kResource = R"((Dialog comp_placement
    (Components
        (Label List) (InputPanel Number) (CheckButton RemoveComponent)
        (PushButton Fix) (PushButton Default) (PushButton Delete)
        (PushButton OK) (PushButton Cancel))
    (Resources
        (Number.Columns 4)
        (.DefaultButton "OK")
        (.Layout (Grid (Rows 1 1 1 1) (Cols 1)
            List
            (Grid (Rows 1) (Cols 1 1) Number RemoveComponent)
            (Grid (Rows 1) (Cols 1 1 1) Fix Default Delete)
            (Grid (Rows 1) (Cols 1 1) OK Cancel)))))
)";

class Redefinition {
public:
    explicit Redefinition(const Feature& component)
        : constraints_(component.constraints), dialog_(kName, ParseResource(kResource, kName)) {
        const std::string file = component.model ? component.model->FileName() : component.file;
        title_ = Either("Constraints of ", "约束：") + file;
        SetLabels();
        On("Fix", [](char*, char*, ProAppData self) { Self(self).Add(PRO_ASM_FIX); });
        On("Default", [](char*, char*, ProAppData self) { Self(self).Add(PRO_ASM_DEF_PLACEMENT); });
        On("Delete", [](char*, char*, ProAppData self) { Self(self).Delete(); });
        On("OK", [](char*, char*, ProAppData self) { Self(self).dialog_.Exit(kOk); });
        On("Cancel", Cancel);
        dialog_.closeAction = {Cancel, this};
    }

    bool Ask(Dialogs& dialogs) { return dialogs.Activate(dialog_) == kOk; }

    bool removesComponent() const {
        return dynamic_cast<const CheckButton&>(*dialog_.Find("RemoveComponent")).set;
    }
    const std::optional<std::vector<Constraint>>& constraints() const { return constraints_; }

private:
    static constexpr int kOk = 1;
    static Redefinition& Self(ProAppData self) { return *static_cast<Redefinition*>(self); }
    static void Cancel(char*, char*, ProAppData self) { Self(self).dialog_.Exit(0); }

    void On(const char* button, ProUIAction action) {
        dynamic_cast<PushButton&>(*dialog_.Find(button)).activateAction = {action, this};
    }
    void Label(const char* component, const char* english, const char* chinese) {
        dialog_.Find(component)->label = Wide(Either(english, chinese));
    }
    void SetLabels() {
        Label("Fix", "Fix", "固定");
        Label("Default", "Default", "缺省");
        Label("Delete", "Delete", "删除约束");
        Label("RemoveComponent", "Delete the component", "删除元件");
        Label("OK", "OK", "确定");
        Label("Cancel", "Cancel", "取消");
        ShowList();
    }
    void ShowList() {
        std::string text = title_;
        int number = 0;
        if (constraints_) {
            for (const Constraint& each : *constraints_) {
                text += fmt::format("\n{}  {}", ++number, ConstraintText(each));
            }
        }
        if (number == 0) text += Either("\nnone", "\n无");
        dialog_.Find("List")->label = Wide(text);
    }
    void Add(ProAsmcompConstrType type) {
        Constraint constraint;
        constraint.type = type;
        if (!constraints_) constraints_.emplace();
        constraints_->push_back(constraint);
        ShowList();
    }
    // The one of the number that was typed; the last one without a number.
    void Delete() {
        if (!constraints_ || constraints_->empty()) return;
        const std::string typed = Utf8(dynamic_cast<InputPanel&>(*dialog_.Find("Number")).value);
        std::size_t number = constraints_->size();
        const char* end = typed.data() + typed.size();
        const auto [parsed, error] = std::from_chars(typed.data(), end, number);
        const bool bad = !typed.empty() && (error != std::errc() || parsed != end);
        if (bad || number < 1 || number > constraints_->size()) return;
        constraints_->erase(constraints_->begin() + std::ptrdiff_t(number - 1));
        ShowList();
    }

    std::optional<std::vector<Constraint>> constraints_;
    std::string title_;
    Dialog dialog_;
};

}  // namespace

bool RedefineConstraints(Dialogs& dialogs, Model& assembly, int component) {
    Redefinition redefinition(*assembly.FindFeature(component));
    if (!redefinition.Ask(dialogs)) return false;
    Feature* feature = assembly.FindFeature(component);
    if (!feature) return true;
    if (redefinition.removesComponent()) {
        assembly.RemoveFeature(component);
        assembly.modified = true;
        return true;
    }
    if (feature->constraints == redefinition.constraints()) return true;
    feature->constraints = redefinition.constraints();
    assembly.modified = true;
    PlaceComponent(assembly, feature);
    return true;
}

}  // namespace simhost
