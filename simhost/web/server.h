// The server of the page: one address of this computer, one writing endpoint that takes one line,
// and nothing but static files for whoever does not have the token.
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "simhost/web/answers.h"
#include "simhost/web/board.h"

namespace simhost {

struct ServerOptions {
    std::filesystem::path page;   // the folder of the page
    std::filesystem::path three;  // that of the 3-D library
    std::filesystem::path icons;  // of the commands; served as /icons
    int port = 0;                 // 0: any that is free
};

class Server {
public:
    static constexpr std::size_t kLongestLine = 60 * 1024;  // in bytes
    static constexpr int kMostStreams = 8;                  // of events, one for each open page

    // Answers from now on, in threads of its own. Throws std::runtime_error if the port is taken
    // or the page's files are not there.
    Server(Board& board, ServerOptions options);
    ~Server();  // no thread is left afterwards
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    int port() const;
    // What a browser is to open first: it holds the token.
    std::string address() const;
    const std::string& token() const;
    // Whom questions are about; null: nobody can be asked. Set it on the session's thread only.
    void SetSeat(const Seat* seat);

private:
    class Inner;
    std::unique_ptr<Inner> inner_;
};

}  // namespace simhost
