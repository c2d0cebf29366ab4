// A fresh host with models for each run.
#include "tests/sweep/world.h"

#include <filesystem>
#include <random>

#ifndef _WIN32
#include <dlfcn.h>
#endif

#include "hostapi/windows.h"
#include "simhost/core/disk.h"
#include "simhost/core/text.h"
#include "simhost/spreadsheet/spreadsheets.h"
#include "simhost/system/clock.h"
#include "simhost/system/windows.h"
#include "tests/support/desk.h"
#include "tests/support/places.h"

namespace sweep {

using namespace simhost;
namespace fs = std::filesystem;

namespace {

const WideText kModuleFolder = WIDE("C:\\Plug-in");
const WideText kTextFolder = WIDE("C:\\App Text");

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

WorkplaceOptions Options() {
    WorkplaceOptions options;
    options.drive = TidiedDrive();
    options.newUser = true;
    options.installed = workbench::kSourceFolder;
    options.module = workbench::kModuleBuilt;
    options.moduleFolder = kModuleFolder;
    options.textFolder = kTextFolder;
    return options;
}

}  // namespace

World::World() : workplace_(std::make_unique<Workplace>(Options())) {
    host().user = &robot_;
}

World::~World() {
    workplace_.reset();
}

int World::Start() {
    TheWindows().SetRegistry(WIDE("Software\\PTC\\Creo_Parametric"), WIDE("VxReg"), WIDE("5130"));
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

void World::Setting(const std::string& section, const std::string& value) {
    for (const WideText& folder : {kModuleFolder, kTextFolder}) {
        WritePrivateProfileStringW(Wide(section).c_str(), WIDE("value"), Wide(value).c_str(),
                                   (folder + WIDE("\\VXconfig\\VxConfig.ini")).c_str());
    }
}

void World::WriteBomSettings(const std::string& summed, const std::string& levelled) {
    WriteFile(host().disk.Real(kModuleFolder + WIDE("\\VXconfig\\VxBom.ini")),
              ToSystemCodePage(Wide("[tableCols_sum]\r\ncontent=" + summed +
                                    "\r\n[tableCols_level]\r\ncontent=" + levelled + "\r\n")));
}

void World::WriteLastDir(const std::string& bytes) {
    WriteFile(host().disk.Real(kModuleFolder + WIDE("\\VXconfig\\vorlatix.ini")), bytes);
}

std::vector<std::string> World::LeftOpen() const {
    std::vector<std::string> left = TheHost().arrays.HeldByMistake();
    for (const std::string& handle : TheWindows().OpenHandles()) left.push_back(handle);
    for (const std::string& object : TheSpreadsheets().NotReleased()) left.push_back(object);
    return left;
}

// --- Scenes ------------------------------------------------------------------------------------

namespace {

Model& Make(World& world, const char* name, ProMdlType type) {
    Model& model = world.host().session.Create(Wide(name), type);
    if (type != PRO_MDL_PART) return model;
    Solid solid;
    solid.id = 10;
    solid.shape = Shape::Cylinder;  // three surfaces
    solid.diameter = 20;
    solid.size = {20, 20, 30};
    model.solids.push_back(solid);
    return model;
}

Feature& Use(Model& assembly, Model& model) {
    Feature feature;
    feature.type = PRO_FEAT_COMPONENT;
    feature.file = model.FileName();
    feature.model = &model;
    return assembly.AddFeature(feature);
}

void NoModel(World&) {}

void OnePart(World& world) {
    Model& part = Make(world, "single", PRO_MDL_PART);
    part.surfaceAppearances[11] = DefaultAppearance();
    world.host().session.Open(part);
}

void SheetMetalPart(World& world) {
    Model& part = Make(world, "panel", PRO_MDL_PART);
    part.subtype = PROMDLSTYPE_PART_SHEETMETAL;
    world.host().session.Open(part);
}

Model& MakeAssembly(World& world) {
    Model& top = Make(world, "top", PRO_MDL_ASSEMBLY);
    Model& sub = Make(world, "sub", PRO_MDL_ASSEMBLY);
    Model& bolt = Make(world, "bolt", PRO_MDL_PART);
    Model& panel = Make(world, "panel", PRO_MDL_PART);
    Model& skeleton = Make(world, "skeleton", PRO_MDL_PART);
    panel.subtype = PROMDLSTYPE_PART_SHEETMETAL;
    skeleton.skeleton = true;
    Use(sub, bolt);
    Use(sub, panel);
    Use(top, skeleton);
    Use(top, bolt);
    Use(top, sub);
    Use(top, bolt).status = PRO_FEAT_SUPPRESSED;
    Use(top, panel).hidden = true;
    Feature missing;
    missing.type = PRO_FEAT_COMPONENT;
    missing.file = "lost.prt";
    top.AddFeature(missing);
    return top;
}

void WholeAssembly(World& world) {
    world.host().session.Open(MakeAssembly(world));
}

void EmptyAssembly(World& world) {
    world.host().session.Open(Make(world, "empty", PRO_MDL_ASSEMBLY));
}

void ManufacturingModel(World& world) {
    Model& assembly = MakeAssembly(world);
    Model& mill = Make(world, "mill", PRO_MDL_MFG);
    mill.manufacturedFile = assembly.FileName();
    mill.manufactured = &assembly;
    world.host().session.Open(mill);
}

void Drawing(World& world) {
    MakeAssembly(world);
    world.host().session.Open(Make(world, "top", PRO_MDL_DRAWING));
}

}  // namespace

void BuildSelection(World& world) {
    Model& top = MakeAssembly(world);
    Session& session = world.host().session;
    session.Open(top);
    const std::vector<int> bolt = {top.features()[1].id};
    ProModelitem item{};
    Session::Follow(top, bolt, &item);
    session.buffer = {&session.Select(top, bolt, item)};
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
