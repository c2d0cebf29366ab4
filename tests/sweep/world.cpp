// A fresh host with models for each run.
#include "tests/sweep/world.h"

#include <filesystem>
#include <random>

#ifndef _WIN32
#include <dlfcn.h>
#endif

#include "hostapi/windows.h"
#include "simhost/core/disk.h"
#include "simhost/system/clock.h"
#include "simhost/trail/interpreter.h"
#include "tests/support/desk.h"
#include "tests/support/drive.h"
#include "tests/support/models.h"
#include "tests/support/places.h"

namespace sweep {

using namespace simhost;
namespace fs = std::filesystem;

namespace {

// One drive for all runs, since copying what nobody writes to would take most of their time. What
// can be written, the settings and the working folder, is made anew for each run.
class Drive {
public:
    Drive() : root_(workbench::DriveOfTests()), temporary_(root_.empty()) {
        if (!temporary_) return;
        root_ = fs::temp_directory_path() / ("vorlatix-sweep-" + std::to_string(Number()));
        fs::create_directories(root_);
    }
    ~Drive() {
        workbench::ClearDrive();
        std::error_code ignored;
        if (temporary_) fs::remove_all(root_, ignored);
    }
    Drive(const Drive&) = delete;
    Drive& operator=(const Drive&) = delete;

    const fs::path& Tidied() {
        for (const fs::path& place : workbench::PlacesOnDrive(root_)) {
            const bool installed = place.filename() == "Plug-in" || place.filename() == "App Text";
            if (!installed) fs::remove_all(place);
        }
        for (const char* folder : {"Plug-in", "App Text"}) {
            for (const fs::path& place : Entries(root_ / folder)) {
                const std::string name = place.filename().string();
                const bool kept = name == "text" || name == "tp" || name == "vxudf" ||
                                  place.extension() == ".dll";
                if (!kept) fs::remove_all(place);
            }
        }
        return root_;
    }

private:
    static std::uint64_t Number() { return std::random_device{}(); }
    static std::vector<fs::path> Entries(const fs::path& folder) {
        std::vector<fs::path> entries;
        std::error_code none;
        for (const auto& entry : fs::directory_iterator(folder, none)) {
            entries.push_back(entry.path());
        }
        return entries;
    }
    fs::path root_;
    bool temporary_;
};

const fs::path& TidiedDrive() {
    static Drive drive;
    return drive.Tidied();
}

}  // namespace

World::World() : workplace_(std::make_unique<Workplace>(workbench::DeskOptions(TidiedDrive()))) {
    host().user = &robot_;
    // What file dialogs list, so that the robot has something to choose.
    WriteFile(host().disk.Real(WIDE("C:\\Work\\steel.mtl")),
              "[material]\ndensity = 7850\ndensity_unit = \"kg/m^3\"\n");
    WriteFile(host().disk.Real(WIDE("C:\\Work\\soft.bnd")),
              "[bend_table]\nthickness = [2]\nradius = [2]\nlength = [[4.42]]\n");
}

World::~World() {
    workplace_.reset();
}

int World::Start() {
    workbench::MarkFirstRunSeen();
    return StartAsNewUser();
}

int World::StartAsNewUser() {
    started_ = true;
    return workplace_->StartPlugin();
}

void World::Stop() {
    if (!started_) return;
    started_ = false;
    workplace_->StopPlugin();
}

bool World::ModuleIsInMemory() {
#ifdef _WIN32
    return GetModuleHandleW(WIDE("vorlatix5.1.dll")) != nullptr;
#else
    void* module = dlopen(workbench::kModuleBuilt, RTLD_LAZY | RTLD_NOLOAD);
    if (module) dlclose(module);
    return module != nullptr;
#endif
}

void World::Press(const std::string& menu, const std::string& button) {
    host().commands.PressButton(menu, button);
}

void World::PressPopup(const std::string& label) {
    host().commands.PressPopup(label);
}

void World::Wait() {
    AdvanceClock(2500);
    host().commands.RunMacros();
}

void World::Play(const std::string& lines) {
    for (std::string& failure : RunScript(lines)) failures_.push_back(std::move(failure));
}

void World::Setting(const std::string& section, const std::string& value) {
    workbench::WriteSetting(section, value);
    workbench::WriteTextFolderSetting(section, value);
}

void World::WriteLastDir(const std::string& bytes) {
    WriteFile(host().disk.Real(workbench::kModuleFolder + WIDE("\\VXconfig\\vorlatix.ini")), bytes);
}

// --- Scenes ------------------------------------------------------------------------------------

namespace {

using workbench::MakeModels;

void NoModel(World&) {}

void OnePart(World& world) {
    Model& part = MakeModels("single!round");
    part.partData.surfaceAppearances[11] = DefaultAppearance();
    world.host().session.Open(part);
}

void SheetMetalPart(World& world) {
    world.host().session.Open(MakeModels("panel!sheet!round"));
}

Model& MakeAssembly() {
    return MakeModels(
        "top: skeleton!skeleton!round, bolt!round, sub(bolt, panel!sheet!round), "
        "bolt!suppressed, panel!hidden, lost!missing");
}

void WholeAssembly(World& world) {
    world.host().session.Open(MakeAssembly());
}

void EmptyAssembly(World& world) {
    world.host().session.Open(MakeModels("empty:"));
}

void ManufacturingModel(World& world) {
    MakeAssembly();
    world.host().session.Open(MakeModels("mill.mfg: top.asm"));
}

void Drawing(World& world) {
    MakeAssembly();
    world.host().session.Open(MakeModels("top.drw"));
}

}  // namespace

void BuildSelection(World& world) {
    Model& top = MakeAssembly();
    Session& session = world.host().session;
    session.Open(top);
    const std::vector<int> bolt = {top.features()[1].id};
    ProModelitem item{};
    Session::Follow(top, bolt, &item);
    session.selections.SetBuffer({{item, &top, bolt}});
}

const std::vector<Scene>& Scenes() {
    static const std::vector<Scene> scenes = {
        {"no model", NoModel},
        {"a part", OnePart},
        {"a sheet metal part", SheetMetalPart},
        {"an assembly", WholeAssembly},
        {"an empty assembly", EmptyAssembly},
        {"an assembly with a selection", BuildSelection},
        {"a manufacturing model", ManufacturingModel},
        {"a drawing", Drawing},
    };
    return scenes;
}

}  // namespace sweep
