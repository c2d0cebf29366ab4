// BatchColor: every part gets a colour of its own, so that the parts can be told apart. The colours
// come from one of two palettes or are free random values, as the settings say.
#include <algorithm>
#include <cstdint>
#include <random>
#include <string>
#include <utility>

#include "display/appearance.h"
#include "display/commands.h"
#include "frame/services.h"
#include "hostapi/windows.h"

namespace {

// Lives as long as the module: with an unknown mode the last colour is used again.
AppearanceRecord record = {};

// The C library's generator, but with the same values 0 to 32767 on every system.
std::linear_congruential_engine<std::uint32_t, 214013, 2531011, 0> generator;

// The time in seconds: the low half of it, which is all that the generator takes.
std::uint32_t Seconds() {
    constexpr std::uint64_t kStepsInASecond = 10'000'000;
    constexpr std::uint64_t kSecondsTo1970 = 11'644'473'600;  // from 1601, as Windows counts
    FILETIME time = {};
    GetSystemTimeAsFileTime(&time);
    const std::uint64_t steps = std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime;
    return std::uint32_t(steps / kStepsInASecond - kSecondsTo1970);
}

int Draw() {
    return int((generator() >> 16) & 0x7fff);
}

struct ColourPalette {
    WideView mode;
    WideView fileName;
    int colours;
    WideText path;  // set at each run
};

struct Colouring {
    WideText mode;
    ColourPalette palettes[2] = {
        {WIDE("asUG"), WIDE("VxUGColor.ini"), 217, {}},
        {WIDE("Optimization"), WIDE("VxOptiColor.ini"), 201, {}},
    };
};

void SetRecordButColour() {
    record.ambient = 0.6;
    record.diffuse = 0.9;
    record.highlight = 0.6;
    record.shininess = 0.6;
    record.transparency = 0;
    for (double& part : record.highlightColour) part = 1.0;
    record.reflection = 0.3;
}

// Leading digits as an integer, 0 to 255 however large; 0 for any other text.
int ColourNumber(WideView text) {
    int value = 0;
    for (const WideChar c : text) {
        if (c < '0' || c > '9') break;
        value = std::min(value * 10 + int(c - '0'), 255);
    }
    return value;
}

// "255.128.0", red first. Without full stops the number is blue.
void SetColour(const WideText& value) {
    const auto cutAtStop = [](WideView* rest) {
        const std::size_t stop = rest->find(WideChar{'.'});
        const WideView front = stop == WideView::npos ? WideView() : rest->substr(0, stop);
        if (stop != WideView::npos) rest->remove_prefix(stop + 1);
        return front;
    };
    WideView rest = value;
    const WideView red = cutAtStop(&rest);
    const WideView green = cutAtStop(&rest);
    record.colour[0] = ColourNumber(red) / 255.0;
    record.colour[1] = ColourNumber(green) / 255.0;
    record.colour[2] = ColourNumber(rest) / 255.0;
}

// With a mode that is none of the three nothing is drawn and the colour stays.
void DrawColour(const Colouring& colouring) {
    for (const ColourPalette& palette : colouring.palettes) {
        if (colouring.mode != palette.mode) continue;
        const std::string number = std::to_string(Draw() % palette.colours);
        const WideText section(number.begin(), number.end());
        SetColour(DeleteBlanks(ReadIniValue(palette.path, section, WIDE("value"))));
        return;
    }
    if (colouring.mode == WIDE("random")) {
        for (double& part : record.colour) part = Draw() % 256 / 255.0;
    }
}

void PaintObject(Prohandle object) {
    if (object) prodb_set_surface_props(object, PRODB_WHOLE_OBJECT, -1, 0, &record);
}

void ColourPart(ProMdl part, WideChar* name, const Colouring& colouring) {
    const Prohandle object = prodb_get_object_ptr(name, HostText("PRT"));
    DrawColour(colouring);
    ClearSurfaceOverrides(part);
    PaintObject(object);
}

// A sub-assembly has no object of its own: it draws a colour too, and gives it to the part before.
void ColourEntries(const ModelList& models, const Colouring& colouring) {
    Prohandle object = nullptr;
    for (const ProMdl model : models) {
        NameForHost name = {};
        ProMdlNameGet(model, name);
        if (TypeOf(model) == PRO_MDL_PART) {
            object = prodb_get_object_ptr(name, HostText("PRT"));
            ClearSurfaceOverrides(model);
        }
        DrawColour(colouring);
        PaintObject(object);
    }
}

// False when there was nothing to colour.
bool ColourAssembly(ProMdl assembly, const Colouring& colouring) {
    ComponentArray components = ComponentCollector(assembly, VisitAllComponents);
    const int size = components.Size();
    if (size == 0) {
        ShowPlainError(WIDE("当前模型中没有子零件/组件"));
        return false;
    }
    ColourEntries(ReduceToModelList(std::move(components), size), colouring);
    return true;
}

}  // namespace

void BatchColor() {
    ProMdl model = nullptr;
    if (ProMdlCurrentGet(&model) != PRO_TK_NO_ERROR) return;
    generator.seed(Seconds());
    SetRecordButColour();
    Colouring colouring;
    colouring.mode = ConfigValue(WIDE("VxRandomColorOpt"), Place::BesideModule);
    const ProMdlType type = TypeOf(model);
    NameForHost name = {};
    ProMdlNameGet(model, name);
    for (ColourPalette& palette : colouring.palettes) {
        palette.path = ConfigPathFor(palette.fileName);
    }
    const TopModel top = TopModelOf({model, type});
    if (type == PRO_MDL_PART) {
        ColourPart(top.model, name, colouring);
    } else if (type == PRO_MDL_ASSEMBLY || type == PRO_MDL_MFG) {
        if (!ColourAssembly(top.model, colouring)) return;
    }
    ProWindowRepaint(PRO_VALUE_UNUSED);
}
