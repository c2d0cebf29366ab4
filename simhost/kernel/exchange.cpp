// The walk over an assembly that makes a product of each model at its first use.
#include "simhost/kernel/exchange.h"

#include <algorithm>
#include <map>
#include <tuple>

#include "simhost/core/text.h"
#include "simhost/model/output_records.h"
#include "simhost/model/simprep.h"

namespace simhost {

namespace {

kernel::Colour ColourOf(const ProdbSurfaceProps& props) {
    return {props.colour[0], props.colour[1], props.colour[2]};
}

class DocumentMaker {
public:
    DocumentMaker(kernel::Document* document, bool withHidden)
        : document_(*document), withHidden_(withHidden) {}

    // Where the product is in the document.
    std::size_t Add(const Model& model, Membership::At at) {
        const Key key{&model, at.node, at.included};
        const auto [known, isNew] = numbers_.try_emplace(key, document_.products.size());
        const std::size_t number = known->second;
        if (!isNew) return number;
        document_.products.emplace_back();
        kernel::Product product;
        product.name = Utf8(model.name);
        if (model.appearance) product.colour = ColourOf(*model.appearance);
        if (model.type == PRO_MDL_PART) {
            AddSolids(model, &product);
        } else {
            above_.push_back(&model);
            AddOccurrences(model, at, &product);
            above_.pop_back();
        }
        document_.products[number] = std::move(product);
        return number;
    }

private:
    static void AddSolids(const Model& part, kernel::Product* product) {
        product->solids = part.partData.solids;
        for (Solid& solid : product->solids) ConvertLengths(&solid, LengthUnit(part), 1);
        for (const auto& [surface, props] : part.partData.surfaceAppearances) {
            product->faceColours[surface] = ColourOf(props);
        }
    }

    bool IsThere(const Feature& feature) const {
        if (feature.type != PRO_FEAT_COMPONENT || feature.status != PRO_FEAT_ACTIVE) return false;
        return feature.visible && feature.model && (withHidden_ || !feature.hidden);
    }

    // An assembly's own colour covers those of what it holds.
    void AddOccurrences(const Model& assembly, Membership::At at, kernel::Product* product) {
        for (const Feature& feature : assembly.features()) {
            const Membership::At below = Membership::Below(at, feature.id);
            if (!IsThere(feature) || !Membership::IsThere(below)) continue;
            const Model& used = *feature.model;
            if (std::find(above_.begin(), above_.end(), &used) != above_.end()) continue;
            kernel::Occurrence occurrence;
            occurrence.product = Add(used, below);
            occurrence.name = Utf8(feature.name.empty() ? used.name : feature.name);
            occurrence.place = PlaceInMm(feature.placement, assembly);
            occurrence.colour = product->colour;
            product->occurrences.push_back(std::move(occurrence));
        }
    }

    using Key = std::tuple<const Model*, const void*, bool>;
    kernel::Document& document_;
    bool withHidden_;
    std::map<Key, std::size_t> numbers_;
    std::vector<const Model*> above_;
};

}  // namespace

kernel::Document DocumentOf(const Model& top, const OutputInclusion* inclusion) {
    kernel::Document document;
    document.unit = Utf8(LengthUnitName(top));
    document.facetted = inclusion && inclusion->facetted;
    const Membership membership(top.ActiveSimprep());
    DocumentMaker(&document, !inclusion || inclusion->blanked).Add(top, membership.Top());
    return document;
}

}  // namespace simhost
