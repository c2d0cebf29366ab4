// VxVersion: the plug-in's version in a notice.
#include "commands/commands.h"
#include "frame/services.h"

void VxVersion() {
    ShowNotice(
        WIDE("当前版本：5.1\n"
             "开发者：墨川听雨，QQ：100200300\n"
             "岚枢QQ②群:100200301，①群:10020030"));
}
