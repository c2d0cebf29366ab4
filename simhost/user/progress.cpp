// The one who waits for long work.
#include "simhost/user/progress.h"

namespace simhost {

Progress& TheProgress() {
    static Progress progress;
    return progress;
}

void WorkStep(const char* work, std::size_t done, std::size_t all) {
    Progress& progress = TheProgress();
    if (progress.stop && progress.stop.exchange(false)) throw Interrupted();
    if (progress.tell) progress.tell(work, done, all);
}

}  // namespace simhost
