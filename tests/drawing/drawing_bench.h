// The ground of the tests of drawing commands: boxes of any size, the dialog TweViews filled and
// applied, and the views that came of it.
#pragma once

#include <string>
#include <vector>

#include "simhost/model/drawing.h"
#include "tests/support/workbench.h"

namespace workbench {

// What the dialog is told; empty texts and nothing ticked leave it as it opens.
struct TwelveViewsAnswer {
    std::string direction, views;
    bool exportIt = false;
};

class DrawingBench : public Workbench {
protected:
    // Starts the plug-in. The model's extents say how the main view is turned, not the screen.
    void SetUp() override;

    // A part of one box from the origin to this corner.
    simhost::Model& BoxPart(const std::string& name, double x, double y, double z);

    // The lines that fill the dialog TweViews and press ApplyBt; `then` answers what follows.
    static std::string Answer(const TwelveViewsAnswer& answer, const std::string& then = {});
    // Presses TweViews and answers its dialog.
    void MakeViews(const TwelveViewsAnswer& answer = {}, const std::string& then = {});

    // A drawing in memory by its name; null if there is none.
    simhost::Model* FindDrawing(const std::string& name);
    // Its views in the order of their making; none if there is no such drawing.
    std::vector<simhost::DrawingView*> Views(const std::string& name);

    // "x0 y0 x1 y1" of a view's outline, to three decimals.
    std::string OutlineText(simhost::DrawingView& view);
    // The three rows of an orientation or of a screen view, without its scale: "100 0-10 001"
    // for axes that lie straight.
    static std::string AxesText(const simhost::Placement& frame);
    std::string ScreenText(simhost::Model& model);
};

}  // namespace workbench
