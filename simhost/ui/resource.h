// Dialog resources: the text files that say which components a dialog has and how they are laid
// out.
//
//     (Dialog Greeting
//         (Components (Label Title) (PushButton OK))
//         (Resources
//             (Title.Label "Good morning")      ! an attribute of a component
//             (.Label      "Greeting")          ! an attribute of the dialog
//             (.Layout (Grid (Rows 1 1) (Cols 1) Title OK))))
#pragma once

#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace simhost {

// What is wrong with a resource, with its file and line.
struct ResourceError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct ResourceComponent {
    std::string kind, name;
    int line = 0;
};

struct ResourceAttribute {
    std::string component;  // empty: of the dialog itself
    std::string name;
    std::vector<std::string> values;  // UTF-8
    int line = 0;
};

// A grid of components and further grids, filled row by row; or one component, if it has a name.
struct Grid {
    std::string component;
    std::vector<int> rows, cols;  // how much each takes of spare room
    std::vector<Grid> children;
};

struct DialogResource {
    std::string name;
    std::vector<ResourceComponent> components;
    std::vector<ResourceAttribute> attributes;  // all but the layouts
    std::map<std::string, Grid> layouts;        // by component; "" is the dialog's own

    // The attribute's values; null if the resource does not give it.
    const std::vector<std::string>* Find(std::string_view component, std::string_view name) const;
    // Its first value as a number.
    int Whole(std::string_view component, std::string_view name, int byDefault) const;
};

// Throws ResourceError. `fileName` is for its message only.
DialogResource ParseResource(std::string_view text, const std::string& fileName);

}  // namespace simhost
