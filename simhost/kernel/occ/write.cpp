// Documents as the bytes of exchange files.
#include "simhost/kernel/occ/write.h"

#include <APIHeaderSection_MakeHeader.hxx>
#include <IGESCAFControl_Writer.hxx>
#include <IGESData_GlobalSection.hxx>
#include <IGESData_IGESModel.hxx>
#include <Interface_Static.hxx>
#include <Quantity_Color.hxx>
#include <STEPCAFControl_Writer.hxx>
#include <StepData_Protocol.hxx>
#include <StepData_StepModel.hxx>
#include <StepData_StepWriter.hxx>
#include <TDataStd_Name.hxx>
#include <TDocStd_Document.hxx>
#include <XCAFApp_Application.hxx>
#include <XCAFDoc_ColorTool.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>
#include <XSControl_WorkSession.hxx>

#include <sstream>

#include "simhost/kernel/kernel.h"
#include "simhost/kernel/occ/places.h"
#include "simhost/kernel/occ/shapes.h"
#include "simhost/kernel/occ/step_text.h"

namespace simhost::kernel {

namespace {

// The simulated host has no calendar: every file is of its first day.
constexpr const char* kTime = "2000-01-01T00:00:00";
constexpr const char* kIgesTime = "20000101.000000";

void SetName(const TDF_Label& label, const std::string& utf8) {
    TDataStd_Name::Set(label, TCollection_ExtendedString(utf8.c_str(), /*isMultiByte=*/true));
}

Quantity_Color ColourOf(const Colour& colour) {
    return {colour[0], colour[1], colour[2], Quantity_TOC_sRGB};
}

// The kernel's own document, from which both formats are written.
class Caf {
public:
    explicit Caf(const Document& document) : from_(document) {
        XCAFDoc_ShapeTool::SetAutoNaming(false);
        XCAFApp_Application::GetApplication()->NewDocument("BinXCAF", to_);
        shapes_ = XCAFDoc_DocumentTool::ShapeTool(to_->Main());
        colours_ = XCAFDoc_DocumentTool::ColorTool(to_->Main());
        labels_.resize(document.products.size());
        Label(0);
        shapes_->UpdateAssemblies();
    }
    ~Caf() { XCAFApp_Application::GetApplication()->Close(to_); }
    Caf(const Caf&) = delete;
    Caf& operator=(const Caf&) = delete;

    const Handle(TDocStd_Document) & get() const { return to_; }

private:
    // Of a product, which is made at its first use.
    TDF_Label Label(std::size_t number) {
        if (!labels_[number].IsNull()) return labels_[number];
        const Product& product = from_.products[number];
        const bool isPart = !product.solids.empty();
        const TDF_Label label = isPart ? Part(product) : shapes_->NewShape();
        labels_[number] = label;
        SetName(label, product.name);
        if (product.colour) {
            colours_->SetColor(label, ColourOf(*product.colour), XCAFDoc_ColorSurf);
        }
        for (const Occurrence& each : product.occurrences) {
            const TopLoc_Location place(TransformationOf(each.place));
            const TDF_Label used = shapes_->AddComponent(label, Label(each.product), place);
            SetName(used, each.name);
            if (each.colour) colours_->SetColor(used, ColourOf(*each.colour), XCAFDoc_ColorSurf);
        }
        return label;
    }

    TDF_Label Part(const Product& product) {
        std::vector<TopoDS_Shape> shapes;
        shapes.reserve(product.solids.size());
        for (const Solid& solid : product.solids) {
            shapes.push_back(ShapeOfSolid(solid, from_.facetted));
        }
        const TDF_Label label = shapes_->AddShape(SideBySide(shapes), /*makeAssembly=*/false);
        if (product.faceColours.empty() || from_.facetted) return label;
        for (std::size_t i = 0; i < shapes.size(); ++i) {
            PaintFaces(label, product, FacesBySurface(shapes[i], product.solids[i]));
        }
        return label;
    }

    void PaintFaces(const TDF_Label& part, const Product& product,
                    const std::map<int, std::vector<TopoDS_Shape>>& facesBySurface) {
        for (const auto& [surface, faces] : facesBySurface) {
            const auto colour = product.faceColours.find(surface);
            if (colour == product.faceColours.end()) continue;
            for (const TopoDS_Shape& face : faces) {
                const TDF_Label label = shapes_->AddSubShape(part, face);
                colours_->SetColor(label, ColourOf(colour->second), XCAFDoc_ColorSurf);
            }
        }
    }

