// Arrays that the plug-in leaves to the host, and null arrays that it frees, each with its reason.
#include "simhost/app/the_plugin.h"

#include "hostapi/host/dimension.h"

namespace simhost::the_plugin {

const std::vector<HeldOnPurpose> kHeldOnPurpose = {
    {"popup access", "ProSelbufferSelectionsGet", 0,
     "the access rules of popup buttons leave the array of selections to the host"},
    {"command VxBom", "ProArrayAlloc", sizeof(char*),
     "the drawing area is left the list of its picture"},
    {"command VxMergeTo", "ProElementAlloc", 0, "of several trees only the last is freed"},
    {"command VxMergeTo", "ProSelectionAlloc", 0, "so it is with what they were made in"},
    {"command VxSingleDim", "ProArrayAlloc", sizeof(ProSelection),
     "each pass leaves its picks to the host"},
    {"command VxSingleDim", "ProArrayAlloc", sizeof(ProDimSense),
     "each pass leaves its senses to the host"},
    {"command VxSingleDim", "ProSelectionCopy", 0, "they lie in the arrays that are left"},
    {"command VxSingleDim", "ProSelectionAlloc", 0, "likewise"},
    {"command VxExportPdf", "ProPDFoptionsAlloc", 0, "the options are left to the host"},
    {"command VxExIgs", "ProOutputInclusionAlloc", 0, "the host has no call that frees it"},
    {"command VxExIgs", "ProOutputLayerOptionsAlloc", 0, "likewise"},
    {"command VxExport", "Pro2dExportdataAlloc", 0, "the records of exports are left to the host"},
    {"command VxExport", "ProDrawingViewsCollect", 0, "so are the views of DWG and DXF by sheets"},
    {"command VxExport", "ProPDFoptionsAlloc", 0, "a drawing without views keeps its options"},
};

const std::vector<NullFreedOnPurpose> kNullFreedOnPurpose = {
    {"command VxRelations", "adding only new relations frees twice for each model"},
};

}  // namespace simhost::the_plugin
