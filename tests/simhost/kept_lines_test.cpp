// The lines of a view are made once, and anew after whatever they follow from has changed.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "simhost/core/text.h"
#include "simhost/host.h"
#include "simhost/picture/dxf.h"
#include "simhost/picture/kept_lines.h"
#include "simhost/picture/sheet.h"

namespace {

using namespace simhost;

// An assembly of a box twice, seen from the front and from above.
class KeptLinesTest : public ::testing::Test {
protected:
    void SetUp() override {
        RestartHost();
        Session& session = TheHost().session;
        part_ = &session.Create(WIDE("KEPT_BOX"), PRO_MDL_PART);
        AddBox(10);
        top_ = &session.Create(WIDE("KEPT_TOP"), PRO_MDL_ASSEMBLY);
        for (const int id : {1, 2}) {
            Feature use;
            use.id = id;
            use.type = PRO_FEAT_COMPONENT;
            use.model = part_;
            use.placement.origin = {40.0 * id, 0, 0};
            top_->AddFeature(use);
        }
        sheet_ = &session.Create(WIDE("KEPT_SHEET"), PRO_MDL_DRAWING);
        sheet_->drawingData.sheets = {WIDE("A3")};
        main_ = &DrawingOf(*sheet_).AddGeneral(*top_, 1, {100, 100, 0}, 1, Placement());
        main_->display.style = PRO_DISPSTYLE_HIDDEN_LINE;
        below_ = DrawingOf(*sheet_).AddProjected(*main_, {100, 35, 0});
    }

    void AddBox(int id) {
        Solid box;
        box.id = id;
        box.shape = Shape::Box;
        box.size = {30, 20, 10};
        part_->partData.solids.push_back(box);
    }

    // How often the lines of the lower view are made; they are asked for twice.
    int Draws() {
        int count = 0;
        for (int i = 0; i < 2; ++i) {
            KeptLines(DrawingOf(*sheet_), *below_, ShownParts(*top_, Sight::Views), [&] {
                ++count;
                return std::vector<DrawnLine>{};
            });
        }
        return count;
    }
    Feature& Use(int id) { return *top_->FindFeature(id); }

    Model* part_ = nullptr;
    Model* top_ = nullptr;
    Model* sheet_ = nullptr;
    DrawingView* main_ = nullptr;
    DrawingView* below_ = nullptr;
};

TEST_F(KeptLinesTest, TheLinesOfAViewAreMadeOnce) {
    // A scale that no other test has, since lines are kept from one to the next.
    main_->scale = 0.875;
    EXPECT_EQ(Draws(), 1);
    EXPECT_EQ(Draws(), 0);
}

TEST_F(KeptLinesTest, EveryChangeOfModelOrViewMakesTheLinesAnew) {
    const std::pair<const char*, std::function<void()>> changes[] = {
        {"a scale", [&] { main_->scale = 0.75; }},
        {"a place", [&] { below_->at.y -= 0.25; }},
        {"a turn",
         [&] {
             main_->orientation = PlacementFrom({}, {0, 30, 0});
         }},
        {"a style", [&] { below_->display.style = PRO_DISPSTYLE_NO_HIDDEN; }},
        {"a rule", [&] { DrawingOf(*sheet_).rule = ProjectionRule::ThirdAngle; }},
        {"a size", [&] { part_->partData.solids[0].size.z = 12; }},
        {"one solid more", [&] { AddBox(20); }},
        {"a component's place", [&] { Use(2).placement.origin.y = 7; }},
        {"a component's turn",
         [&] {
             Use(2).placement = PlacementFrom({90, 0, 0}, {0, 0, 9});
         }},
        {"an invisible component", [&] { Use(1).visible = false; }},
        {"a suppressed component", [&] { Use(2).status = PRO_FEAT_SUPPRESSED; }},
    };
    main_->scale = 0.625;
    EXPECT_EQ(Draws(), 1);
    for (const auto& [what, change] : changes) {
        change();
        EXPECT_EQ(Draws(), 1) << what;
    }
}

// What a user hides on the screen stays on drawings, so their lines stay, too.
TEST_F(KeptLinesTest, WhatIsNotInTheLinesMakesNoneAnew) {
    main_->scale = 0.5625;
    EXPECT_EQ(Draws(), 1);
    Use(1).hidden = true;
    part_->title = "Box";
    sheet_->name = WIDE("KEPT_OTHER");
    EXPECT_EQ(Draws(), 0);
}

TEST_F(KeptLinesTest, TheSheetAndItsFilesFollowTheModel) {
    const std::string picture = SheetSvg(*sheet_, 1, 800), text = SheetDxf(*sheet_, 1);
    EXPECT_EQ(SheetSvg(*sheet_, 1, 800), picture);
    part_->partData.solids[0].size.y = 25;
    const std::string changedPicture = SheetSvg(*sheet_, 1, 800);
    EXPECT_NE(changedPicture, picture);
    EXPECT_NE(SheetDxf(*sheet_, 1), text);
    part_->partData.solids[0].size.y = 20;
    EXPECT_EQ(SheetSvg(*sheet_, 1, 800), picture);
    EXPECT_EQ(SheetDxf(*sheet_, 1), text);
}

}  // namespace
