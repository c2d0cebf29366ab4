// Where the kernel's library is not to be had.
#include "simhost/kernel/kernel.h"

namespace simhost::kernel {

Kernel* TheKernel() {
    return nullptr;
}

}  // namespace simhost::kernel
