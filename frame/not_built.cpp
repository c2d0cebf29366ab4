// The notice of commands that are not built yet.
#include "frame/not_built.h"

#include "frame/services/messages.h"
#include "frame/services/text.h"

void ShowNotBuilt(const char* command) {
    ShowNotice(WideText(WIDE("\t命令 ")) + Widen(command) + WIDE(" 尚未完成，敬请期待\t"));
}
