// The ground of the tests of scripts: commands that open boxes, prompts and dialogs, and what they
// have seen of their answers.
#pragma once

#include <string>
#include <vector>

#include "simhost/trail/hooks.h"
#include "simhost/trail/interpreter.h"
#include "tests/support/workbench.h"

namespace trails {

using Failures = std::vector<std::string>;

// What the commands did, in order.
extern std::string seen;

// The models that the command Changes gives a colour and a parameter, the first of them a relation.
extern std::vector<simhost::Model*> changed;

// A handler of popup menus that adds a button for the command Runs.
ProError FillsPopup(char* popup);

// Runs scripts at a host that has these commands. ShowsABox, ShowsAPlainBox and ShowsTwoBoxes open
// boxes, Asks waits at a prompt, OpensADialog uses a dialog with the buttons Apply (opens a box)
// and OK (ends it), Runs only runs, Tells displays messages, Changes changes models, Complains
// makes the host complain, NotHere cannot be pressed.
class Scripts : public workbench::Workbench {
protected:
    void SetUp() override;
    void TearDown() override {
        simhost::TheHooks() = {};
        workbench::Workbench::TearDown();
    }
    Failures Run(const std::string& script) {
        transcript_.clear();
        return simhost::RunScript(script,
                                  [&](const std::string& line) { transcript_ += line + "\n"; });
    }
    bool Told(const std::string& text) const { return transcript_.find(text) != std::string::npos; }
    // Runs a script that must fail once, and gives the sentence.
    std::string Failure(const std::string& script) {
        const Failures failures = Run(script);
        EXPECT_EQ(failures.size(), 1u) << transcript_;
        return failures.empty() ? "" : failures[0];
    }
    std::string transcript_;
};

// The same with the assembly TOP open: in it the unit 箱体, which holds SHAFT twice, and SHAFT
// again.
class ModelScripts : public Scripts {
protected:
    void SetUp() override;
    // "shaft.prt 2 -1 at 41": owner, item type and id, and the way to the i-th selected item.
    std::string Picked(std::size_t i);
    simhost::Model* shaft_ = nullptr;
    simhost::Model* unit_ = nullptr;
    simhost::Model* top_ = nullptr;
};

}  // namespace trails
