// A server, a board, and whoever asks: as a client, or with bytes of one's own.
#include "tests/web/wire_bench.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <unistd.h>

#include "tests/support/places.h"

namespace web_tests {

using namespace simhost;

ServerOptions ThePages() {
    const std::filesystem::path source = workbench::kSourceFolder;
    return {source / "simhost" / "web" / "page", "/usr/share/javascript/three",
            source / "text" / "resource", 0};
}

std::string ExchangeBytes(int port, const std::string& request) {
    const int wire = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_port = htons(std::uint16_t(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    std::string answer;
    if (connect(wire, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
        send(wire, request.data(), request.size(), 0) == ssize_t(request.size())) {
        char part[4096];
        for (ssize_t size = 0; (size = recv(wire, part, sizeof part, 0)) > 0;) {
            answer.append(part, std::size_t(size));
        }
    }
    close(wire);
    return answer;
}

void ExpectProblem(const httplib::Result& answer, int status, const std::string& problem) {
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->status, status);
    EXPECT_EQ(answer->get_header_value("Content-Type"), "application/json; charset=utf-8");
    EXPECT_EQ(answer->body, R"({"problem":")" + problem + "\"}");
}

WireBench::~WireBench() {
    EndSession();
}

void WireBench::WaitForLines() {
    session_ = std::thread([this] {
        while (auto line = board_.NextLine("vx")) lines_.push_back(*line);
    });
    while (board_.WaitForNews(0, 0, std::chrono::seconds(0)).busy) std::this_thread::yield();
}

void WireBench::EndSession() {
    board_.End();
    if (session_.joinable()) session_.join();
}

std::string WireBench::Cookie() const {
    return "vx_" + std::to_string(server_.port()) + "=" + server_.token();
}

httplib::Client WireBench::Client() const {
    httplib::Client client("127.0.0.1", server_.port());
    client.set_read_timeout(60);
    return client;
}

httplib::Result WireBench::Get(const std::string& address) const {
    return Client().Get(address, {{"Cookie", Cookie()}});
}

httplib::Result WireBench::Post(const std::string& address, const std::string& body) const {
    return Client().Post(address, {{"Cookie", Cookie()}}, body, "text/plain");
}

std::string WireBench::StatusLine(const std::string& headers) const {
    const std::string request = "GET /recording HTTP/1.1\r\nConnection: close\r\n";
    const std::string answer = ExchangeBytes(server_.port(), request + headers + "\r\n");
    return answer.substr(0, answer.find("\r\n"));
}

std::vector<Json> WireBench::Events(const std::string& address, std::size_t count) const {
    std::string all;
    std::vector<Json> events;
    Client().Get(address, {{"Cookie", Cookie()}}, [&](const char* data, std::size_t size) {
        all.append(data, size);
        for (std::size_t end = 0; (end = all.find("\n\n")) != std::string::npos;) {
            EXPECT_EQ(all.find("data: "), 0u) << all;
            events.push_back(Json::parse(all.substr(6, end - 6)));
            all.erase(0, end + 2);
        }
        return events.size() < count;
    });
    return events;
}

}  // namespace web_tests
