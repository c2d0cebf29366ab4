// Building and flattening of the tree.
#include "tables/bom_tree.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "frame/services.h"

std::vector<BomNode*> BomFlatList;

namespace {

// A node whose components are being visited. Looking siblings up by name keeps large assemblies
// from being compared name by name.
struct Parent {
    BomNode* node;
    std::unordered_map<WideText, std::size_t> childByName = {};  // by the folded name
};

void VisitBelow(ProMdl model, BomNode* node);

// The number of the child that comes next; the root's own 0 is not shown before it.
WideText NextNumber(const BomNode& parent) {
    constexpr WideView kRoot = WIDE("0.");
    WideText number = parent.number + WIDE(".") + Digits(int(parent.children.size()) + 1);
    if (number.compare(0, kRoot.size(), kRoot) == 0) number.erase(0, kRoot.size());
    return number;
}

ProError VisitComponent(ProFeature* feature, ProError, ProAppData data) {
    if (!IsShown(feature)) return PRO_TK_NO_ERROR;
    Parent& parent = *static_cast<Parent*>(data);
    ProMdl model = nullptr;
    if (ProAsmcompMdlGet(feature, &model) != PRO_TK_NO_ERROR) return PRO_TK_CONTINUE;
    BomNode node;
    node.name = ModelName(model);
    node.type = TypeOf(model);
    node.number = NextNumber(*parent.node);
    // A repeated sibling is walked as well, and then dropped with all that was found below it.
    VisitBelow(model, &node);
    std::vector<BomNode>& siblings = parent.node->children;
    const auto [like, isNew] = parent.childByName.try_emplace(FoldCase(node.name), siblings.size());
    if (isNew) {
        siblings.push_back(std::move(node));
    } else {
        ++siblings[like->second].count;
    }
    return PRO_TK_NO_ERROR;
}

void VisitBelow(ProMdl model, BomNode* node) {
    Parent parent{node};
    ProSolidFeatVisit(static_cast<ProSolid>(model), Guarded<VisitComponent>, ComponentFilter,
                      &parent);
}

}  // namespace

BomNode BuildBomTree(ProMdl root) {
    BomNode node;
    node.type = PRO_MDL_ASSEMBLY;
    if (!root) return node;
    node.name = ModelName(root);
    VisitBelow(root, &node);
    return node;
}

void FlattenBom(BomNode* node, int level) {
    node->level = std::max(level, 0);
    BomFlatList.push_back(node);
    for (BomNode& child : node->children) FlattenBom(&child, node->level + 1);
}
