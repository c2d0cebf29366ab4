// The ground of the tests of drawing commands.
#include "tests/drawing/drawing_bench.h"

#include <fmt/format.h>

#include <cmath>

#include "simhost/model/screen_view.h"

namespace workbench {

using namespace simhost;

void DrawingBench::SetUp() {
    Start();
    TextFolderSetting("TweViewsUseAutoMainView", "0");
}

Model& DrawingBench::BoxPart(const std::string& name, double x, double y, double z) {
    Model& model = Part(name);
    model.partData.solids[0].size = {x, y, z};
    return model;
}

std::string DrawingBench::Answer(const TwelveViewsAnswer& answer, const std::string& then) {
    std::string lines;
    const auto select = [&](const char* group, const std::string& name) {
        if (!name.empty()) lines += fmt::format("~ Select `TweViews` `{}` 1 `{}`\n", group, name);
    };
    select("DirectionRadio", answer.direction);
    select("ViewsRadio", answer.views);
    if (answer.exportIt) lines += "~ Activate `TweViews` `ExportCheckButton` 1\n";
    return lines + "~ Activate `TweViews` `ApplyBt`\n" + then;
}

void DrawingBench::MakeViews(const TwelveViewsAnswer& answer, const std::string& then) {
    Play("~ Command `TweViews`\n" + Answer(answer, then));
}

Model* DrawingBench::FindDrawing(const std::string& name) {
    return host().session.FindByName(Wide(name), PRO_MDL_DRAWING);
}

std::vector<DrawingView*> DrawingBench::Views(const std::string& name) {
    std::vector<DrawingView*> views;
    Model* model = FindDrawing(name);
    if (!model) return views;
    for (const auto& view : DrawingOf(*model).views()) views.push_back(view.get());
    return views;
}

std::string DrawingBench::OutlineText(DrawingView& view) {
    const Extents& box = DrawingOf(*view.drawing).OutlineOf(view);
    const auto number = [](double value) { return std::round(value * 1000) / 1000 + 0.0; };
    return fmt::format("{} {} {} {}", number(box.low.x), number(box.low.y), number(box.high.x),
                       number(box.high.y));
}

std::string DrawingBench::AxesText(const Placement& frame) {
    std::string text;
    for (const Vec3& axis : frame.axes) {
        if (!text.empty()) text += ' ';
        for (const double part : {axis.x, axis.y, axis.z}) {
            text += fmt::format("{}", std::round(part * 1000) / 1000 + 0.0);
        }
    }
    return text;
}

std::string DrawingBench::ScreenText(Model& model) {
    Placement frame;
    double scale = 0;
    if (!FrameOf(ScreenOf(model).matrix, &frame, &scale)) return "no rotation";
    return AxesText(frame);
}

}  // namespace workbench
