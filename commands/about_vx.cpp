// AboutVx: the dialog that tells what the plug-in is, and the terms of use after it.
#include "commands/commands.h"
#include "frame/services.h"
#include "hostapi/windows.h"

namespace {

constexpr Dialog kDialog = "AboutVx";

constexpr const WideChar* kAgreement = WIDE(
    "使用本插件表示同意以下条款：\n"
    "使用前应充分了解该插件所有功能并进行备份数据测试，"
    "本插件不承担任何使用过程中造成的数据丢失或其他损失;。");
constexpr const WideChar* kAgreementCaption =
    WIDE("岚枢工具By墨川听雨,QQ:100200300  岚枢QQ②群:100200301，①群:10020030");

// The dialog is told to end before the box comes up; it closes when the box is answered.
void OnOk(char* dialog, char*, ProAppData) {
    Dialog(dialog).End(1);
    MessageBoxW(nullptr, kAgreement, kAgreementCaption, MB_TOPMOST);
}

}  // namespace

void AboutVx() {
    // Its window has no close action, so only OK ends it.
    RunModalDialog(kDialog, [] { kDialog.OnPress("OK", Guarded<OnOk>); });
}
