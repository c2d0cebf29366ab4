// The ground of the tests from outside.
#include "tests/support/workbench.h"

#include <utility>

#include "simhost/core/disk.h"
#include "simhost/spreadsheet/spreadsheets.h"
#include "simhost/system/clock.h"
#include "simhost/system/windows.h"
#include "simhost/trail/hooks.h"
#include "simhost/trail/interpreter.h"
#include "tests/support/drive.h"

namespace workbench {

using namespace simhost;

namespace {

constexpr unsigned kLongAfter = 5000;  // milliseconds; longer than any timer of the plug-in

}  // namespace

Workbench::Workbench() : workplace_(std::make_unique<Workplace>(DeskOptions(DriveOfTests()))) {}

Workbench::~Workbench() = default;

void Workbench::TearDown() {
    // The plug-in goes while the drive and the models are still there. What it has left to run
    // later would run now.
    Operation::ForgetFaults();
    workplace_->StopPlugin();
    AdvanceClock(kLongAfter);
    EXPECT_EQ(Complaints(), std::vector<std::string>{});
    EXPECT_EQ(LeftOpen(), std::vector<std::string>{});
    if (!leavesSpreadsheets_) {
        EXPECT_EQ(TheSpreadsheets().NotQuit(), std::vector<std::string>{});
    }
    workplace_.reset();
    EXPECT_EQ(ClearDrive(), std::vector<std::string>{}) << "Left open?";
}

void Workbench::Start() {
    MarkFirstRunSeen();
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
    WriteSetting(section, value);
}

void Workbench::TextFolderSetting(const std::string& section, const std::string& value) {
    WriteTextFolderSetting(section, value);
}

void Workbench::Write(const WideText& windowsPath, const std::string& bytes) {
    ASSERT_TRUE(WriteFile(host().disk.Real(windowsPath), bytes)) << Utf8(windowsPath);
}

std::string Workbench::ReadSettings(const WideText& windowsPath) {
    const std::string bytes = Read(windowsPath);
    if (bytes.substr(0, 2) != "\xFF\xFE") return Utf8(FromSystemCodePage(bytes));
    WideText text;
    for (std::size_t i = 2; i + 1 < bytes.size(); i += 2) {
        text += WideChar((bytes[i] & 0xFF) | (bytes[i + 1] & 0xFF) << 8);
    }
    return Utf8(text);
}

std::string Workbench::Read(const WideText& windowsPath, bool* found) {
    bool ignored = false;
    return ReadFile(host().disk.Real(windowsPath), found ? found : &ignored);
}

Model& Workbench::Part(const std::string& name, int solids) {
    return MakePart(name, solids);
}

Model& Workbench::SheetMetal(const std::string& name) {
    return MakeModels(name + "!sheet");
}

Model& Workbench::Assembly(const std::string& name) {
    return MakeModel(name, PRO_MDL_ASSEMBLY);
}

Model& Workbench::Manufacturing(const std::string& name, Model& assembly) {
    return MakeManufacturing(name, assembly);
}

Feature& Workbench::Use(Model& assembly, Model& model) {
    return AddComponent(assembly, model);
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
