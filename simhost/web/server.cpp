// Who may ask what: every request is checked before it reaches its answer.
#include "simhost/web/server.h"

#include <fmt/format.h>

#include <atomic>
#include <chrono>
#include <httplib.h>
#include <optional>
#include <random>
#include <stdexcept>
#include <thread>
#include <utility>

#include "simhost/user/progress.h"
#include "simhost/web/json_text.h"

namespace simhost {
namespace {

constexpr const char* kHere = "127.0.0.1";
constexpr auto kLook = std::chrono::milliseconds(300);  // at work that goes on, at pages that close
constexpr std::size_t kThreads = 32;  // a browser keeps up to six connections for each page

// 128 bits that nobody can guess.
std::string NewToken() {
    std::random_device random;
    std::string token;
    for (int i = 0; i < 4; ++i) token += fmt::format("{:08x}", random());
    return token;
}

// Scripts, styles, pictures and connections of this server, and nothing else. SVG pictures and the
// 3-D library make pictures out of data that the page already has.
constexpr const char* kContentPolicy =
    "default-src 'self'; img-src 'self' data: blob:; style-src 'self'; object-src 'none'; "
    "base-uri 'none'; form-action 'none'; frame-ancestors 'none'";

Reply ReplyTo(Board::Outcome outcome) {
    switch (outcome) {
        case Board::Outcome::Busy: return Refused(503, "the session is at work");
        case Board::Outcome::Stale:
            return Refused(409, "what you saw is not what there is any more");
        case Board::Outcome::Ended: return Refused(410, "the session has ended");
        case Board::Outcome::Done: break;
    }
    return {202, Reply().type, "{}", {}};
}

// Every byte that is no ASCII letter, digit, dot or dash as %E5.
std::string Escaped(const std::string& text) {
    std::string escaped;
    for (const char each : text) {
        const bool plain = (each >= '0' && each <= '9') || (each >= 'A' && each <= 'Z') ||
                           (each >= 'a' && each <= 'z') || each == '.' || each == '-';
        escaped +=
            plain ? std::string(1, each) : fmt::format("%{:02X}", static_cast<unsigned char>(each));
    }
    return escaped;
}

void Send(const Reply& reply, httplib::Response& response) {
    response.status = reply.status;
    if (!reply.download.empty()) {
        // A name in any script, quoted as RFC 5987 has it.
        response.set_header("Content-Disposition",
                            "attachment; filename*=UTF-8''" + Escaped(reply.download));
    }
    response.set_content(reply.body, reply.type);
}

std::optional<std::uint64_t> VersionIn(const httplib::Request& request) {
    if (!request.has_param("v")) return std::nullopt;
    const std::string text = request.get_param_value("v");
    if (text.empty() || text.size() > 18 ||
        text.find_first_not_of("0123456789") != std::string::npos) {
        return 0;  // a version that never was
    }
    return std::stoull(text);
}

std::vector<std::string> RecordedBy(const Trail& trail) {
    std::vector<std::string> lines;
    TextSource source(trail.Recording());
    while (auto line = source.Next({})) lines.push_back(std::move(*line));
    return lines;
}

std::string NewsText(const Board::News& news) {
    Json json = {
        {"v", news.version},           {"session", news.session}, {"busy", news.busy},
        {"ended", news.ended},         {"waiting", news.waiting}, {"next", news.nextLine},
        {"lines", news.lines},         {"calls", news.calls},     {"lastCall", news.lastCall},
        {"seconds", news.busySeconds}, {"work", news.work}};
    return "data: " + Dump(json) + "\n\n";
}

}  // namespace

class Server::Inner {
public:
    Inner(Board& board, ServerOptions options)
        : board_(board), options_(std::move(options)), token_(NewToken()) {
        http_.new_task_queue = [] { return new httplib::ThreadPool(kThreads); };
        http_.set_payload_max_length(kLongestLine);
        http_.set_keep_alive_timeout(2);
        http_.set_tcp_nodelay(true);
        // The library would share a port with whoever has it.
        http_.set_socket_options([](socket_t socket) {
            const int yes = 1;
            setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
        });
        // By the plain type the library would pack scripts as small as can be for every request:
        // more than a second for the one of the 3-D view, which goes no farther than this computer.
        http_.set_file_extension_and_mimetype_mapping("js",
                                                      "application/javascript; charset=utf-8");
        http_.set_default_headers({{"Content-Security-Policy", kContentPolicy},
                                   {"X-Content-Type-Options", "nosniff"},
                                   {"X-Frame-Options", "DENY"},
                                   {"Referrer-Policy", "no-referrer"},
                                   {"Cross-Origin-Resource-Policy", "same-origin"},
                                   {"Cache-Control", "no-store"}});
        Mount("/page", options_.page);
        Mount("/three", options_.three);
        Mount("/icons", options_.icons);
        http_.set_pre_routing_handler([this](const auto& request, auto& response) {
            return Check(request, response) ? httplib::Server::HandlerResponse::Unhandled
                                            : httplib::Server::HandlerResponse::Handled;
        });
        AddPages();
        AddActions();
        port_ = options_.port == 0
                    ? http_.bind_to_any_port(kHere)
                    : (http_.bind_to_port(kHere, options_.port) ? options_.port : -1);
        if (port_ <= 0) {
            throw std::runtime_error(
                fmt::format("port {} of this computer is not free", options_.port));
        }
        thread_ = std::thread([this] { http_.listen_after_bind(); });
        while (!http_.is_running()) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }

