// One run's world: a fresh host with models, the plug-in as it is installed, and a robot before the
// screen that answers whatever comes.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "simhost/app/workplace.h"
#include "simhost/host.h"
#include "simhost/trail/robot.h"

namespace sweep {

class World {
public:
    World();
    ~World();
    World(const World&) = delete;
    World& operator=(const World&) = delete;

    // --- The plug-in ---
    // As for a user who has seen the first-run notice, or for a new one.
    int Start();
    int StartAsNewUser();
    // Terminates and unloads; does nothing when that was done already.
    void Stop();
    // Whether the module's file is still in this process.
    static bool ModuleIsInMemory();

    // --- The user ---
    void Press(const std::string& menu, const std::string& button);
    void RightClick() { host().commands.OpenPopup("Sel Obj Menu"); }
    void PressPopup(const std::string& label);
    // Time enough for the timer.
    void Wait();
    // Trail lines in the place of the robot. Steps that do not fit any more after a failure are
    // left out; what did not come true is in failures().
    void Play(const std::string& lines);
    const std::vector<std::string>& failures() const { return failures_; }

    // --- Settings and files ---
    void Setting(const std::string& section, const std::string& value);  // in both folders
    void WriteLastDir(const std::string& bytes);

    simhost::Host& host() { return simhost::TheHost(); }

private:
    std::unique_ptr<simhost::Workplace> workplace_;
    simhost::RobotUser robot_;
    std::vector<std::string> failures_;
    bool started_ = false;
};

// What is open when a command is pressed: a name, and how it is made.
struct Scene {
    const char* name;
    void (*build)(World& world);
};
const std::vector<Scene>& Scenes();
// The scene with everything: sub-assemblies, suppressed, hidden and missing components, sheet
// metal, a skeleton. Something in it is selected.
void BuildSelection(World& world);

}  // namespace sweep