    const Document& from_;
    Handle(TDocStd_Document) to_;
    Handle(XCAFDoc_ShapeTool) shapes_;
    Handle(XCAFDoc_ColorTool) colours_;
    std::vector<TDF_Label> labels_;
};

// The kernel's word for a unit.
const char* UnitWord(const std::string& unit) {
    for (const auto& [ours, theirs] : {std::pair{"cm", "CM"}, std::pair{"m", "M"},
                                       std::pair{"in", "INCH"}, std::pair{"ft", "FT"}}) {
        if (unit == ours) return theirs;
    }
    return "MM";
}

// --- What strict readers want of the text ---

// The UTF-16 units of a text of other letters, each as four digits.
std::string Digits(const std::string& utf8) {
    const TCollection_ExtendedString wide(utf8.c_str(), /*isMultiByte=*/true);
    std::string digits;
    for (int i = 1; i <= wide.Length(); ++i) {
        constexpr const char* kDigits = "0123456789ABCDEF";
        const auto unit = static_cast<unsigned>(wide.Value(i));
        for (const unsigned shift : {12u, 8u, 4u, 0u}) digits += kDigits[(unit >> shift) & 15u];
    }
    return digits;
}

// Letters that are not ASCII are told by escapes. The kernel writes them as bytes, and may break a
// line between two bytes of one letter.
std::string WithEscapes(const std::string& text) {
    std::string result, others;
    bool quoted = false;
    const auto flush = [&] {
        if (!others.empty()) result += "\\X2\\" + Digits(others) + "\\X0\\";
        others.clear();
    };
    for (const char c : text) {
        if (c == '\'') quoted = !quoted;
        if (quoted && (c == '\n' || c == '\r')) continue;
        if (static_cast<unsigned char>(c) >= 0x80) {
            others += c;
            continue;
        }
        flush();
        result += c;
    }
    flush();
    return result;
}

// The kernel numbers uses on and on through all files of a session.
std::string WithUsesFromOne(const std::string& text) {
    constexpr std::string_view kUse = "NEXT_ASSEMBLY_USAGE_OCCURRENCE('";
    std::string result;
    std::size_t done = 0;
    int number = 0;
    for (std::size_t at = text.find(kUse); at != std::string::npos; at = text.find(kUse, done)) {
        result.append(text, done, at + kUse.size() - done);
        result += std::to_string(++number);
        done = text.find('\'', at + kUse.size());
    }
    return result.append(text, done);
}

void Set(const char* setting, const char* value) {
    if (!Interface_Static::SetCVal(setting, value)) {
        throw Failure(std::string("the kernel has no setting ") + setting + " = " + value);
    }
}

Handle(TCollection_HAsciiString) Text(const char* text) {
    return new TCollection_HAsciiString(text);
}

}  // namespace

std::string StepBytes(const Document& document) {
    Set("write.step.schema", "AP214IS");
    // Curves on planes, cylinders and cones need no twin in the plane of their parameters.
    Interface_Static::SetIVal("write.surfacecurve.mode", 0);
    Set("write.step.unit", UnitWord(document.unit));
    const Caf caf(document);
    STEPCAFControl_Writer writer;
    if (!writer.Transfer(caf.get(), STEPControl_AsIs)) throw Failure("the STEP file is empty");
    const Handle(StepData_StepModel) model = writer.ChangeWriter().Model();
    APIHeaderSection_MakeHeader header(model);
    header.SetName(Text(""));
    header.SetTimeStamp(Text(kTime));
    header.SetAuthorValue(1, Text(""));
    header.SetOrganizationValue(1, Text(""));
    header.SetOriginatingSystem(Text("Vorlatix simulated host"));
    header.SetAuthorisation(Text(""));
    header.SetDescriptionValue(1, Text(""));
    const auto session = writer.ChangeWriter().WS();
    StepData_StepWriter text(model);
    text.SendModel(Handle(StepData_Protocol)::DownCast(session->Protocol()));
    std::ostringstream bytes;
    if (!text.Print(bytes)) throw Failure("the STEP text cannot be made");
    return WithColoursInOrder(WithUsesFromOne(WithEscapes(bytes.str())));
}

std::string IgesBytes(const Document& document) {
    Interface_Static::SetIVal("write.iges.brep.mode", 1);
    Set("write.iges.unit", UnitWord(document.unit));
    const Caf caf(document);
    IGESCAFControl_Writer writer;
    if (!writer.Transfer(caf.get())) throw Failure("the IGES file is empty");
    writer.ComputeModel();
    IGESData_GlobalSection global = writer.Model()->GlobalSection();
    global.SetFileName(Text(""));
    global.SetDate(Text(kIgesTime));
    global.SetLastChangeDate(Text(kIgesTime));
    global.SetAuthorName(Text(""));
    global.SetCompanyName(Text(""));
    writer.Model()->SetGlobalSection(global);
    std::ostringstream bytes;
    if (!writer.Write(bytes, /*fnes=*/false)) throw Failure("the IGES text cannot be made");
    return bytes.str();
}

}  // namespace simhost::kernel