    ~Inner() {
        board_.Close();  // so that the streams end
        http_.stop();
        thread_.join();
    }

    int port() const { return port_; }
    const std::string& token() const { return token_; }
    void SetSeat(const Seat* seat) { seat_ = seat; }

private:
    void Mount(const char* address, const std::filesystem::path& folder) {
        if (folder.empty()) return;
        if (!http_.set_mount_point(address, folder.string())) {
            throw std::runtime_error("there is no folder " + folder.string());
        }
    }

    // The name holds the port, since cookies do not tell ports apart.
    std::string CookieName() const { return "vx_" + std::to_string(port_); }

    bool HasToken(const httplib::Request& request) const {
        const std::string wanted = CookieName() + "=" + token_;
        std::string cookies = request.get_header_value("Cookie");
        while (!cookies.empty()) {
            const std::size_t end = cookies.find(';');
            std::string cookie = cookies.substr(0, end);
            cookie.erase(0, cookie.find_first_not_of(' '));
            if (cookie == wanted) return true;
            cookies.erase(0, end == std::string::npos ? end : end + 1);
        }
        return false;
    }

    bool IsThisServer(const std::string& hostAndPort) const {
        const std::string port = ":" + std::to_string(port_);
        return hostAndPort == kHere + port || hostAndPort == "localhost" + port;
    }

    static bool IsStatic(const std::string& path) {
        return path == "/" || path.starts_with("/page/") || path.starts_with("/three/") ||
               path.starts_with("/icons/") || path == "/favicon.ico";
    }

    // A page from elsewhere, or a name from elsewhere that leads here, may do nothing.
    bool Check(const httplib::Request& request, httplib::Response& response) const {
        const std::string origin = request.get_header_value("Origin");
        const bool ownOrigin = !request.has_header("Origin") ||
                               (origin.starts_with("http://") && IsThisServer(origin.substr(7)));
        if (!IsThisServer(request.get_header_value("Host")) || !ownOrigin) {
            Send(Refused(403, "this server answers its own page only"), response);
            return false;
        }
        if (IsStatic(request.path) || HasToken(request)) return true;
        Send(Refused(401, "open the address that the terminal shows: it holds the token"),
             response);
        return false;
    }

    void AddPages() {
        http_.Get("/", [this](const httplib::Request& request, httplib::Response& response) {
            if (request.has_param("t")) {
                if (request.get_param_value("t") == token_) {
                    response.set_header("Set-Cookie", CookieName() + "=" + token_ +
                                                          "; Path=/; HttpOnly; SameSite=Strict");
                }
                // The token is not to stay in the address, where it is seen and kept.
                response.set_redirect("/", 303);
                return;
            }
            response.set_redirect("/page/index.html", 303);
        });
        http_.Get("/favicon.ico", [](const httplib::Request&, httplib::Response& response) {
            response.status = 204;
        });
        http_.Get("/events", [this](const httplib::Request& request, httplib::Response& response) {
            SendEvents(request, response);
        });
        for (const Answer& answer : Answers()) {
            http_.Get(answer.address, [this, &answer](const httplib::Request& request,
                                                      httplib::Response& response) {
                AskSession(answer, request, response);
            });
        }
    }

