// Picking by name: a script says which component of the tree, and which item of it, the user picks.
#pragma once

#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "simhost/model/session.h"

namespace simhost {

// "A, B/C" as its paths, without the blanks around them.
std::vector<std::string> SplitPicks(const std::string& text);

// The components of a model with the steps that lead to them: "gear", "gear:2" for the second of
// that name, "gear.asm" where a part has the same name.
std::vector<std::pair<std::string, const Feature*>> ComponentSteps(const Model& model);

// The model that a path of components leads to below the current model, without an item; the
// current model itself for an empty path. Null: there is none.
Model* ModelAt(const std::string& path);

// What a path leads to below the current model. Its steps are the names of components, with or
// without their type, ":2" for the second of that name; after # an id of the component reached so
// far: GEAR#12 is a surface or a feature, edge#7 an item of that kind. "." is the current model
// itself. Nothing: there is no such thing, and *problem says what is missing.
std::optional<Selection> Pick(const std::string& path, std::string* problem);

// What all paths of a list lead to. A path that leads nowhere is told in *problem.
std::vector<Selection> PickAll(const std::string& paths, std::string* problem);

// The paths that lead to components and items, in the words that Pick takes. Each model's steps are
// looked for once, so that thousands of paths cost no more than their length: no model may change
// as long as this lives.
class PathNames {
public:
    // From the uppermost model down; "." is that model itself. A component that is there no more
    // has its id instead of a name.
    std::string Of(const Model* top, const std::vector<int>& ids);
    std::string Of(const Selection& selection);

private:
    using Steps = std::unordered_map<int, std::pair<std::string, const Model*>>;
    const Steps& StepsOf(const Model* model);
    std::unordered_map<const Model*, Steps> steps_;
};

}  // namespace simhost
