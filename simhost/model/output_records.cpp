// The words for records of output.
#include "simhost/model/output_records.h"

namespace simhost {

std::string TextOf(const OutputInclusion& inclusion) {
    std::string text;
    const auto add = [&](bool on, const char* word) {
        if (!on) return;
        text += text.empty() ? "inclusion of " : ", ";
        text += word;
    };
    add(inclusion.datums, "datums");
    add(inclusion.blanked, "blanked");
    add(inclusion.facetted, "facetted");
    return text.empty() ? "inclusion of nothing" : text;
}

std::string TextOf(const OutputLayers& layers) {
    return layers.autoId ? "layers with ids" : "layers";
}

}  // namespace simhost
