// The ground of the tests of VxBom: a small assembly, and the settings of its columns.
#pragma once

#include <functional>
#include <string>

#include "tests/support/observed.h"

namespace workbench {

// TOP holds a skeleton, BOLT three times and SUB twice; one more BOLT is suppressed, one GEAR does
// not show. SUB holds GEAR twice and BOLT once.
class BomBench : public ObservedBench {
protected:
    void SetUp() override;

    // The lists of columns, as in the settings file.
    void Columns(const std::string& summed, const std::string& levelled = {});

    // Opens the dialog, uses it from here instead of from a script, and closes it.
    void WithBom(const std::function<void(simhost::Dialog&)>& use);

    simhost::Model *top_ = nullptr, *sub_ = nullptr, *bolt_ = nullptr, *gear_ = nullptr,
                   *skeleton_ = nullptr;
};

// What a designer does to change to the levelled list, down to this level, and to load it.
std::string LoadLevels(const std::string& depth);
inline constexpr const char* kCloseBom = "~ Activate `VxBom` `Close`\n";

}  // namespace workbench
