// A model in the host's memory: parts, assemblies and the other kinds, with whatever the plug-in's
// commands can change or look at.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "hostapi/host.h"
#include "simhost/core/handles.h"
#include "simhost/model/constraints.h"
#include "simhost/model/family_table.h"
#include "simhost/model/geometry.h"
#include "simhost/model/material.h"
#include "simhost/model/parameters.h"
#include "simhost/model/relations.h"
#include "simhost/model/sheet_metal.h"
#include "simhost/model/sheets.h"
#include "simhost/model/simprep.h"
#include "simhost/model/units.h"

namespace simhost {

class Model;
class Session;
class Annotations;
class Drawing;
struct Group;
struct Merge;
struct PartShape;
struct ScreenView;

// The states of ProFeatureStatusGet, and their words in model files.
const char* StatusName(ProFeatStatus status);
bool ParseStatus(const std::string& word, ProFeatStatus* status);

// A feature of a part or an assembly. A component is a feature of type PRO_FEAT_COMPONENT.
struct Feature {
    int id = 0;
    int type = 0;
    int flags = 0;  // ProFeatureStatusflagsGet
    ProFeatStatus status = PRO_FEAT_ACTIVE;
    bool visible = true;        // ProFeatureVisibilityGet: the feature itself
    bool hidden = false;        // on the screen: nothing else of it changes, and it is not saved
    bool hiddenInFile = false;  // how it comes onto the screen from its file
    WideText name;
    std::string file;              // components: "housing.prt"
    Model* model = nullptr;        // components: null while the model is not in memory
    Placement placement;           // components and datums: in the owner's coordinates
    int itemId = 0;                // datums: their number as items; 0: see DatumIdOf
    bool placed = false;           // datums but coordinate systems: where they are is known
    std::vector<int> parents;      // the features that it hangs on
    std::shared_ptr<Group> group;  // groups and merges: what they are made from
    std::shared_ptr<Merge> merge;
    // Components: nothing while it has never had any.
    std::optional<std::vector<Constraint>> constraints;
};

struct Surface {
    Model* part = nullptr;
    int id = 0;
    ProSurface handle = nullptr;
    ProSurfacedata box{};  // along the part's axes
};

// What only parts have.
struct PartData {
    bool skeleton = false;
    std::vector<Solid> solids;
    std::vector<Material> materials;  // that it has read, each name once
    WideText material;                // the name of the one that it is made of; empty: of none
    SheetMetal sheetMetal;
    std::map<int, ProdbSurfaceProps> surfaceAppearances;  // by surface id
};

// What only manufacturing models have.
struct ManufacturingData {
    std::string assemblyFile;   // "gearbox.asm"
    Model* assembly = nullptr;  // null while it is not in memory
};

// What only assemblies have.
struct AssemblyData {
    std::vector<Simprep> simpreps;
    int activeSimprep = 0;  // its id; 0: the master, which has all components
};

// What drawings and formats have.
struct DrawingData : SheetSet {
    std::shared_ptr<Drawing> views;            // null before its first use; see DrawingOf
    std::shared_ptr<Annotations> annotations;  // likewise; see AnnotationsOf
};

// What the host paints on what has no appearance of its own.
ProdbSurfaceProps DefaultAppearance();

class Model {
public:
    ProMdl handle = nullptr;
    Session* session = nullptr;  // whose it is; null for one outside any session
    HandleTable<Surface>* surfaceHandles = nullptr;  // the session's, which its surfaces join
    ProMdlType type = PRO_MDL_PART;
    ProMdlsubtype subtype = PROMDLSTYPE_NONE;
    WideText name;      // in capitals as far as it is ASCII, without the type
    std::string title;  // the designer's words for it (UTF-8)
    int version = 0;    // of the file last read or written; 0: never on disk
    WideText folder;    // which it came from; empty: never on disk, and goes to the working folder
    bool modified = false;

    ModelUnits units;  // see HasUnits
    PartData partData;
    AssemblyData assemblyData;
    ManufacturingData manufacturingData;
    DrawingData drawingData;
    std::optional<ProdbSurfaceProps> appearance;  // the whole model's own
    Parameters parameters;                        // its own
    Relations relations;
    FamilyTable family;
    std::shared_ptr<ScreenView> screen;  // how it is turned on the screen; see ScreenOf
    bool readOnly = false;               // released: the host lets nobody change it
    int treeRefreshes = 0;               // how often its tree was refreshed
    int regenerations = 0;               // how often it was brought up to date

    const std::vector<Feature>& features() const { return features_; }
    Feature& AddFeature(Feature feature);  // an id of 0 becomes the next free one
    Feature* FindFeature(int id);
    void RemoveFeature(int id);  // its number is not given again
    std::vector<Feature>& MutableFeatures();

    // The record of the part's shape, made at first use and anew after its solids changed; it lasts
    // until then.
    const PartShape& shape() const;
    bool HasShape() const { return !partData.solids.empty(); }
    // The faces of the shape at the door. Those that stay when the solids change keep their
    // handles; the handles of the others end at the next call.
    const std::vector<std::unique_ptr<Surface>>& Surfaces();
    // Measures those that were handed out already anew: the solids have other sizes now.
    void RemeasureSurfaces() {
        if (!surfaces_.empty()) Surfaces();
    }
    bool HasSurface(int id);
    // Those that were handed out already; none is made for the question.
    const std::vector<std::unique_ptr<Surface>>& SurfacesSoFar() const { return surfaces_; }

    const Simprep* FindSimprep(WideView wanted) const;  // whatever the case of its letters
    const Simprep* ActiveSimprep() const;               // null: the master

    // "gearbox.asm": the name in small letters and the type's suffix.
    std::string FileName() const;

private:
    std::vector<Feature> features_;
    std::unordered_map<int, std::size_t> featureAt_;
    mutable std::shared_ptr<const PartShape> shape_;
    std::shared_ptr<const PartShape> surfacesOf_;  // the shape that has these surfaces
    int lastFeatureId_ = 0;                        // the highest that was ever given
    std::vector<std::unique_ptr<Surface>> surfaces_;
};

// Whether a model can have the name: 1 to 32 characters, none of which parts it from its type or
// can be in no file's name, and no blank at its ends.
bool IsModelName(WideView name);
// "asm", "prt", "drw", "frm", "mfg", and back (PRO_MDL_UNUSED for any other word).
const char* SuffixOf(ProMdlType type);
ProMdlType TypeOfSuffix(std::string_view suffix);

}  // namespace simhost
