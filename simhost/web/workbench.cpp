// One session after the other, each with its own copy of the project.
#include "simhost/web/workbench.h"

#include <fmt/format.h>

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "simhost/app/session_words.h"
#include "simhost/core/disk.h"
#include "simhost/host.h"
#include "simhost/system/clock.h"
#include "simhost/trail/hooks.h"
#include "simhost/user/language.h"
#include "simhost/user/progress.h"
#include "simhost/web/browser_source.h"

namespace fs = std::filesystem;

namespace simhost {
namespace {

// The bytes of every file that a session has written, by their place on the drive.
using Written = std::map<std::string, std::string>;

Written WrittenBy(const Workplace& workplace) {
    Written written;
    for (const fs::path& file : workplace.WrittenFiles()) {
        const std::u8string name = fs::relative(file, workplace.drive()).generic_u8string();
        written[{name.begin(), name.end()}] = ReadFile(file);
    }
    return written;
}

std::string Compared(const Written& before, const Written& after) {
    std::vector<std::string> other;
    for (const auto& [name, bytes] : before) {
        const auto found = after.find(name);
        if (found == after.end() || found->second != bytes) other.push_back(name);
    }
    for (const auto& [name, bytes] : after) {
        if (!before.contains(name)) other.push_back(name);
    }
    if (other.empty()) {
        return fmt::format(fmt::runtime(Either("replayed: the same {} files as before",
                                               "重放完毕：{} 个文件与之前完全相同")),
                           after.size());
    }
    std::string told = Either("replayed; not the same as before:", "重放完毕；与之前不同：");
    for (const std::string& name : other) told += " " + name;
    return told;
}

struct Replay {
    std::vector<std::string> lines;
    Written before;
};

class OneSession {
public:
    OneSession(const WorkbenchOptions& options, Board& board, Server& server)
        : options_(options), board_(board), server_(server), workplace_(options.workplace) {}
    ~OneSession() { TheHooks() = Hooks(); }
    OneSession(const OneSession&) = delete;
    OneSession& operator=(const OneSession&) = delete;

    // What is to come next; nothing: the workbench ends.
    std::optional<Replay> Run(Replay replay, const std::function<void(const std::string&)>& print) {
        // Pictures and scripts of the command line would reach out of the drive.
        SetHooks(workplace_, [this] { return Lost(); });
        TheHooks().picture = nullptr;
        const auto tell = [this](const std::string& line) { board_.Print(line); };
        const bool replays = !replay.lines.empty();
        BrowserSource source(board_, std::move(replay.lines));
        if (replays) {
            source.replayed = [&] {
                SetClock(std::nullopt);
                tell(Compared(replay.before, WrittenBy(workplace_)));
            };
        }
        Trail trail(source, tell);
        const Seat seat{trail, workplace_};
        server_.SetSeat(&seat);
        TellWhereItWorks(workplace_, tell);
        trail.Begin("@ start");
        trail.Run();
        server_.SetSeat(nullptr);
        auto next = board_.TakeRestart();
        if (next) return Replay{std::move(*next), WrittenBy(workplace_)};
        End(trail, print);
        return std::nullopt;
    }

private:
    // Who ends from the terminal or begins anew has been asked already.
    std::string Lost() const {
        return board_.ending() ? std::string() : TellUnsaved(workplace_, /*typed=*/true);
    }

    void End(const Trail& trail, const std::function<void(const std::string&)>& print) {
        if (const std::string unsaved = TellUnsaved(workplace_, /*typed=*/false);
            !unsaved.empty()) {
            print(unsaved);
        }
        TellWhatIsWritten(workplace_, print);
        if (!options_.keepRecording.empty()) {
            std::string reason;
            const bool kept = WriteFile(options_.keepRecording, trail.Recording(), &reason);
            print(kept ? "recording: " + options_.keepRecording.string()
                       : "the recording cannot be written: " + reason);
        }
    }

    const WorkbenchOptions& options_;
    Board& board_;
    Server& server_;
    Workplace workplace_;
};

}  // namespace

int RunWorkbench(const WorkbenchOptions& options, Board& board,
                 const std::function<void(const std::string&)>& print) {
    Server server(board, options.server);
    TheProgress().tell = [&](const char* work, std::size_t done, std::size_t all) {
        board.TellWork(work, done, all);
    };
    print(server.address());
    std::optional<Replay> next = Replay();
    while (next) {
        board.BeginSession();
        auto session = std::make_unique<OneSession>(options, board, server);
        next = session->Run(std::move(*next), print);
    }
    TheProgress().tell = nullptr;
    return 0;
}

}  // namespace simhost
