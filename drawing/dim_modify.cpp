// VxDimModify: a palette of buttons that each rewrite the text or the tolerance of dimensions at
// once: of those that are selected or, if nothing is, of those that the user then picks. It stays
// open, so a sheet takes one click for each dimension.
#include <iterator>

#include "drawing/commands.h"
#include "frame/services.h"

namespace {

constexpr Dialog kDialog = "VxDimModify";

constexpr WideView kValue = WIDE("@D");

// --- Which dimensions ---

struct Sheet {
    ProMdl drawing = nullptr;
    int number = 0;

    void Regenerate() const {
        if (drawing) ProDwgSheetRegenerate(static_cast<ProDrawing>(drawing), number);
    }
};

Sheet CurrentSheet() {
    Sheet sheet;
    ProMdlCurrentGet(&sheet.drawing);
    if (sheet.drawing) {
        ProDrawingCurrentSheetGet(static_cast<ProDrawing>(sheet.drawing), &sheet.number);
    }
    return sheet;
}

enum class Path { Buffer, Picks };

// Changes the selected dimensions, and passes over everything else that is selected. False: the
// host has no selection to show.
template <class Change>
bool ChangeSelected(const Sheet& sheet, const Change& change) {
    ProSelection* selected = nullptr;
    if (ProSelbufferSelectionsGet(&selected) != PRO_TK_NO_ERROR) return false;
    HostArray<ProSelection> array;
    array.Adopt(selected);
    const int count = array.Size();
    for (int i = 0; i < count; ++i) {
        ProModelitem item = {};
        ProSelectionModelitemGet(selected[i], &item);
        if (item.type != PRO_DIMENSION) continue;
        change(&item);
        sheet.Regenerate();
    }
    LeaveSelections(selected);
    return true;
}

// The filter lets nothing but dimensions through, so the item is not looked at again.
template <class Change>
void ChangePicked(const Sheet& sheet, const Change& change) {
    for (;;) {
        ProSelection* picked = nullptr;
        int count = 0;
        const ProError status = ProSelect(HostText("dimension"), 1, nullptr, nullptr, nullptr,
                                          nullptr, &picked, &count);
        if (status != PRO_TK_NO_ERROR || count < 1) return;
        ProModelitem item = {};
        ProSelectionModelitemGet(picked[0], &item);
        if (item.owner) change(&item);
        sheet.Regenerate();
    }
}

template <class Change>
Path ChangeDimensions(const Sheet& sheet, const Change& change) {
    if (ChangeSelected(sheet, change)) return Path::Buffer;
    ChangePicked(sheet, change);
    return Path::Picks;
}

// --- Texts ---

// A text of one line as the host takes it. What a line cannot hold is cut.
HostArray<ProLine> OneLine(WideView text) {
    HostArray<ProLine> lines;
    ProArray array = nullptr;
    ProArrayAlloc(1, int(sizeof(ProLine)), 1, &array);
    lines.Adopt(static_cast<ProLine*>(array));
    if (lines) PutText(text, *lines.data());
    return lines;
}

// The first line of a dimension's text, or its value alone where it has none of its own, which
// hosts say by a status, by null or by no line.
WideText FirstLine(ProDimension* dimension) {
    HostArray<ProLine> lines;
    ProLine* text = nullptr;
    if (ProDimensionTextGet(dimension, &text) != PRO_TK_NO_ERROR) return WideText(kValue);
    lines.Adopt(text);
    if (lines.Size() < 1) return WideText(kValue);
    return TextIn(text[0]);
}

// What is put around the first line of a text, whose other lines go.
struct Around {
    WideText before, after;
};

void WriteAround(ProDimension* dimension, const Around& around) {
    const WideText first = FirstLine(dimension);
    const HostArray<ProLine> lines = OneLine(around.before + first + around.after);
    if (lines) ProDimensionTextSet(dimension, lines.data());
}

// The selection is dropped, so that a second press does not do it to the same dimensions again.
void WriteAroundAll(const Sheet& sheet, const Around& around) {
    const Path path =
        ChangeDimensions(sheet, [&](ProDimension* each) { WriteAround(each, around); });
    if (path == Path::Buffer) ProSelbufferClear();
}

// --- What the buttons do; each has its row of the table as data ---

struct Button {
    const char* name;
    ProUIAction action;
    const WideChar* text;  // fixed texts
    int type;              // tolerances: how they are shown,
    double upper, lower;   // and both values without a sign
};

const Button& RowOf(ProAppData data) {
    return *static_cast<const Button*>(data);
}

// The text replaces the old one whole, which nobody reads.
void WriteFixed(char*, char*, ProAppData row) {
    const Sheet sheet = CurrentSheet();
    const HostArray<ProLine> lines = OneLine(RowOf(row).text);
    ChangeDimensions(sheet, [&](ProDimension* each) {
        if (lines) ProDimensionTextSet(each, lines.data());
    });
}

void WriteCount(char* dialog, char*, ProAppData) {
    const Sheet sheet = CurrentSheet();
    const WideText count = Dialog(dialog).InputText("numInput");
    if (count.empty()) return ShowNotice(WIDE("\t请先输入数量\t"));
    WriteAroundAll(sheet, {count + WIDE("×"), {}});
}

void WriteEqualSpacing(char*, char*, ProAppData) {
    WriteAroundAll(CurrentSheet(), {{}, WIDE("EQS")});
}

void WriteDepth(char* dialog, char*, ProAppData) {
    const Sheet sheet = CurrentSheet();
    const WideText depth = Dialog(dialog).InputText("depthInput");
    if (depth.empty()) return ShowNotice(WIDE("\t请先输入钻孔深度\t"));
    WriteAroundAll(sheet, {{},
                           WIDE("\x01"
                                "x"
                                "\x02") +
                               depth});
}

void WriteTolerance(char*, char*, ProAppData data) {
    const Button& row = RowOf(data);
    ChangeDimensions(CurrentSheet(), [&](ProDimension* each) {
        ProDimensionToltypeSet(each, ProToleranceType(row.type));
        ProDimensionTollabelSet(each, ProToleranceTable(0), nullptr, 0);
        ProDimensionToleranceSet(each, row.upper, row.lower);
    });
}

constexpr Button Text(const char* name, const WideChar* text) {
    return {name, Guarded<WriteFixed>, text, 0, 0, 0};
}
constexpr Button Added(const char* name, ProUIAction action) {
    return {name, action, nullptr, 0, 0, 0};
}
constexpr Button Deviations(const char* name, double upper, double lower) {
    return {name, Guarded<WriteTolerance>, nullptr, 2, upper, lower};
}
constexpr Button Symmetric(const char* name, double value) {
    return {name, Guarded<WriteTolerance>, nullptr, 4, value, value};
}

// U+0001 and U+0002 enclose a letter of the host's drawing symbols. Each is a literal of its own,
// for an escape takes in all digits and letters up to f that follow it.
// clang-format off
constexpr Button kButtons[] = {
    Text("preBt1",  WIDE("R@D")),
    Text("preBt2",  WIDE("\x01" "n" "\x02" "@D")),
    Text("preBt3",  WIDE("M@D")),
    Text("preBt4",  WIDE("S" "\x01" "n" "\x02" "@D")),
    Text("preBt5",  WIDE("SR@D")),
    Text("preBt6",  WIDE("t@D")),
    Text("preBt7",  WIDE("(@D)")),
    Text("preBt8",  WIDE("\x01" "o" "\x02" "@D")),
    Text("preBt9",  WIDE("\x01" "w" "\x02" "@D")),
    Text("preBt10", WIDE("\x01" "v" "\x02" "@D")),
    Added("preBt11", Guarded<WriteCount>),
    Added("sufBt1",  Guarded<WriteEqualSpacing>),
    Added("sufBt2",  Guarded<WriteDepth>),

    // The three ladders differ in their steps.
    Deviations("upTolBt1",  0.01, 0),  Symmetric("MirTolBt1",  0.01), Deviations("downTolBt1",  0, 0.01),
    Deviations("upTolBt2",  0.02, 0),  Symmetric("MirTolBt2",  0.02), Deviations("downTolBt2",  0, 0.02),
    Deviations("upTolBt3",  0.03, 0),  Symmetric("MirTolBt3",  0.03), Deviations("downTolBt3",  0, 0.03),
    Deviations("upTolBt4",  0.05, 0),  Symmetric("MirTolBt4",  0.05), Deviations("downTolBt4",  0, 0.05),
    Deviations("upTolBt5",  0.1,  0),  Symmetric("MirTolBt5",  0.1),  Deviations("downTolBt5",  0, 0.1),
    Deviations("upTolBt6",  0.2,  0),  Symmetric("MirTolBt6",  0.2),  Deviations("downTolBt6",  0, 0.2),
    Deviations("upTolBt7",  0.5,  0),  Symmetric("MirTolBt7",  0.3),  Deviations("downTolBt7",  0, 0.5),
    Deviations("upTolBt8",  1,    0),  Symmetric("MirTolBt8",  0.5),  Deviations("downTolBt8",  0, 1),
    Deviations("upTolBt9",  2,    0),  Symmetric("MirTolBt9",  1),    Deviations("downTolBt9",  0, 2),
    Deviations("upTolBt10", 3,    0),  Symmetric("MirTolBt10", 2),    Deviations("downTolBt10", 0, 3),
    Deviations("upTolBt11", 5,    0),                                 Deviations("downTolBt11", 0, 6),
    Deviations("upTolBt12", 6,    0),                                 Deviations("downTolBt12", 0, 10),
    Deviations("upTolBt13", 10,   0),                                 Deviations("downTolBt13", 0, 20),
};
// clang-format on
static_assert(std::size(kButtons) == 49);

void PrepareDialog() {
    for (const Button& each : kButtons) kDialog.OnPress(each.name, each.action, &each);
    kDialog.OnClose(EndDialogOnClose);
}

}  // namespace

void VxDimModify() {
    RunModalDialog(kDialog, PrepareDialog);
}
