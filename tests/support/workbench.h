// The ground of the tests from outside: a workplace of its own for each test, models made by hand,
// and a user whose lines a test writes as a trail script.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "simhost/app/workplace.h"
#include "simhost/core/text.h"
#include "simhost/host.h"
#include "tests/support/desk.h"
#include "tests/support/models.h"

namespace workbench {

class Workbench : public ::testing::Test {
protected:
    Workbench();
    ~Workbench() override;

    // Ends the plug-in, lets time pass, and checks what every test wants: no complaints of the host
    // (unless taken before), no host array held beyond the known ones, no open handle of Windows,
    // no object or application of the spreadsheets.
    void TearDown() override;

    // Starts the plug-in with the first-run notice already behind the user.
    void Start();
    void StartAsNewUser();

    // Plays trail lines; an expectation or step that fails is a failure of the test.
    void Play(const std::string& lines);
    // Presses a command of the menu and nothing else: a box, dialog or prompt fails.
    void Press(const std::string& command) { Play("~ Command `" + command + "`"); }

    // Does something while a user plays these lines: what it asks, they answer.
    void PlayDuring(const std::function<void()>& action, const std::string& lines);

    // --- Calls through the door ---
    // Makes calls fail: Fail("ProMdlTypeGet", {.n = 3}), the next one without more.
    static void Fail(const std::string& operation, const Failing& which = {}) {
        workbench::Fail(operation, which);
    }
    // The calls since host().journal.Start() without conversions of text, of which a step makes
    // as many as it likes.
    std::vector<std::string> Calls() const;

    // --- Settings and files, by their real bytes ---
    void Setting(const std::string& section, const std::string& value);  // beside the module
    void TextFolderSetting(const std::string& section, const std::string& value);
    void Write(const WideText& windowsPath, const std::string& bytes);
    std::string Read(const WideText& windowsPath, bool* found = nullptr);
    // The text of a settings file: UTF-16 if it has that mark, else in the system's code page.
    std::string ReadSettings(const WideText& windowsPath);

    // --- Models ---
    simhost::Model& Part(const std::string& name, int solids = 1);
    simhost::Model& SheetMetal(const std::string& name);
    simhost::Model& Assembly(const std::string& name);
    simhost::Model& Manufacturing(const std::string& name, simhost::Model& assembly);
    simhost::Feature& Use(simhost::Model& assembly, simhost::Model& model);
    void Open(simhost::Model& model);

    // --- What the user has seen ---
    std::vector<std::string> Boxes() const;  // their texts
    std::vector<simhost::Box> AllBoxes() const;
    std::vector<std::string> Complaints();  // takes them

    simhost::Host& host() { return simhost::TheHost(); }
    bool leavesSpreadsheets_ = false;  // an application is left that nobody has quit
    int startStatus_ = 0;              // what user_initialize returned
    std::unique_ptr<simhost::Workplace> workplace_;
};

}  // namespace workbench
