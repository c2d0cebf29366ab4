// The words at the beginning and the end of a session, and what its scripts can ask of it.
#include "simhost/app/session_words.h"

#include <filesystem>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "simhost/app/picture_file.h"
#include "simhost/host.h"
#include "simhost/trail/hooks.h"
#include "simhost/user/language.h"

namespace fs = std::filesystem;

namespace simhost {
namespace {

std::string StartPlugin(Workplace& workplace) {
    try {
        const int status = workplace.StartPlugin();
        if (status == 0) return {};
        return "the plug-in did not start: user_initialize returned " + std::to_string(status);
    } catch (const std::runtime_error& error) {
        return error.what();
    }
}

// "a, b and 3 more".
std::string FirstOf(const std::vector<std::string>& names) {
    constexpr std::size_t kMost = 5;
    std::string told;
    for (std::size_t i = 0; i < names.size() && i < kMost; ++i) {
        told += (i == 0 ? "" : ", ") + names[i];
    }
    if (names.size() > kMost) {
        const std::string more = std::to_string(names.size() - kMost);
        told += Either(" and ", " 等，另有 ") + more + Either(" more", " 个");
    }
    return told;
}

}  // namespace

void TellWhereItWorks(const Workplace& workplace, const Print& print) {
    if (workplace.isTemporary()) {
        print(Either("Works on a copy of ", "在副本上工作，原项目：") +
              workplace.options().project.string() +
              Either(" that is gone at the end; --drive DIR keeps it.",
                     "。结束时副本即删除；--drive DIR 可保留。"));
    } else {
        print(Either("Works in ", "工作位置：") + workplace.drive().string() +
              Either(", which stays.", "，结束后保留。"));
    }
    print(Either("Type help, or quit to end.", "输入 help 查看用法，quit 退出。"));
}

std::string TellUnsaved(const Workplace& workplace, bool typed) {
    std::vector<std::string> unsaved;
    for (const Model* model : TheHost().session.All()) {
        if (model->modified) unsaved.push_back(model->FileName());
    }
    if (unsaved.empty()) return {};
    const std::string told =
        Either("changed and not saved: ", "已改动、未保存：") + FirstOf(unsaved);
    if (!typed) return told;
    if (workplace.isTemporary()) {
        return told + Either("; quit again ends all the same", "；再次输入 quit 即退出");
    }
    return told + Either("; save all saves them, quit again ends all the same",
                         "；save all 可保存，再次输入 quit 即退出");
}

void SetHooks(Workplace& workplace, std::function<std::string()> lost) {
    TheHooks().loaded = [&] { return workplace.plugin() != nullptr; };
    TheHooks().start = [&] { return StartPlugin(workplace); };
    TheHooks().stop = [&] {
        workplace.StopPlugin();
        return std::string();
    };
    TheHooks().picture = SavePicture;
    TheHooks().lost = std::move(lost);
}

void TellWhatIsWritten(const Workplace& workplace, const Print& print) {
    std::vector<std::string> written;
    for (const fs::path& file : workplace.WrittenFiles()) {
        const std::u8string name = fs::relative(file, workplace.drive()).generic_u8string();
        written.emplace_back(name.begin(), name.end());
    }
    if (!written.empty() && workplace.isTemporary()) {
        print(Either("gone with the temporary drive: ", "随临时驱动器删除：") + FirstOf(written) +
              Either(" (--drive DIR keeps it)", "（用 --drive DIR 可保留）"));
    } else if (!written.empty()) {
        print(Either("kept in ", "已保留在 ") + workplace.drive().string() + ": " +
              FirstOf(written));
    }
}

}  // namespace simhost
