// ForTest: a command without an effect, kept in the menu as a place-holder.
#include "commands/commands.h"
#include "hostapi/host.h"

void ForTest() {
    ProMdl model = nullptr;
    ProMdlCurrentGet(&model);
}
