// Coordinate systems: features of a solid with a place of their own, and a number of their own as
// items.
#pragma once

#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "simhost/core/handles.h"
#include "simhost/model/model.h"

namespace simhost {

// As of every datum.
int CsysIdOf(const Feature& feature);

// The feature of a coordinate system of the model, by its number as an item. Null: there is none.
Feature* FindCsys(Model& model, int csysId);

// A coordinate system that somebody has a handle of.
struct Csys {
    Model* model = nullptr;
    int feature = 0;
};

// Handles of coordinate systems: the same one has the same handle for as long as it is there.
class CsysHandles {
public:
    ProCsys Of(Model& model, const Feature& feature);
    // Null: it is none, or its feature or model is gone.
    const Csys* Find(const void* handle) const;
    void Forget(const Model& model);

private:
    struct Known {
        Csys csys;
        void* handle = nullptr;
    };
    std::map<std::pair<const Model*, int>, std::unique_ptr<Known>> known_;
    HandleTable<Known> handles_{HandleKind::Csys};
};

}  // namespace simhost
