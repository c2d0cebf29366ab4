// Filling of the table.
#include "tables/bom_table.h"

#include <vector>

#include "frame/services.h"
#include "tables/bom_tree.h"

namespace {

// One row to be: a model, and what the columns with a fixed meaning show of it.
struct BomRow {
    WideText name;
    ProMdlType type = PRO_MDL_UNUSED;
    int count = 0;
    const BomNode* node = nullptr;  // level by level: its place in the tree
};

std::optional<WideText> ParameterOf(ProModelitem* item, const WideText& label) {
    if (!item->owner || label.size() >= PRO_NAME_SIZE) return std::nullopt;
    ProParameter parameter = {};
    if (!FindParameter(item, label, &parameter)) return std::nullopt;
    ProParamvalue value = {};
    if (ProParameterValueGet(&parameter, &value) != PRO_TK_NO_ERROR) return std::nullopt;
    return ParameterText(value);
}

class TableFill {
public:
    explicit TableFill(const std::vector<WideText>& labels) : labels_(labels) {}

    // A skeleton gets no row.
    void Add(const BomRow& row) {
        Retrieve(row);
        if (IsSkeleton()) return;
        const std::string number = std::to_string(rows_ + 1);
        if (!Insert(number)) return;
        SetCell(row, number, BomColumn(0), Digits(rows_));
        ProModelitem item = {PRO_TYPE_UNUSED, 0, nullptr};
        if (model_) ProMdlToModelitem(model_, &item);
        for (std::size_t i = 1; i < labels_.size(); ++i) {
            const auto text = CellText(row, labels_[i], &item);
            if (text) SetCell(row, number, BomColumn(i), *text);
        }
    }

private:
    // A model that cannot be retrieved leaves the one of the row before in its place.
    void Retrieve(const BomRow& row) {
        if (row.type != PRO_MDL_PART && row.type != PRO_MDL_ASSEMBLY) return;
        ProMdlRetrieve(HostText(row.name), row.type, &model_);
    }

    bool IsSkeleton() const {
        ProBoolean skeleton = PRO_B_FALSE;
        if (model_) ProMdlIsSkeleton(model_, &skeleton);
        return skeleton == PRO_B_TRUE;
    }

    bool Insert(const std::string& number) {
        const std::string last = rows_ > 0 ? std::to_string(rows_) : std::string();
        if (!kBomTable.InsertRow(last, number)) return false;
        ++rows_;
        return true;
    }

    static std::optional<WideText> CellText(const BomRow& row, const WideText& label,
                                            ProModelitem* item) {
        if (label == kModelNameLabel) return row.name;
        if (label == WIDE("模型数量")) return Digits(row.count);
        if (row.node && label == WIDE("层级1")) return Digits(row.node->level);
        if (row.node && label == WIDE("层级2")) return row.node->number;
        return ParameterOf(item, label);
    }

    static void SetCell(const BomRow& row, const std::string& number, const std::string& column,
                        const WideText& text) {
        kBomTable.SetCellText(number, column, text);
        if (row.type == PRO_MDL_ASSEMBLY) kBomTable.SetCellColour(number, column, kAssemblyColour);
    }

    const std::vector<WideText>& labels_;
    ProMdl model_ = nullptr;
    int rows_ = 0;
};

// The list refers into the tree, so it is emptied before the tree goes.
class FlatListScope {
public:
    FlatListScope() { BomFlatList.clear(); }
    ~FlatListScope() { BomFlatList.clear(); }
    FlatListScope(const FlatListScope&) = delete;
    FlatListScope& operator=(const FlatListScope&) = delete;
};

}  // namespace

std::string BomColumn(std::size_t position) {
    return position == 0 ? "num" : "param" + std::to_string(position);
}

void FillFlatBom(ProMdl assembly, const std::vector<WideText>& labels) {
    if (!assembly) return;
    TableFill fill(labels);
    for (const ModelCount& one : CountModels(assembly)) {
        BomRow row;
        row.type = TypeOf(one.model);
        row.name = ModelName(one.model);
        row.count = one.count;
        fill.Add(row);
    }
}

void FillLevelBom(ProMdl assembly, int depth, const std::vector<WideText>& labels) {
    if (!assembly) return;
    BomNode root = BuildBomTree(assembly);
    const FlatListScope scope;
    FlattenBom(&root, 0);
    TableFill fill(labels);
    for (const BomNode* node : BomFlatList) {
        if (node->level > depth) continue;
        fill.Add({node->name, node->type, node->count, node});
    }
}
