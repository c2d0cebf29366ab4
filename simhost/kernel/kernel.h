// The geometry kernel, which lies in a library of its own that is loaded when it is first asked
// for; there may be none.
#pragma once

#include <stdexcept>
#include <string>

#include "simhost/kernel/document.h"

namespace simhost::kernel {

// What the kernel could not do, in its own words. It throws nothing else.
struct Failure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// What the library offers.
class Kernel {
public:
    virtual ~Kernel() = default;
    // The bytes of an exchange file: STEP by application protocol 214, and IGES 5.3. The same
    // document gives the same bytes as STEP; as IGES the kernel may order them otherwise.
    virtual std::string Step(const Document& document) = 0;
    virtual std::string Iges(const Document& document) = 0;
    // What an exchange file of a real path holds, with solids of imported bodies whose numbers
    // begin at 1 in each part. The first product is the top: the file's own, or a nameless one
    // that holds its roots if it has several.
    virtual Document ReadStep(const std::string& path) = 0;
    virtual Document ReadIges(const std::string& path) = 0;
};

// Null: there is no kernel here.
Kernel* TheKernel();

// The one function that the library shows, under this name.
using MakeKernel = Kernel* (*)();
inline constexpr const char* kMakeKernel = "SimhostKernel";

}  // namespace simhost::kernel
