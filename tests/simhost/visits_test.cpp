// Visits to features and surfaces: what they answer when they end, and when nothing was taken.
#include <gtest/gtest.h>

#include <vector>

#include "hostapi/host.h"
#include "tests/support/workbench.h"

namespace {

using namespace simhost;

class Visits : public workbench::Workbench {
protected:
    std::vector<int> seen_;
    ProError filterSays_ = PRO_TK_NO_ERROR;
    ProError actionSays_ = PRO_TK_NO_ERROR;

    static ProError Filter(ProFeature*, ProAppData data) {
        return static_cast<Visits*>(data)->filterSays_;
    }
    static ProError Note(ProFeature* feature, ProError, ProAppData data) {
        auto* visits = static_cast<Visits*>(data);
        visits->seen_.push_back(feature->id);
        return visits->actionSays_;
    }
    static ProError FilterSurface(ProSurface, ProAppData data) {
        return static_cast<Visits*>(data)->filterSays_;
    }
    static ProError NoteSurface(ProSurface, ProError, ProAppData data) {
        return Note(&static_cast<Visits*>(data)->any_, PRO_TK_NO_ERROR, data);
    }
    ProError Visit(Model& model, ProFeatureFilterAction filter = Filter) {
        return ProSolidFeatVisit(static_cast<ProSolid>(model.handle), Note, filter, this);
    }
    ProError VisitSurfaces(Model& part) {
        return ProSolidSurfaceVisit(static_cast<ProSolid>(part.handle), NoteSurface, FilterSurface,
                                    this);
    }
    Model& TwoFeatures() {
        Model& part = Part("part");
        for (const int id : {3, 5}) {
            Feature feature;
            feature.id = id;
            part.AddFeature(feature);
        }
        return part;
    }

private:
    ProFeature any_ = {};
};

TEST_F(Visits, ToFeaturesThatAreAllPassedOverSucceed) {
    filterSays_ = PRO_TK_CONTINUE;
    EXPECT_EQ(Visit(TwoFeatures()), PRO_TK_NO_ERROR);
    EXPECT_EQ(seen_, std::vector<int>{});
}

TEST_F(Visits, ToASolidWithoutFeaturesSucceed) {
    EXPECT_EQ(Visit(Part("part")), PRO_TK_NO_ERROR);
    EXPECT_EQ(Visit(Assembly("top"), nullptr), PRO_TK_NO_ERROR);
    EXPECT_EQ(seen_, std::vector<int>{});
}

TEST_F(Visits, GoOnWhenTheActionSaysSoAndAnswerZero) {
    actionSays_ = PRO_TK_CONTINUE;
    EXPECT_EQ(Visit(TwoFeatures()), PRO_TK_NO_ERROR);
    EXPECT_EQ(seen_, (std::vector<int>{3, 5}));
}

TEST_F(Visits, EndWithWhatTheFilterOrTheActionSays) {
    Model& part = TwoFeatures();
    filterSays_ = PRO_TK_E_NOT_FOUND;
    EXPECT_EQ(Visit(part), PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(seen_, std::vector<int>{});
    filterSays_ = PRO_TK_NO_ERROR;
    actionSays_ = PRO_TK_USER_ABORT;
    EXPECT_EQ(Visit(part), PRO_TK_USER_ABORT);
    EXPECT_EQ(seen_, std::vector<int>{3});
}

TEST_F(Visits, ToSurfacesOfWhichNoneIsTakenFindNothing) {
    filterSays_ = PRO_TK_CONTINUE;
    EXPECT_EQ(VisitSurfaces(Part("block")), PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(VisitSurfaces(Part("empty", 0)), PRO_TK_E_NOT_FOUND);
}

}  // namespace