    void AddActions() {
        http_.Post("/step", [this](const httplib::Request& request, httplib::Response& response) {
            const std::string& line = request.body;
            if (line.empty() || line.find_first_of(std::string("\r\n\0", 3)) != std::string::npos ||
                Utf8(Wide(line)) != line) {
                return Send(Refused(400, "one line of UTF-8 text belongs there"), response);
            }
            Send(ReplyTo(board_.Offer(line, VersionIn(request).value_or(0))), response);
        });
        http_.Post("/stop", [](const httplib::Request&, httplib::Response& response) {
            TheProgress().stop = true;
            Send(ReplyTo(Board::Outcome::Done), response);
        });
        // A new session on a new copy of the project, with what was recorded or with nothing.
        http_.Post("/restart",
                   [this](const httplib::Request& request, httplib::Response& response) {
                       const bool replay = request.get_param_value("replay") == "1";
                       const auto version = VersionIn(request).value_or(0);
                       std::vector<std::string> lines;
                       bool isTemporary = false;
                       Board::Outcome outcome = board_.Ask(
                           [&] {
                               if (!seat_) return;
                               isTemporary = seat_->workplace.isTemporary();
                               if (replay) lines = RecordedBy(seat_->trail);
                           },
                           version);
                       if (outcome == Board::Outcome::Done && !isTemporary) {
                           return Send(Refused(403,
                                               "the drive is kept, so nothing begins anew on it; "
                                               "simhost run replays a recording"),
                                       response);
                       }
                       if (outcome == Board::Outcome::Done) {
                           outcome = board_.Restart(std::move(lines), version);
                       }
                       Send(ReplyTo(outcome), response);
                   });
    }

    void AskSession(const Answer& answer, const httplib::Request& request,
                    httplib::Response& response) {
        Query query;
        for (const auto& [name, value] : request.params) query.values[name] = value;
        Reply reply;
        try {
            const auto outcome = board_.Ask(
                [&] {
                    reply =
                        seat_ ? answer.give(*seat_, query) : Refused(503, "there is no session");
                },
                VersionIn(request));
            if (outcome != Board::Outcome::Done) reply = ReplyTo(outcome);
        } catch (const std::exception& error) {
            reply = Refused(500, error.what());
        }
        Send(reply, response);
    }

    void SendEvents(const httplib::Request& request, httplib::Response& response) {
        if (streams_.fetch_add(1) >= kMostStreams) {
            --streams_;
            return Send(Refused(429, "too many pages are open"), response);
        }
        struct Reader {
            std::uint64_t change = 0;
            std::size_t fromLine = 0;
        };
        auto reader = std::make_shared<Reader>();
        if (const std::string from = request.get_param_value("from");
            !from.empty() && from.size() < 10 &&
            from.find_first_not_of("0123456789") == std::string::npos) {
            reader->fromLine = std::stoul(from);
        }
        response.set_chunked_content_provider(
            "text/event-stream",
            [this, reader](std::size_t, httplib::DataSink& sink) {
                const auto news = board_.WaitForNews(reader->change, reader->fromLine, kLook);
                const bool isNew = news.change != reader->change || !news.lines.empty();
                // A page that is closed takes no place.
                if (!isNew && !news.busy && !news.ended) return sink.is_writable();
                reader->change = news.change;
                reader->fromLine = news.nextLine;
                const std::string text = NewsText(news);
                if (!sink.write(text.data(), text.size())) return false;
                if (news.ended) sink.done();
                return true;
            },
            [this](bool) { --streams_; });
    }

    Board& board_;
    ServerOptions options_;
    std::string token_;
    httplib::Server http_;
    int port_ = 0;
    std::thread thread_;
    std::atomic<int> streams_ = 0;
    const Seat* seat_ = nullptr;  // read and set on the session's thread
};

Server::Server(Board& board, ServerOptions options)
    : inner_(std::make_unique<Inner>(board, std::move(options))) {}
Server::~Server() = default;
int Server::port() const {
    return inner_->port();
}
const std::string& Server::token() const {
    return inner_->token();
}
std::string Server::address() const {
    return fmt::format("http://{}:{}/?t={}", kHere, port(), token());
}
void Server::SetSeat(const Seat* seat) {
    inner_->SetSeat(seat);
}

}  // namespace simhost
