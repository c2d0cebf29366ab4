// Batch colouring as it can be foretold.
#include "tests/display/colour_bench.h"

#include <cmath>
#include <cstring>
#include <ostream>
#include <sstream>

namespace workbench {

using namespace simhost;

std::ostream& operator<<(std::ostream& stream, const Rgb& colour) {
    return stream << colour.red << '.' << colour.green << '.' << colour.blue;
}

void ColourBench::SetUp() {
    Start();
    ASSERT_EQ(startStatus_, 0);
    WritePalettes();
}

void ColourBench::WritePalette(const std::string& file, const std::string& text) {
    Write(kTextFolder + WIDE("\\VXconfig\\") + Wide(file), text);
}

void ColourBench::WritePalettes() {
    std::string first, second;
    for (int i = 0; i < 217; ++i) {
        const std::string number = std::to_string(i);
        first += "[" + number + "]\r\nvalue=" + number + ".1.2\r\n";
        if (i < 201) second += "[" + number + "]\r\nvalue=3." + number + ".4\r\n";
    }
    WritePalette("VxUGColor.ini", first);
    WritePalette("VxOptiColor.ini", second);
}

Rgb ColourBench::ExpectedColour(const std::string& mode, Draws* draws) {
    if (mode == "asUG") return {draws->Next() % 217, 1, 2};
    if (mode == "Optimization") return {3, draws->Next() % 201, 4};
    const int red = draws->Next() % 256;
    const int green = draws->Next() % 256;
    const int blue = draws->Next() % 256;
    return {red, green, blue};
}

Colours ColourBench::Foretold(std::uint32_t seed, const std::string& mode,
                              std::vector<Model*> models) {
    SortByHandle(&models);
    Draws draws(seed);
    Colours colours;
    const Model* painted = nullptr;
    for (const Model* model : models) {
        if (model->type == PRO_MDL_PART) painted = model;
        const Rgb colour = ExpectedColour(mode, &draws);
        if (painted) colours[painted] = colour;
    }
    return colours;
}

Colours ColourBench::Present(const std::vector<Model*>& models) {
    const auto whole = [](double part) {
        const long value = std::lround(part * 255);
        EXPECT_EQ(part, double(value) / 255.0);
        return int(value);
    };
    Colours colours;
    for (const Model* model : models) {
        if (!model->appearance) continue;
        const double* colour = model->appearance->colour;
        colours[model] = {whole(colour[0]), whole(colour[1]), whole(colour[2])};
    }
    return colours;
}

void ColourBench::ExpectForetold(const std::string& mode, const std::vector<Model*>& models) {
    const std::time_t before = std::time(nullptr);
    Press("BatchColor");
    const std::time_t after = std::time(nullptr);
    const Colours present = Present(models);
    EXPECT_FALSE(present.empty());
    for (std::time_t second = before; second <= after; ++second) {
        if (Foretold(std::uint32_t(second), mode, models) == present) return;
    }
    std::string text;
    for (const auto& [model, colour] : Foretold(std::uint32_t(before), mode, models)) {
        std::ostringstream line;
        line << "  " << model->FileName() << ": " << colour << ", found ";
        const auto found = present.find(model);
        found == present.end() ? line << "none" : line << found->second;
        text += line.str() + '\n';
    }
    ADD_FAILURE() << mode << ": no second of the press gives these colours; of the first\n" << text;
}

Model& ColourBench::MadeUntil(bool behind, const Model& model, bool part) {
    for (int tries = 0; tries < 1000; ++tries) {
        const std::string name = "made" + std::to_string(++made_);
        Model& made = part ? Part(name) : Assembly(name);
        const bool isBehind = std::less<>()(model.handle, made.handle);
        if (isBehind == behind) return made;
    }
    throw std::runtime_error("no handle lies on that side");
}

Model& ColourBench::PartBehind(const Model& model) {
    return MadeUntil(/*behind=*/true, model, /*part=*/true);
}

Model& ColourBench::AssemblyBehind(const Model& model) {
    return MadeUntil(/*behind=*/true, model, /*part=*/false);
}

Model& ColourBench::AssemblyBefore(const Model& model) {
    return MadeUntil(/*behind=*/false, model, /*part=*/false);
}

void ColourBench::RunAction(const std::string& name) {
    const Command* command = host().commands.Newest(name);
    ASSERT_NE(command, nullptr);
    EXPECT_EQ(command->action(command->id, nullptr, nullptr), 0);
}

void ColourBench::ColourSurfaces(Model& part) {
    for (const auto& surface : part.Surfaces()) {
        part.partData.surfaceAppearances[surface->id] = WholeRecord(1, 0, 0);
    }
}

ProdbSurfaceProps WholeRecord(double red, double green, double blue) {
    ProdbSurfaceProps props = {};
    props.ambient = 0.6;
    props.diffuse = 0.9;
    props.highlight = 0.6;
    props.shininess = 0.6;
    props.colour[0] = red;
    props.colour[1] = green;
    props.colour[2] = blue;
    for (double& part : props.highlightColour) part = 1.0;
    props.reflection = 0.3;
    return props;
}

std::vector<double> Numbers(const ProdbSurfaceProps& props) {
    static_assert(sizeof props == 13 * sizeof(double));
    std::vector<double> numbers(13);
    std::memcpy(numbers.data(), &props, sizeof props);
    return numbers;
}

}  // namespace workbench
