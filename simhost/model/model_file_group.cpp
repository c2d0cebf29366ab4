// The text of groups: [group], [[reference]], [[dimension]] and [[solid]] in a file of their own;
// likewise below their [[feature]] in the file of a part, with the values that they got there.
#include "simhost/model/model_file_group.h"

#include <algorithm>
#include <memory>

#include "simhost/model/solid_features.h"

namespace simhost {

using namespace model_text;

namespace {

constexpr Field<GroupReference> kReferenceFields[] = {
    Required(Of<&GroupReference::prompt>("prompt")),
};
constexpr Field<GroupReference> kPlacedFields[] = {
    Required(Of<&GroupReference::prompt>("prompt")),
    Required(Whole<1, &GroupReference::csysId>("csys")),
};
constexpr Field<GroupDimension> kGroupDimensionFields[] = {
    Required(Of<&GroupDimension::name>("name")),
    Required(Of<&GroupDimension::value>("value")),
};

template <class Record, class Rows, class Name>
void ReadList(const toml::table& holder, const char* key, const Rows& rows, Name name,
              std::vector<Record>* list) {
    EachTable(holder, key, [&](const toml::table& table) {
        Record record;
        ReadRecord(table, rows, &record);
        const bool twice = std::any_of(list->begin(), list->end(), [&](const Record& other) {
            return other.*name == record.*name;
        });
        if (twice) Fail(table.source(), Quoted(record.*name) + " is there twice");
        list->push_back(std::move(record));
    });
}

std::string Unchanged(const toml::node& node, std::string_view key) {
    return TextText(Text(node, key));
}

void ReadSolids(const toml::table& holder, Group* group) {
    EachTable(holder, "solid", [&](const toml::table& table) {
        group->solids.push_back(GroupSolidText(table, Unchanged));
    });
    if (group->solids.empty()) Fail(holder.source(), "a group has at least one [[solid]]");
}

template <class Rows>
void ReadParts(const toml::table& holder, const Rows& referenceRows, Group* group) {
    ReadList(holder, "reference", referenceRows, &GroupReference::prompt, &group->references);
    if (group->references.empty()) Fail(holder.source(), "a group has at least one [[reference]]");
    ReadList(holder, "dimension", kGroupDimensionFields, &GroupDimension::name, &group->dimensions);
    ReadSolids(holder, group);
}

std::string NumbersText(const toml::node& node, std::string_view key, const GroupNumber& number) {
    if (node.is_string()) return number(node, key);
    if (node.is_number()) return NumberText(NumberOf(node, key));
    if (!node.is_array()) {
        Fail(node.source(), Quoted(key) + " must be a number, an expression or a list of such");
    }
    std::string list;
    for (const toml::node& one : *node.as_array()) {
        list += (list.empty() ? "" : ", ") + NumbersText(one, key, number);
    }
    return '[' + list + ']';
}

}  // namespace

std::string GroupSolidText(const toml::table& solid, const GroupNumber& number) {
    std::string text;
    for (const auto& [key, node] : solid) {
        const std::string name(key.str());
        const bool word = name == "shape";
        Line(&text, name.c_str(), word ? Unchanged(node, name) : NumbersText(node, name, number));
    }
    return text;
}

Group ReadGroupText(const std::string& text, const std::string& fileName) {
    Group group;
    try {
        const toml::table root = toml::parse(std::string_view(text), std::string_view(fileName));
        Allow(root, {"group", "reference", "dimension", "solid"});
        const toml::table* about = Table(root, "group");
        if (!about) Fail(root.source(), "the table [group] is missing");
        Allow(*about, {"name"});
        group.name = Text(model_text::Require(*about, "name"), "name");
        ReadParts(root, kReferenceFields, &group);
    } catch (const toml::parse_error& error) {
        Fail(error.source(), std::string(error.description()));
    }
    SolidsOf(group, {});  // what is wrong with its solids is told now
    return group;
}

// --- As features of a part ---

namespace {

constexpr const char* kMergeKey = "merge";

constexpr Field<Merge> kMergeFields[] = {
    RequiredLink<&Merge::file, &Merge::source>("model"),
    Of<&Merge::from, &Placement::origin>("at"),
    TurnField<&Merge::from>("turn"),
    Of<&Merge::to, &Placement::origin>("target_at"),
    TurnField<&Merge::to>("target_turn"),
};

std::shared_ptr<Group> ReadGroup(const toml::table& table) {
    auto group = std::make_shared<Group>();
    group->name = Text(model_text::Require(table, "group"), "group");
    ReadParts(table, kPlacedFields, group.get());
    return group;
}

void AddGroup(std::string* text, const Group& group) {
    Line(text, "group", TextText(group.name));
    AddRecords(text, "\n[[feature.reference]]\n", kPlacedFields, group.references);
    AddRecords(text, "\n[[feature.dimension]]\n", kGroupDimensionFields, group.dimensions);
    for (const std::string& solid : group.solids) *text += "\n[[feature.solid]]\n" + solid;
}

}  // namespace

const Keys kSolidFeatureKeys{"group", "reference", "dimension", "solid", kMergeKey};

void ReadSolidFeature(const toml::table& table, Feature* feature) {
    if (feature->type == kGroupFeature) feature->group = ReadGroup(table);
    if (feature->type == kMergeFeature) {
        const toml::table* merge = Table(table, kMergeKey);
        if (!merge) Fail(table.source(), "a merge needs the table [feature.merge]");
        feature->merge = std::make_shared<Merge>();
        ReadRecord(*merge, kMergeFields, feature->merge.get());
    }
    for (const std::string_view key : kSolidFeatureKeys) {
        const bool ofMerge = key == kMergeKey;
        if (ofMerge ? feature->merge != nullptr : feature->group != nullptr) continue;
        const toml::node* node = table.get(key);
        if (!node) continue;
        Fail(node->source(), Quoted(key) + " is only for " +
                                 (ofMerge ? "merges (type 1238)" : "groups (type 925)"));
    }
}

void AddSolidFeature(std::string* text, const Feature& feature) {
    if (feature.group) AddGroup(text, *feature.group);
    if (!feature.merge) return;
    *text += "\n[feature.";
    *text += kMergeKey;
    *text += "]\n";
    AddFields(text, kMergeFields, *feature.merge);
}

}  // namespace simhost
