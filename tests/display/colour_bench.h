// Batch colouring as it can be foretold: the draws from a seed, and the part that each goes to.
#pragma once

#include <cstdint>
#include <ctime>
#include <map>
#include <string>
#include <vector>

#include "tests/support/observed.h"

namespace workbench {

// Red, green, blue, 0 to 255.
struct Rgb {
    int red = 0, green = 0, blue = 0;
    bool operator==(const Rgb& other) const {
        return red == other.red && green == other.green && blue == other.blue;
    }
};
std::ostream& operator<<(std::ostream& stream, const Rgb& colour);

// What the command's generator yields, written down from its rule: 32 bits of state, of which
// bits 16 to 30 are the number.
class Draws {
public:
    explicit Draws(std::uint32_t seed) : state_(seed) {}
    int Next() {
        state_ = state_ * 214013u + 2531011u;
        return int(state_ >> 16 & 0x7fffu);
    }

private:
    std::uint32_t state_;
};

// The last colour of each model that is painted.
using Colours = std::map<const simhost::Model*, Rgb>;

class ColourBench : public ObservedBench {
protected:
    void SetUp() override;

    // The palettes of tests, below the text folder: section N of asUG is the colour N.1.2, of
    // Optimization 3.N.4.
    static Rgb ExpectedColour(const std::string& mode, Draws* draws);
    void WritePalettes();
    void WritePalette(const std::string& file, const std::string& text);  // in the text folder

    // What the models of a list get from this seed in this mode: each draws in the order of the
    // handles, and an assembly's colour goes to the part before it.
    static Colours Foretold(std::uint32_t seed, const std::string& mode,
                            std::vector<simhost::Model*> models);
    // The colours that the models have now; a model without one is not there.
    static Colours Present(const std::vector<simhost::Model*>& models);

    // Presses BatchColor and compares the models with what one of the seconds of the press gives.
    void ExpectForetold(const std::string& mode, const std::vector<simhost::Model*>& models);

    // Models made until their handles are in this order.
    simhost::Model& PartBehind(const simhost::Model& model);
    simhost::Model& AssemblyBehind(const simhost::Model& model);
    simhost::Model& AssemblyBefore(const simhost::Model& model);

    // Runs the command where its access rule would not let the user press it.
    void RunAction(const std::string& name);

    // A colour of its own for every surface of the part.
    static void ColourSurfaces(simhost::Model& part);

private:
    simhost::Model& MadeUntil(bool behind, const simhost::Model& model, bool part);
    int made_ = 0;
};

// The whole appearance that goes with a colour.
ProdbSurfaceProps WholeRecord(double red, double green, double blue);
// Every byte of an appearance, shown as its thirteen numbers.
std::vector<double> Numbers(const ProdbSurfaceProps& props);

}  // namespace workbench
