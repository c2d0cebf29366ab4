// Watching a folder by the kernel's own notes, which are complete and in order; time stamps are
// neither, for two changes within one tick of the clock leave the same stamp.
#include "simhost/core/folder_watch.h"

#include <array>
#include <cstring>

#ifdef __linux__
#include <sys/inotify.h>
#include <sys/stat.h>

#include <cerrno>
#include <unistd.h>
#endif

namespace simhost {

bool FolderWatch::Take(std::vector<Change>* changes) {
    changes->clear();
    if (notes_ >= 0 && IsSame() && Drain(changes)) return true;
    changes->clear();
    Stop();
    Start();
    return false;
}

#ifdef __linux__

namespace {

constexpr std::uint32_t kCame = IN_CREATE | IN_MOVED_TO;
constexpr std::uint32_t kWent = IN_DELETE | IN_MOVED_FROM;
constexpr std::uint32_t kFolderWent = IN_DELETE_SELF | IN_MOVE_SELF | IN_IGNORED | IN_UNMOUNT;

}  // namespace

void FolderWatch::Start() {
    struct stat before = {};
    if (stat(folder_.c_str(), &before) != 0) return;
    device_ = before.st_dev;
    node_ = before.st_ino;
    notes_ = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    if (notes_ < 0) return;
    const std::uint32_t all = kCame | kWent | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;
    // Another folder may have taken the name meanwhile.
    if (inotify_add_watch(notes_, folder_.c_str(), all) < 0 || !IsSame()) Stop();
}

void FolderWatch::Stop() {
    if (notes_ >= 0) close(notes_);
    notes_ = -1;
}

bool FolderWatch::IsSame() const {
    struct stat now = {};
    return stat(folder_.c_str(), &now) == 0 && now.st_dev == device_ && now.st_ino == node_;
}

bool FolderWatch::Drain(std::vector<Change>* changes) const {
    alignas(inotify_event) std::array<char, 16384> bytes;
    while (true) {
        const ssize_t size = read(notes_, bytes.data(), bytes.size());
        if (size <= 0) return size < 0 && errno == EAGAIN;
        for (std::size_t at = 0; at < std::size_t(size);) {
            inotify_event event;
            std::memcpy(&event, bytes.data() + at, sizeof event);
            if (event.mask & (kFolderWent | IN_Q_OVERFLOW)) return false;
            const char* name = bytes.data() + at + sizeof event;
            if (event.len > 0) changes->push_back({name, (event.mask & kCame) != 0});
            at += sizeof event + event.len;
        }
    }
}

#else

void FolderWatch::Start() {}
void FolderWatch::Stop() {}
bool FolderWatch::IsSame() const {
    return false;
}
bool FolderWatch::Drain(std::vector<Change>*) const {
    return false;
}

#endif

}  // namespace simhost
