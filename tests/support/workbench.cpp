// The ground of the tests from outside.
#include "tests/support/workbench.h"

#include <utility>

#include "simhost/core/disk.h"
#include "simhost/spreadsheet/spreadsheets.h"
#include "simhost/system/clock.h"
#include "simhost/system/windows.h"
#include "simhost/trail/hooks.h"
#include "simhost/trail/interpreter.h"
#include "tests/support/desk.h"
#include "tests/support/places.h"

namespace workbench {

using namespace simhost;

namespace {

constexpr unsigned kLongAfter = 5000;  // milliseconds; longer than any timer of the plug-in

WorkplaceOptions Options() {
    WorkplaceOptions options;
    options.drive = DriveOfTests();
    options.newUser = true;
    options.installed = workbench::kSourceFolder;
    options.module = workbench::kModuleBuilt;
    options.moduleFolder = kModuleFolder;
    options.textFolder = kTextFolder;
    return options;
}

}  // namespace

Workbench::Workbench() : workplace_(std::make_unique<Workplace>(Options())) {}

Workbench::~Workbench() = default;

void Workbench::TearDown() {
    // The plug-in goes while the drive and the models are still there. What it has left to run
    // later would run now.
    Operation::ForgetFaults();
    workplace_->StopPlugin();
    AdvanceClock(kLongAfter);
    EXPECT_EQ(Complaints(), std::vector<std::string>{});
    EXPECT_EQ(host().arrays.HeldByMistake(), std::vector<std::string>{});
    EXPECT_EQ(TheWindows().OpenHandles(), std::vector<std::string>{});
    EXPECT_EQ(TheSpreadsheets().NotReleased(), std::vector<std::string>{});
    if (!leavesSpreadsheets_) {
        EXPECT_EQ(TheSpreadsheets().NotQuit(), std::vector<std::string>{});
    }
    workplace_.reset();
    EXPECT_EQ(ClearDrive(), std::vector<std::string>{}) << "Left open?";
}

void Workbench::Start() {
    TheWindows().SetRegistry(WIDE("Software\\PTC\\Creo_Parametric"), WIDE("VxReg"), WIDE("5130"));
    StartAsNewUser();
}

void Workbench::StartAsNewUser() {
    startStatus_ = workplace_->StartPlugin();
}

void Workbench::Play(const std::string& lines) {
    std::string transcript;
    const auto failures =
        RunScript(lines, [&](const std::string& line) { transcript += line + '\n'; });
    EXPECT_EQ(failures, std::vector<std::string>{}) << transcript;
}

void Workbench::PlayDuring(const std::function<void()>& action, const std::string& lines) {
    TheHooks().start = [&action] {
        action();
        return std::string();
    };
    Play("@ start\n" + lines);
    TheHooks().start = {};
}

void Workbench::Fail(const std::string& operation, int status, bool forGood) {
    Operation::Fail({operation, 1, forGood, status});
}

std::vector<std::string> Workbench::Calls() const {
    std::vector<std::string> calls;
    for (const std::string& line : TheHost().journal.lines()) {
        const std::string name = line.substr(0, line.find('('));
        if (name == "ProStringToWstring" || name == "ProWstringToString") continue;
        calls.push_back(line);
    }
    return calls;
}

void Workbench::Setting(const std::string& section, const std::string& value) {
    const WideText path = kModuleFolder + WIDE("\\VXconfig\\VxConfig.ini");
    WritePrivateProfileStringW(Wide(section).c_str(), WIDE("value"), Wide(value).c_str(),
                               path.c_str());
}

void Workbench::TextFolderSetting(const std::string& section, const std::string& value) {
    const WideText path = kTextFolder + WIDE("\\VXconfig\\VxConfig.ini");
    WritePrivateProfileStringW(Wide(section).c_str(), WIDE("value"), Wide(value).c_str(),
                               path.c_str());
}

void Workbench::Write(const WideText& windowsPath, const std::string& bytes) {
    ASSERT_TRUE(WriteFile(host().disk.Real(windowsPath), bytes)) << Utf8(windowsPath);
}

std::string Workbench::Read(const WideText& windowsPath, bool* found) {
    bool ignored = false;
    return ReadFile(host().disk.Real(windowsPath), found ? found : &ignored);
}

Model& Workbench::Part(const std::string& name, int solids) {
    Model& model = host().session.Create(Wide(name), PRO_MDL_PART);
    for (int i = 0; i < solids; ++i) {
        Solid solid;
        solid.id = 10 * (i + 1);
        solid.shape = Shape::Box;
        solid.size = {10, 20, 30};
        solid.at = {40.0 * i, 0, 0};
        model.solids.push_back(solid);
    }
    return model;
}

Model& Workbench::SheetMetal(const std::string& name) {
    Model& model = Part(name);
    model.subtype = PROMDLSTYPE_PART_SHEETMETAL;
    return model;
}

Model& Workbench::Assembly(const std::string& name) {
    return host().session.Create(Wide(name), PRO_MDL_ASSEMBLY);
}

Model& Workbench::Manufacturing(const std::string& name, Model& assembly) {
    Model& model = host().session.Create(Wide(name), PRO_MDL_MFG);
    model.manufacturedFile = assembly.FileName();
    model.manufactured = &assembly;
    return model;
}

Feature& Workbench::Use(Model& assembly, Model& model) {
    Feature feature;
    feature.type = PRO_FEAT_COMPONENT;
    feature.file = model.FileName();
    feature.model = &model;
    return assembly.AddFeature(feature);
}

void Workbench::Open(Model& model) {
    host().session.Open(model);
}

std::vector<std::string> Workbench::Boxes() const {
    std::vector<std::string> texts;
    for (const Box& box : AllBoxes()) texts.push_back(Utf8(box.text));
    return texts;
}

std::vector<Box> Workbench::AllBoxes() const {
    std::vector<Box> boxes;
    for (const Shown& one : TheHost().shown) {
        if (one.kind == Shown::Kind::Box) boxes.push_back(one.box);
    }
    return boxes;
}

std::vector<std::string> Workbench::Complaints() {
    return std::exchange(host().complaints, {});
}

}  // namespace workbench
