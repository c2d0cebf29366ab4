// The ground of the workbench's tests: a workbench that runs in this process, and somebody who asks
// it over the wire as a browser does.
#pragma once

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <filesystem>
#include <functional>
#include <httplib.h>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "simhost/model/model.h"
#include "simhost/web/workbench.h"

namespace web_tests {

using Json = nlohmann::json;

// What is of that colour and as clear as that, and else looks as usual.
ProdbSurfaceProps Painted(double red, double green, double blue, double transparency = 0);

class WebBench : public ::testing::Test {
protected:
    ~WebBench() override;

    // Starts a workbench on the sample gearbox and takes its token.
    void Start();
    void Start(const std::string& project, const std::filesystem::path& drive = {});
    // Ends it; what it said to the terminal.
    std::vector<std::string> End();

    // Waits until the session wants a line, and gives the version of what it shows.
    std::uint64_t Settle();
    // Sends one line and waits for its end; the status of the answer.
    int Step(const std::string& line);
    int StepAs(const std::string& line, std::uint64_t version);
    // All lines of a script but for the empty ones and comments.
    void Play(const std::string& lines);

    // Runs this where the session is, which waits meanwhile.
    void Do(const std::function<void()>& act);
    // Starts a workbench, and opens what this text makes: see tests/support/models.h.
    void OpenModels(const std::string& models);

    // What an address answers; the test fails where that is no JSON.
    Json Get(const std::string& address);
    int StatusOf(const std::string& address);
    httplib::Headers Token() const;
    httplib::Client Client() const;
    // The transcript so far.
    std::string Transcript();

    simhost::Board board_;
    simhost::WorkbenchOptions options_;
    int port_ = 0;

private:
    std::thread thread_;
    std::vector<std::string> said_;
    std::string token_;
    std::mutex mutex_;
};

}  // namespace web_tests
