// Components that a simplified representation leaves out wherever they are used.
#pragma once

#include <cstdint>
#include <set>
#include <utility>

namespace simhost {

class Model;
class Session;

class Exclusions {
public:
    // Whether the active representation of the current model, or of the assembly that it
    // manufactures, leaves this component out of every use of its owner. What a component is
    // asked alone cannot be answered by its path.
    bool Has(const Session& session, const Model& owner, int id);

private:
    void LookThrough(const Model& top);

    const Model* top_ = nullptr;  // what the answers are of
    std::uint64_t revision_ = 0;
    int representation_ = 0;
    std::set<std::pair<const Model*, int>> excluded_;
};

}  // namespace simhost
