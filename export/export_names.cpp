// How the names of exported files are composed from the items of a pattern.
#include "export/export_names.h"

#include "export/drawing_facts.h"
#include "frame/services.h"

namespace {

// Pieces, each with the separator after it.
class Composed {
public:
    explicit Composed(const WideText& separator) : separator_(separator) {}

    void Add(const WideText& piece) {
        if (hasPieces_) text_ += separator_;
        text_ += piece;
        hasPieces_ = true;
    }

    // Of the separator at the end one character is taken away, not all of it: file names of many
    // years have what is left of a longer one at their ends.
    WideText Text() const {
        WideText text = text_;
        if (hasPieces_ && !separator_.empty()) text += separator_.substr(1);
        return text;
    }

private:
    const WideText& separator_;
    WideText text_;
    bool hasPieces_ = false;
};

// What the two composers ask for differs in the sheet, and in whose name 图纸名称 is.
template <class NameOf>
WideText Compose(const NamePattern& pattern, ProDrawing drawing, int sheet, ProSolid solid,
                 NameOf nameOf) {
    HostRecord<ProModelitem> item;
    ProMdlToModelitem(solid, item.Place());
    Composed composed(pattern.separator);
    for (const WideText& each : pattern.items) {
        if (each == WIDE("sheetsize")) {
            composed.Add(SheetSizeName(drawing, sheet));
        } else if (each == WIDE("图纸名称")) {
            composed.Add(nameOf());
        } else if (item.IsFilled()) {
            const auto value = ReadParameterText(item.Place(), each);
            if (value) composed.Add(*value);
        }
    }
    return composed.Text();
}

}  // namespace

NamePattern ReadNamePattern(const WideText& items, const WideText& separator) {
    NamePattern pattern{SplitColumnList(items), separator};
    if (separator.empty()) {
        pattern.separator.assign(1, WideChar{' '});
    } else if (FoldCase(separator) == WIDE("NULL")) {
        pattern.separator.clear();
    }
    return pattern;
}

WideText BuildExportName(const NamePattern& pattern, ProDrawing drawing, const WideText& name,
                         ProSolid solid) {
    return Compose(pattern, drawing, 1, solid, [&] { return name; });
}

WideText BuildSheetName(const NamePattern& pattern, ProDrawing drawing, int sheet, ProSolid solid) {
    return Compose(pattern, drawing, sheet, solid, [&] { return ModelName(solid); });
}
