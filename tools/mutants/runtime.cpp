// Linked into everything that is made from a changed source: which of its mutants lives, and, if
// asked, a record of those that the program has come by.
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr int kMost = 1 << 16;
bool seen[2][kMost];
bool loaded = false;

int Living() {
    const char* const number = std::getenv("VX_MUTANT");
    return number ? std::atoi(number) : 0;
}

// At once, so that nothing is lost with a program that crashes. What the module's loading comes by
// is told by a minus.
void Record(int mutant) {
    static const char* const path = std::getenv("VX_MUTANTS_REACHED");
    if (!path || mutant >= kMost || seen[loaded][mutant]) return;
    seen[loaded][mutant] = true;
    char line[16];
    const int size = std::snprintf(line, sizeof line, loaded ? "%d\n" : "-%d\n", mutant);
    const int file = open(path, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    if (file < 0 || write(file, line, std::size_t(size)) != size) std::abort();
    close(file);
}

}  // namespace

bool VxMutant(int number) {
    static const int living = Living();
    Record(number);
    return number == living;
}

bool VxMutantsLoaded() {
    return loaded = true;
}
