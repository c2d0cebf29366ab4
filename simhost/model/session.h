// The host's session: the models in memory, the working folder they come from and go to, windows,
// selections and appearances.
#pragma once

#include <cstdint>
#include <deque>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "simhost/core/disk.h"
#include "simhost/core/handles.h"
#include "simhost/model/csys.h"
#include "simhost/model/elements.h"
#include "simhost/model/exclusions.h"
#include "simhost/model/model.h"
#include "simhost/model/model_folder.h"
#include "simhost/model/plot_records.h"
#include "simhost/model/selections.h"
#include "simhost/model/simprep.h"
#include "simhost/model/udf.h"

namespace simhost {

struct Window {
    int id = 0;
    Model* model = nullptr;
    int repaints = 0;
    std::vector<int> activated;  // the way to the component that the user works on; empty: none
};

class Session {
public:
    // Without a disk no model file is found, and none can be written.
    Session();
    explicit Session(const Disk& disk);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    // --- Models in memory ---
    Model& Create(WideView name, ProMdlType type);  // complains if the name is taken
    Model* Find(ProMdl handle) const { return models_.Find(handle); }
    // A null handle or a model of the wrong kind is refused, a dangling handle is a complaint.
    Model& Require(ProMdl handle) const;
    Model& RequireSolid(const void* handle) const;  // a part or an assembly
    Model& RequireDrawing(ProMdl handle) const;
    Feature& RequireFeature(const ProModelitem* item) const;
    Model* FindByName(WideView name, ProMdlType type) const;
    Model* FindByFile(const std::string& fileName) const;  // "gearbox.asm"
    std::vector<Model*> All() const;                       // in the order they came into memory
    // Whether a window shows it, or another model in memory needs it: as a component, a merged or
    // manufactured model, a generic, or in a view.
    bool IsInUse(const Model& model) const;
    void Erase(Model& model);  // components and windows that show it lose it
    // Erases all that no window shows and nothing shown needs, at whatever depth.
    struct Erased {
        std::size_t models = 0;
        std::vector<std::string> unsaved;  // the files of those that were changed
    };
    Erased EraseNotDisplayed();

    // --- Disk ---
    // The model of this file name from memory or the working folder, with all that lies below it;
    // a component whose file is missing stays without a model. "gearbox.asm" is its newest version,
    // "gearbox.asm.3" this one and no other. Null if there is no such file. A format is also looked
    // for in the folder of formats.
    // Throws ModelFileError, and then memory is as before. `step` is told after each model how many
    // have been looked through, of how many that are known; what it throws ends the work likewise.
    using Step = std::function<void(std::size_t done, std::size_t all)>;
    Model* Retrieve(const std::string& fileName, const Step& step = {});
    // The same; a file that cannot be read is told to the user. For `tell` see below.
    Model* RetrieveOrTell(const std::string& fileName);
    // The model of this file, by its full Windows path, with or without a version; a model of that
    // name that is in memory is taken as it is. What lies below is looked for beside the file and
    // then in the working folder. Null and ModelFileError as above.
    Model* RetrievePath(const WideText& path);
    // A copy under another name, which is not on disk yet and belongs to the working folder; it has
    // the same components, and is no instance of a family. Refused for a name that is none or that
    // is taken in memory or in the working folder.
    Model& Copy(const Model& source, WideView name);
    // An empty part or assembly, which is not on disk and in no window. Refused as a copy is.
    Model& CreateSolid(WideView name, ProMdlType type);
    // Writes the next version into the folder that the model came from, or another; the real path
    // of the file. Throws ModelFileError, and then the folder is as before.
    std::string Save(Model& model);
    std::string SaveInto(Model& model, const WideText& folder);
    // Writes the model, and whatever in memory it needs at whatever depth, into another folder as
    // their next versions there; one whose newest copy there has the same bytes is not written
    // again. What is in memory stays what it is and comes from where it came. Throws
    // ModelFileError, and then what was written before stays.
    void Backup(Model& model, const WideText& folder);
    // Another name for the model in memory, for all versions of its file in the folder that it
    // came from, and in whatever refers to it in memory, which counts as changed. Refused for a
    // name that is none or taken; throws ModelFileError if a file cannot be renamed. All or
    // nothing.
    void Rename(Model& model, WideView name);
    // Shows the user a line about a file. The host sets it.
    std::function<void(const std::string& line)> tell;
    // Whether everything is saved in the working folder, wherever it came from; unset: no. The
    // host sets it.
    std::function<bool()> savesInWorkingFolder;
    // Where formats are that do not lie in the working folder; unset or empty: nowhere. The host
    // sets it.
    std::function<WideText()> formatFolder;
    // Whether no other program keeps this real file; unset: none does. The host sets it.
    std::function<bool(const std::filesystem::path& file)> mayWrite;
    // What Retrieve did not find, since the last question, each once.
    std::vector<std::string> TakeMissing();

