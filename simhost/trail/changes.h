// What a press has changed, for people: the models before and after.
#pragma once

#include <cstddef>
#include <map>
#include <string>

namespace simhost {

class Changes {
public:
    // What changes from now on counts.
    void Begin() { before_ = Look(); }
    // What has changed since, in a line such as "changed: colours of 44 models"; empty for
    // nothing. What is told counts as before from then on.
    std::string Tell();

private:
    struct State {
        std::string file;  // its name
        // Hashes of their contents.
        std::size_t colours = 0, parameters = 0, relations = 0, representations = 0;
        std::string hidden;  // a letter for each feature
    };
    using States = std::map<const void*, State>;  // by the model's handle, which is never reused
    static States Look();
    States before_;
};

}  // namespace simhost
