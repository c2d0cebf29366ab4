// Parameters, relations, family tables and paths of the simulated host: what a file says, what the
// door answers, and what it complains about.
#include <gtest/gtest.h>

#include <utility>

#include "simhost/core/text.h"
#include "simhost/host.h"
#include "simhost/model/model_file.h"

namespace {

using namespace simhost;

class ModelData : public ::testing::Test {
protected:
    void SetUp() override {
        RestartHost();
        part_ = &TheHost().session.Create(WIDE("a"), PRO_MDL_PART);
        ASSERT_EQ(ProMdlToModelitem(part_->handle, &item_), PRO_TK_NO_ERROR);
    }
    void TearDown() override {
        EXPECT_EQ(std::exchange(TheHost().complaints, {}), std::vector<std::string>{});
    }

    static ProParamvalue Whole(int number) {
        ProParamvalue value{};
        value.type = PRO_PARAM_INTEGER;
        value.value.i_val = number;
        return value;
    }
    ProError Create(const WideText& name, ProParamvalue value) {
        ProParameter made{};
        return ProParameterCreate(&item_, const_cast<WideChar*>(name.c_str()), &value, &made);
    }
    ProParameter Named(const WideText& name) {
        ProParameter parameter{};
        ProParameterInit(&item_, const_cast<WideChar*>(name.c_str()), &parameter);
        return parameter;
    }

