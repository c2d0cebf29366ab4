// Exchange files of other systems: products, where they are used, their solids and colours.
#include "simhost/kernel/occ/read.h"

#include <IGESCAFControl_Reader.hxx>
#include <Interface_Static.hxx>
#include <Quantity_Color.hxx>
#include <STEPCAFControl_Reader.hxx>
#include <TCollection_AsciiString.hxx>
#include <TDF_LabelMapHasher.hxx>
#include <TDataStd_Name.hxx>
#include <TDocStd_Document.hxx>
#include <TopExp_Explorer.hxx>
#include <XCAFApp_Application.hxx>
#include <XCAFDoc_ColorTool.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>

#include <cmath>
#include <memory>
#include <string>

#include "simhost/kernel/kernel.h"
#include "simhost/kernel/occ/bodies.h"
#include "simhost/kernel/occ/places.h"

namespace simhost::kernel {

namespace {

std::string NameOf(const TDF_Label& label) {
    Handle(TDataStd_Name) name;
    if (!label.FindAttribute(TDataStd_Name::GetID(), name)) return {};
    const TCollection_ExtendedString& wide = name->Get();
    std::string utf8(std::size_t(wide.LengthOfCString()), '\0');
    char* bytes = utf8.data();
    wide.ToUTF8CString(bytes);
    // What the kernel calls a product without a name.
    return utf8.starts_with("Open CASCADE STEP translator") ? std::string() : utf8;
}

Placement PlaceOf(const TopLoc_Location& location) {
    const gp_Trsf& moved = location.Transformation();
    Placement place;
    for (int axis = 0; axis < 3; ++axis) {
        place.axes[std::size_t(axis)] = {moved.Value(1, axis + 1), moved.Value(2, axis + 1),
                                         moved.Value(3, axis + 1)};
    }
    place.origin = VectorOf(moved.TranslationPart());
    return place;
}

class DocumentReader {
public:
    explicit DocumentReader(const Handle(TDocStd_Document) & from)
        : shapes_(XCAFDoc_DocumentTool::ShapeTool(from->Main())),
          colours_(XCAFDoc_DocumentTool::ColorTool(from->Main())) {}

    Document Run() {
        TDF_LabelSequence roots;
        shapes_->GetFreeShapes(roots);
        if (roots.IsEmpty()) throw Failure("there is no product in the file");
        if (roots.Length() == 1) {
            Add(roots.First(), 0);
            return std::move(document_);
        }
        document_.products.emplace_back();
        for (const TDF_Label& root : roots) {
            const std::size_t number = Add(root, 1);
            document_.products[0].occurrences.push_back(
                {number, document_.products[number].name, {}, {}});
        }
        return std::move(document_);
    }

private:
    std::size_t Add(const TDF_Label& label, int depth) {
        constexpr int kMostLevels = 200;  // the kernel itself walks with the stack
        if (depth > kMostLevels) throw Failure("its assemblies are nested too deep");
        if (const int* known = numbers_.Seek(label)) return std::size_t(*known);
        const std::size_t number = document_.products.size();
        numbers_.Bind(label, int(number));
        document_.products.emplace_back();
        Product product;
        product.name = NameOf(label);
        product.colour = ColourOf(label);
        if (XCAFDoc_ShapeTool::IsAssembly(label)) {
            AddOccurrences(label, depth, &product);
        } else {
            AddSolids(label, &product);
        }
        document_.products[number] = std::move(product);
        return number;
    }

    void AddOccurrences(const TDF_Label& label, int depth, Product* product) {
        TDF_LabelSequence components;
        XCAFDoc_ShapeTool::GetComponents(label, components);
        for (const TDF_Label& each : components) {
            TDF_Label used;
            if (!XCAFDoc_ShapeTool::GetReferredShape(each, used)) continue;
            Occurrence occurrence;
            occurrence.product = Add(used, depth + 1);
            occurrence.name = NameOf(each);
            occurrence.place = PlaceOf(XCAFDoc_ShapeTool::GetLocation(each));
            occurrence.colour = ColourOf(each);
            product->occurrences.push_back(std::move(occurrence));
        }
    }

    // Of a part without a solid, as of one that is all open shells, the shape itself is the body.
    void AddSolids(const TDF_Label& label, Product* product) {
        const TopoDS_Shape shape = XCAFDoc_ShapeTool::GetShape(label);
        int number = 1;
        for (TopExp_Explorer solids(shape, TopAbs_SOLID); solids.More(); solids.Next()) {
            AddSolid(solids.Current(), &number, product);
        }
        if (!product->solids.empty()) return;
        if (TopExp_Explorer(shape, TopAbs_FACE).More()) AddSolid(shape, &number, product);
    }

    void AddSolid(const TopoDS_Shape& shape, int* number, Product* product) {
        auto body = std::make_shared<ImportedBody>(BodyOf(shape));
        Solid solid;
        solid.id = *number;
        solid.shape = Shape::Imported;
        solid.scale = 1;
        *number += NumbersTaken(*body);
        int surface = solid.id;
        const std::optional<Colour> whole = ColourOf(shape);
        for (TopExp_Explorer faces(shape, TopAbs_FACE); faces.More(); faces.Next()) {
            std::optional<Colour> colour = ColourOf(faces.Current());
            if (!colour) colour = whole;
            ++surface;
            if (colour && colour != product->colour) product->faceColours[surface] = *colour;
        }
        solid.body = std::move(body);
        product->solids.push_back(std::move(solid));
    }

    template <class Thing>
    std::optional<Colour> ColourOf(const Thing& thing) const {
        Quantity_Color found;
        if (!colours_->GetColor(thing, XCAFDoc_ColorSurf, found) &&
            !colours_->GetColor(thing, XCAFDoc_ColorGen, found)) {
            return {};
        }
        Colour colour{};
        found.Values(colour[0], colour[1], colour[2], Quantity_TOC_sRGB);
        for (double& one : colour) one = std::round(one * 1e6) / 1e6;  // the kernel's are shorter
        return colour;
    }

    Handle(XCAFDoc_ShapeTool) shapes_;
    Handle(XCAFDoc_ColorTool) colours_;
    NCollection_DataMap<TDF_Label, int, TDF_LabelMapHasher> numbers_;
    Document document_;
};

template <class Reader>
Document DocumentFrom(const std::string& path, const char* format) {
    Interface_Static::SetCVal("xstep.cascade.unit", "MM");
    XCAFDoc_ShapeTool::SetAutoNaming(false);
    Handle(TDocStd_Document) to;
    const Handle(XCAFApp_Application) application = XCAFApp_Application::GetApplication();
    application->NewDocument("BinXCAF", to);
    const struct Closing {
        const Handle(XCAFApp_Application) & application;
        const Handle(TDocStd_Document) & document;
        ~Closing() { application->Close(document); }
    } closing{application, to};
    Reader reader;
    reader.SetNameMode(true);
    reader.SetColorMode(true);
    if (reader.ReadFile(path.c_str()) != IFSelect_RetDone) {
        throw Failure(std::string("it is no ") + format + " file, or is broken");
    }
    if (!reader.Transfer(to)) throw Failure("there is nothing in the file that can be read");
    return DocumentReader(to).Run();
}

}  // namespace

Document StepDocument(const std::string& path) {
    return DocumentFrom<STEPCAFControl_Reader>(path, "STEP");
}

Document IgesDocument(const std::string& path) {
    return DocumentFrom<IGESCAFControl_Reader>(path, "IGES");
}

}  // namespace simhost::kernel