    WideText workingDirectory;  // a Windows path without a separator at its end

    // Counts the changes of components, and of the representations that they are members of.
    std::uint64_t contentsRevision = 0;
    // Components that the active representation of the current model leaves out of every use of
    // their assembly.
    Exclusions exclusions;
    SimprepDatas simprepDatas;
    PlotRecords plotRecords;

    // --- Windows ---
    Window& Open(Model& model);  // shows it in a window of its own, now the current one
    void Close(Window& window);  // what it showed stays in memory
    void CloseCurrent();
    Window* current = nullptr;
    Window* FindWindow(int id);  // -1: the current one
    const std::deque<Window>& windows() const { return windows_; }
    Model* CurrentModel() const { return current ? current->model : nullptr; }
    // The component that is activated in the current window, else the window's model. The way to it
    // starts from the model, or from the assembly that it manufactures.
    Model* ActiveModel() const;
    ProMode Mode() const;  // PRO_MODE_UNKNOWN while nothing is open

    // --- Selections, coordinate systems, constraints in a caller's hand ---
    Selections selections;
    CsysHandles csyses;
    ConstraintDrafts constraints;
    Udfs udfs;
    Elements elements;
    // The item that component ids lead to below `top`; false if there is none.
    static bool Follow(Model& top, const std::vector<int>& path, ProModelitem* item);

    // The object of the older database calls of a model, and back.
    static Prohandle ObjectOf(const Model& model);
    Model* FindObject(const void* object) const;

    Surface* FindSurface(const void* handle) const { return surfaces_.Find(handle); }

private:
    class Retrieval;
    Model* RetrieveFrom(const WideText& folder, const std::string& fileName, int wanted,
                        const Step& step);
    Model* Load(const WideText& folder, const std::string& fileName, int wanted);
    Model& ReadVersion(const WideText& folder, const std::string& fileName, ProMdlType type,
                       const ModelVersion& version);
    void RequireFreeName(WideView name, ProMdlType type);
    ModelFolder& FolderOf(const std::filesystem::path& folder);
    // The model's text as its next version in a folder. Throws ModelFileError.
    struct Written {
        std::filesystem::path path;
        int version;
    };
    Written WriteNextVersion(const Model& model, const std::string& text, const WideText& folder);
    // What there is of a file in a folder of a Windows path, "gearbox.asm.1", as it lies there.
    std::vector<std::string> FilesOf(const WideText& folder, const std::string& fileName);
    void Drop(const std::unordered_set<const Model*>& models);  // nothing refers to them any more
    void LetReferencesFollow(const Model& model, const std::string& oldFile);
    const Disk& disk_;
    HandleTable<Model> models_{HandleKind::Model};
    HandleTable<Surface> surfaces_{HandleKind::Surface};
    std::vector<std::unique_ptr<Model>> owned_;
    std::unordered_map<std::string, Model*> byFile_;
    std::deque<Window> windows_;
    std::vector<std::string> missing_;
    std::vector<std::unique_ptr<ModelFolder>> folders_;
    int nextWindow_ = 1;
};

}  // namespace simhost
