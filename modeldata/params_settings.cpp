// What the dialog of batch parameters keeps in its own settings file.
#include "modeldata/params_settings.h"

#include "hostapi/windows.h"

namespace {

constexpr const WideChar* kKey = WIDE("content");

// Saved keywords may hold blanks; the other values end at their first one.
WideText ReadSetting(const WideText& path, WideView section) {
    return ReadIniValue(path, WideText(section), kKey);
}

WideText UpToBlank(const WideText& text) {
    return text.substr(0, text.find(WideChar{' '}));
}

// The two parameter names are set as option menus and read as input panels ever since. A host that
// minds the difference refuses the first call, so the second follows.
void SetName(const char* component, const WideText& text) {
    kParamsDialog.SetMenuText(component, text.c_str());
    kParamsDialog.SetInputText(component, text.c_str());
}

// A null value deletes the key; what could not be read stays as it is on disk.
void WriteSetting(const WideText& path, const WideChar* section,
                  const std::optional<DialogText>& value) {
    if (value) WritePrivateProfileStringW(section, kKey, value->OrNull(), path.c_str());
}

std::optional<DialogText> StateText(int state) {
    if (state == 1) return DialogText{false, WIDE("1")};
    if (state == 0) return DialogText{false, WIDE("0")};
    return std::nullopt;
}

}  // namespace

void LoadParamsSettings() {
    const WideText path = ConfigPathFor(WIDE("VxParams.ini"));
    const WideText keywords = ReadSetting(path, WIDE("InputKeyWords"));
    kParamsDialog.SetInputText("InputKeyWords", keywords.c_str());
    kParamsDialog.SetInputText("InputKeyWords2", keywords.c_str());
    const WideText order = UpToBlank(ReadSetting(path, WIDE("VxOutlineOrder")));
    if (order == WIDE("1")) kParamsDialog.Check("VxOutlineOrder");
    if (order == WIDE("0")) kParamsDialog.Uncheck("VxOutlineOrder");
    const WideText places = UpToBlank(ReadSetting(path, WIDE("VxOutlineNum")));
    kParamsDialog.SetMenuText("VxOutlineNum", places.c_str());
    SetName("outlinePname", UpToBlank(ReadSetting(path, WIDE("outlinePname"))));
    SetName("shSizePname", UpToBlank(ReadSetting(path, WIDE("shSizePname"))));
}

void SaveParamsSettings() {
    // Read from \VXconfig\, written to \vxconfig\: one folder to a system that folds case.
    const WideText path = AppTextDir().append(WIDE("\\vxconfig\\VxParams.ini"));
    const auto keywords = kParamsDialog.InputValue("InputKeyWords");
    const int order = kParamsDialog.CheckState("VxOutlineOrder");
    const auto places = kParamsDialog.MenuValue("VxOutlineNum");
    const auto outline = kParamsDialog.InputValue("outlinePname");
    const auto sheetSize = kParamsDialog.InputValue("shSizePname");
    WriteSetting(path, WIDE("InputKeyWords"), keywords);
    WriteSetting(path, WIDE("VxOutlineOrder"), StateText(order));
    WriteSetting(path, WIDE("VxOutlineNum"), places);
    WriteSetting(path, WIDE("outlinePname"), outline);
    WriteSetting(path, WIDE("shSizePname"), sheetSize);
}
