// VxSimRep: a simplified representation that holds what is selected and nothing else.
#include <array>

#include "display/commands.h"
#include "frame/services.h"

namespace {

// The host writes at most so many characters, and may then leave out the terminator.
constexpr int kNameLength = 32;
using EnteredName = std::array<WideChar, 33>;

// What a representation is made from; freed at the end.
class SimprepData {
public:
    SimprepData() = default;
    SimprepData(const SimprepData&) = delete;
    SimprepData& operator=(const SimprepData&) = delete;
    ~SimprepData() {
        if (data_) ProSimprepdataFree(&data_);
    }
    ProSimprepdata** Place() { return &data_; }
    ProSimprepdata* get() const { return data_; }

private:
    ProSimprepdata* data_ = nullptr;
};

// A name that no representation of the assembly has; false: the user left the prompt.
bool ReadFreeName(const WideText& assembly, EnteredName* name) {
    while (true) {
        name->fill(WideChar{});
        ShowMessage("USER Enter a simrep name:");
        if (ProMessageStringRead(kNameLength, name->data()) == PRO_TK_MSG_USER_QUIT) return false;
        ProAssembly retrieved = nullptr;
        const ProError status =
            ProAssemblySimprepRetrieve(HostText(assembly), name->data(), nullptr, &retrieved);
        if (status != PRO_TK_NO_ERROR) return true;
        ShowQuietNotice(WIDE("\t该简化表示名称已存在或非法，请重新输入\t"));
    }
}

// A representation that is being filled.
struct Filling {
    ProMdl assembly;
    ProSimprepdata* data;
    HostRecord<ProSimprep> representation;
};

void AddItem(ProSelection selection, ProSimprepAction* action, ProSimprepdata* data) {
    ProAsmcomppath path = {};
    if (ProSelectionAsmcomppathGet(selection, &path) != PRO_TK_NO_ERROR) return;
    if (path.table_num <= 0) return;
    HostRecord<ProSimprepitem> item;
    ProSimprepitemInit(path.comp_id_tab, path.table_num, -1, action, item.Place());
    if (item.IsFilled()) ProSimprepdataitemAdd(data, item.Place());
}

// Puts the selections in, makes the representation the active one and shows it.
void Include(const ProSelection* selections, int count, Filling* filling) {
    HostRecord<ProSimprepAction> action;
    ProSimprepActionInit(PRO_SIMPREP_INCLUDE, nullptr, action.Place());
    for (int i = 0; action.IsFilled() && i < count; ++i) {
        AddItem(selections[i], action.Place(), filling->data);
    }
    if (!filling->representation.IsFilled()) return;
    ProSimprep* representation = filling->representation.Place();
    const auto assembly = static_cast<ProSolid>(filling->assembly);
    ProSimprepdataSet(representation, filling->data);
    ProSimprepActivate(assembly, representation);
    ProSolidDisplay(assembly);
}

// False: the user picked nothing.
bool IncludePicked(Filling* filling) {
    ShowMessage("Please select parts or assemblies for simrep:");
    ProSelection* picked = nullptr;
    int count = 0;
    const ProError status =
        ProSelect(HostText("prt_or_asm"), -1, nullptr, nullptr, nullptr, nullptr, &picked, &count);
    if (status != PRO_TK_NO_ERROR || !picked || count <= 0) return false;
    Include(picked, count, filling);
    return true;
}

}  // namespace

void VxSimRep() {
    TopModel top;
    ProMdlCurrentGet(&top.model);
    if (!top.model) return;
    // In a manufacturing model the name stays its own, so that every entered one counts as free.
    const WideText modelName = ModelName(top.model);
    top.type = TypeOf(top.model);
    top = TopModelOf(top);
    if (!top.model) return;
    EnteredName name;
    if (!ReadFreeName(modelName, &name)) return;
    SimprepData data;
    ProSimprepdataAlloc(name.data(), PRO_B_FALSE, PRO_SIMPREP_EXCLUDE, data.Place());
    if (!data.get()) return;
    Filling filling = {top.model, data.get(), {}};
    const auto assembly = static_cast<ProSolid>(top.model);
    ProSimprepInit(name.data(), -1, assembly, filling.representation.Place());
    const ProError created = ProSimprepCreate(assembly, data.get(), filling.representation.Place());
    if (created != PRO_TK_NO_ERROR) return;
    HostArray<ProSelection> selections;
    ProSelection* buffer = nullptr;
    const bool isSelected = ProSelbufferSelectionsGet(&buffer) == PRO_TK_NO_ERROR;
    selections.Adopt(buffer);
    if (!isSelected && !IncludePicked(&filling)) return;
    Include(selections.data(), isSelected ? selections.Size() : 0, &filling);
}