    Model* part_ = nullptr;
    ProModelitem item_{};
};

std::string RoundTrip(const std::string& text, ProMdlType type = PRO_MDL_PART) {
    Model model;
    model.type = type;
    ReadModelText(text, "a.prt.1", &model);
    return ModelText(model);
}

TEST_F(ModelData, AFileKeepsParametersRelationsAndFamilyTables) {
    const std::string text =
        "[model]\ntype = \"part\"\n"
        "\n[[parameter]]\nname = \"代号\"\nvalue = \"VX-01\"\n"
        "\n[[parameter]]\nname = \"N\"\nvalue = 4\nlocked = true\n"
        "\n[[parameter]]\nname = \"MASS\"\nvalue = 12.0\n"
        "\n[[parameter]]\nname = \"OK\"\nvalue = true\n"
        "\n[relations]\ninitial = [\"MASS = 2 * N\", \"/* note\"]\nafter_regeneration = [\"x=1\"]\n"
        "\n[family]\ncolumns = [\"数量\"]\ngeneric = \"b.prt\"\n";
    EXPECT_EQ(RoundTrip(text), text);
}

TEST_F(ModelData, AFileKeepsAnEmptySetOfRelationsAndTheSheetsOfADrawing) {
    const std::string text = "[model]\ntype = \"part\"\n\n[relations]\ninitial = []\n";
    EXPECT_EQ(RoundTrip(text), text);
    const std::string drawing =
        "[model]\ntype = \"drawing\"\nread_only = true\n\n[sheets]\nsizes = [\"A3\", \"A4\"]\n";
    EXPECT_EQ(RoundTrip(drawing, PRO_MDL_DRAWING), drawing);
}

TEST_F(ModelData, WhoeverMistypesAParameterLearnsWhere) {
    const auto wrong = [](const std::string& text) -> std::string {
        try {
            RoundTrip("[model]\ntype = \"part\"\n" + text);
        } catch (const ModelFileError& error) {
            return error.what();
        }
        return "nothing";
    };
    EXPECT_EQ(wrong("[[parameter]]\nname = \"1st\"\nvalue = 1\n"),
              "a.prt.1:4: no parameter can have the name \"1st\"");
    EXPECT_EQ(wrong("[[parameter]]\nname = \"A\"\nvalue = 1\n[[parameter]]\nname = \"a\"\nvalue = "
                    "2\n"),
              "a.prt.1:7: the parameter \"a\" is there twice");
    EXPECT_EQ(wrong("[relations]\ninitial = \"x=1\"\n"),
              "a.prt.1:4: \"initial\" must be a list of texts");
}

TEST_F(ModelData, AParameterIsMadeOnceReadChangedAndDeleted) {
    EXPECT_EQ(Create(WIDE("N"), Whole(4)), PRO_TK_NO_ERROR);
    EXPECT_EQ(Create(WIDE("n"), Whole(5)), PRO_TK_E_FOUND);
    ProParameter n = Named(WIDE("n"));
    ProParamvalue value{};
    EXPECT_EQ(ProParameterValueGet(&n, &value), PRO_TK_NO_ERROR);
    EXPECT_EQ(value.value.i_val, 4);
    ProParamvalue text{};
    text.type = PRO_PARAM_STRING;
    EXPECT_EQ(ProParameterValueSet(&n, &text), PRO_TK_INVALID_TYPE);
    value.value.i_val = 6;
    EXPECT_EQ(ProParameterValueSet(&n, &value), PRO_TK_NO_ERROR);
    EXPECT_EQ(part_->parameters.Find(WIDE("N"))->whole, 6);
    EXPECT_EQ(ProParameterDelete(&n), PRO_TK_NO_ERROR);
    EXPECT_EQ(ProParameterDelete(&n), PRO_TK_E_NOT_FOUND);
}

TEST_F(ModelData, NamesThatTheHostDoesNotTakeAreRefused) {
    EXPECT_EQ(Create(WIDE(""), Whole(1)), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Create(WIDE("1A"), Whole(1)), PRO_TK_INVALID_NAME);
    EXPECT_EQ(Create(WIDE("A B"), Whole(1)), PRO_TK_INVALID_NAME);
    EXPECT_EQ(Create(WIDE("数量"), Whole(1)), PRO_TK_NO_ERROR);
}

TEST_F(ModelData, AnEmptyHandleIsRefusedAndAValueOfNoTypeIsAComplaint) {
    ProParameter nothing{};
    ProParamvalue value = Whole(1);
    EXPECT_EQ(ProParameterValueSet(&nothing, &value), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(std::exchange(TheHost().complaints, {}).size(), 0u);
    ProParamvalue noType{};
    EXPECT_EQ(Create(WIDE("A"), noType), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(std::exchange(TheHost().complaints, {}).size(), 1u);
}

TEST_F(ModelData, ARelationLocksWhatItDecides) {
    part_->parameters.Set(WholeParameter(WIDE("N"), 4));
    part_->parameters.Set(WholeParameter(WIDE("M"), 4));
    part_->relations.initial = {WIDE("/* M = 1"), WIDE("if M == 2"), WIDE(" n = 4")};
    ProParameter n = Named(WIDE("N"));
    ProParameter m = Named(WIDE("M"));
    ProParamvalue value = Whole(9);
    EXPECT_EQ(ProParameterValueSet(&n, &value), PRO_TK_GENERAL_ERROR);
    EXPECT_EQ(ProParameterDelete(&n), PRO_TK_GENERAL_ERROR);
    EXPECT_EQ(ProParameterValueSet(&m, &value), PRO_TK_NO_ERROR);
}

TEST_F(ModelData, AnInstanceShowsItsGenericsParametersAndOwnsItsColumns) {
    Model& instance = TheHost().session.Create(WIDE("i"), PRO_MDL_PART);
    instance.family.generic = part_;
    part_->parameters.Set(WholeParameter(WIDE("N"), 4));
    ProModelitem item{};
    ProMdlToModelitem(instance.handle, &item);
    WideChar name[] = WIDE("N");
    ProParamvalue value = Whole(7);
    ProParameter made{};
    EXPECT_EQ(ProParameterCreate(&item, name, &value, &made), PRO_TK_E_FOUND);
    ASSERT_EQ(ProParameterInit(&item, name, &made), PRO_TK_NO_ERROR);
    EXPECT_EQ(ProParameterValueSet(&made, &value), PRO_TK_GENERAL_ERROR);
    part_->family.columns = {WIDE("N")};
    EXPECT_EQ(ProParameterValueSet(&made, &value), PRO_TK_NO_ERROR);
    EXPECT_EQ(instance.parameters.Find(WIDE("N"))->whole, 7);
    EXPECT_EQ(part_->parameters.Find(WIDE("N"))->whole, 4);
}

TEST_F(ModelData, RelationsAreReadBehindWhatTheArrayHoldsAndReplacedAsAWhole) {
    ProRelset set{};
    EXPECT_EQ(ProModelitemToRelset(&item_, &set), PRO_TK_E_NOT_FOUND);
    ASSERT_EQ(ProRelsetCreate(&item_, &set), PRO_TK_NO_ERROR);
    EXPECT_EQ(ProRelsetCreate(&item_, &set), PRO_TK_E_FOUND);
    part_->relations.initial = {WIDE("x=1"), WIDE("y=2")};
    ProArray array = nullptr;
    ProArrayAlloc(0, int(sizeof(WideChar*)), 1, &array);
    auto lines = static_cast<WideChar**>(array);
    ASSERT_EQ(ProRelsetRelationsGet(&set, &lines), PRO_TK_NO_ERROR);
    int size = 0;
    ProArraySizeGet(lines, &size);
    ASSERT_EQ(size, 2);
    EXPECT_EQ(WideText(lines[1]), WIDE("y=2"));
    EXPECT_EQ(ProRelsetRelationsSet(&set, lines, 1), PRO_TK_NO_ERROR);
    EXPECT_EQ(*part_->relations.initial, std::vector<WideText>{WIDE("x=1")});
    EXPECT_EQ(ProRelsetRelationsSet(&set, lines, 3), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(std::exchange(TheHost().complaints, {}).size(), 1u);
    array = lines;
    ProArrayFree(&array);
}

TEST_F(ModelData, APathGivesTheTransformFromItsEndUpAndBack) {
    Session& session = TheHost().session;
    Model& top = session.Create(WIDE("top"), PRO_MDL_ASSEMBLY);
    Model& sub = session.Create(WIDE("sub"), PRO_MDL_ASSEMBLY);
    Feature inTop;
    inTop.type = PRO_FEAT_COMPONENT;
    inTop.model = &sub;
    inTop.placement = PlacementFrom({100, 0, 0}, {0, 0, 90});
    const int first = top.AddFeature(inTop).id;
    Feature inSub;
    inSub.type = PRO_FEAT_COMPONENT;
    inSub.model = part_;
    inSub.placement = PlacementFrom({0, 50, 0}, {0, 0, 0});
    const int second = sub.AddFeature(inSub).id;
    ProIdTable ids = {first, second, -1};
    ProAsmcomppath path{};
    ASSERT_EQ(ProAsmcomppathInit(static_cast<ProSolid>(top.handle), ids, 2, &path),
              PRO_TK_NO_ERROR);
    ProMdl end = nullptr;
    ProAsmcomppathMdlGet(&path, &end);
    EXPECT_EQ(end, part_->handle);
    ProMatrix up{}, down{};
    ProAsmcomppathTrfGet(&path, PRO_B_TRUE, up);
    ProAsmcomppathTrfGet(&path, PRO_B_FALSE, down);
    // (1, 2, 3) is (1, 52, 3) in SUB; a quarter turn about z makes it (-52, 1, 3), and the shift
    // (48, 1, 3).
    ProVector point = {1, 2, 3}, there{}, back{};
    ProPntTrfEval(point, up, there);
    EXPECT_NEAR(there[0], 48, 1e-9);
    EXPECT_NEAR(there[1], 1, 1e-9);
    EXPECT_NEAR(there[2], 3, 1e-9);
    ProPntTrfEval(there, down, back);
    EXPECT_NEAR(back[0], 1, 1e-9);
    EXPECT_NEAR(back[1], 2, 1e-9);
    EXPECT_NEAR(back[2], 3, 1e-9);
    ids[1] = 999;
    ProAsmcomppathInit(static_cast<ProSolid>(top.handle), ids, 2, &path);
    EXPECT_EQ(ProAsmcomppathMdlGet(&path, &end), PRO_TK_E_NOT_FOUND);
}

TEST_F(ModelData, ASurfaceTellsTheBoxAroundIt) {
    Solid box;
    box.id = 10;
    box.size = {10, 20, 30};
    box.at = {5, 0, 0};
    part_->partData.solids.push_back(box);
    Extents all;
    for (const auto& surface : part_->Surfaces()) {
        ProGeomitemdata* data = nullptr;
        ASSERT_EQ(ProSurfaceDataGet(surface->handle, &data), PRO_TK_NO_ERROR);
        const ProSurfacedata& about = *data->data.p_surface_data;
        all.Add({about.xyz_min[0], about.xyz_min[1], about.xyz_min[2]});
        all.Add({about.xyz_max[0], about.xyz_max[1], about.xyz_max[2]});
    }
    EXPECT_EQ(all.low.x, 5);
    EXPECT_EQ(all.high.x, 15);
    EXPECT_EQ(all.high.y, 20);
    EXPECT_EQ(all.high.z, 30);
}

TEST(Parameters, AreFoundInAnyLettersAfterOthersHaveGone) {
    Parameters parameters;
    for (const WideChar* name : {WIDE("A"), WIDE("b"), WIDE("材料"), WIDE("C")}) {
        parameters.Set(TextParameter(name, name));
    }
    parameters.Remove(WIDE("B"));
    parameters.Remove(WIDE("none"));
    ASSERT_EQ(parameters.all().size(), 3u);
    EXPECT_EQ(parameters.Find(WIDE("b")), nullptr);
    EXPECT_EQ(parameters.Find(WIDE("a")), &parameters.all()[0]);
    EXPECT_EQ(parameters.Find(WIDE("材料")), &parameters.all()[1]);
    parameters.Set(TextParameter(WIDE("c"), WIDE("new")));
    EXPECT_EQ(parameters.all().size(), 3u);
    EXPECT_EQ(Utf8(parameters.Find(WIDE("C"))->text), "new");
    EXPECT_EQ(&parameters.Set(TextParameter(WIDE("B"), WIDE("again"))), &parameters.all()[3]);
}

}  // namespace
