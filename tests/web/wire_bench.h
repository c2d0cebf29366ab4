// The ground of the tests of the server alone: its board is handled by the test, in place of a
// whole session.
#pragma once

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <httplib.h>
#include <string>
#include <thread>
#include <vector>

#include "simhost/web/server.h"
#include "tests/web/web_ground.h"

namespace web_tests {

// The folders of this source, and any port.
simhost::ServerOptions ThePages();

// All that comes back for these bytes until the server closes the connection.
std::string ExchangeBytes(int port, const std::string& request);

// That this status and this sentence for the user came.
void ExpectProblem(const httplib::Result& answer, int status, const std::string& problem);

class WireBench : public ::testing::Test {
protected:
    ~WireBench() override;

    // A session that only waits, and takes lines.
    void WaitForLines();
    void EndSession();

    std::string Cookie() const;
    httplib::Client Client() const;
    // With the cookie.
    httplib::Result Get(const std::string& address) const;
    httplib::Result Post(const std::string& address, const std::string& body = "") const;
    // What a request with just these headers gets: "HTTP/1.1 200 OK".
    std::string StatusLine(const std::string& headers) const;
    // The first events, as many as these.
    std::vector<Json> Events(const std::string& address, std::size_t count) const;

    simhost::Board board_;
    simhost::Server server_{board_, ThePages()};
    std::vector<std::string> lines_;  // that the session has taken

private:
    std::thread session_;
};

}  // namespace web_tests
