// VxClearAllColor: the host's own "clear all appearances", pressed by a macro.
#include "display/commands.h"
#include "frame/services.h"

namespace {

// Opens the appearance gallery, takes its clear-all entry and answers the question. Word for word:
// the two double blanks and the two missing ones before a tilde are what the host has been given
// since the first version.
// clang-format off
constexpr const WideChar* kClearAllAppearances = WIDE(
    "~ Select `main_dlg_cur` `ProCmdViewGallery.view`; "
    "~ Select `main_dlg_cur` `ProCmdViewGallery_layoutph.palette_holder.clearAppearance`; "
    "~ Close `main_dlg_cur`  `ProCmdViewGallery_layoutph.palette_holder.clearAppearance`; "
    "~ Activate `main_dlg_cur` `clearAllAppearance`;"
    "~ Close `main_dlg_cur`  `ProCmdViewGallery_layoutph.palette_holder.clearAppearance`; "
    "~ Close `main_dlg_cur` `ProCmdViewGallery.view`; "
    "~ FocusIn `UI Message Dialog` `yes`;"
    "~ Activate `UI Message Dialog` `yes`;");
// clang-format on

}  // namespace

void VxClearAllColor() {
    ProMacroLoad(HostText(kClearAllAppearances));
}
