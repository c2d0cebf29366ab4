// Products of an exchange file as models, under names that the host takes.
#include "simhost/kernel/import.h"

#include <fmt/format.h>

#include <algorithm>
#include <memory>
#include <set>
#include <stdexcept>
#include <utility>

#include "simhost/core/disk.h"
#include "simhost/core/text.h"
#include "simhost/kernel/kernel.h"
#include "simhost/model/model_file.h"

namespace simhost {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kLongestName = 32;

bool IsInNoName(WideChar c) {
    return c < WideChar{' '} || WideView(WIDE("\\/:*?\"<>|.")).find(c) != WideView::npos;
}

// Not between the two halves of one letter.
WideText CutTo(WideText name, std::size_t length) {
    if (name.size() <= length) return name;
    const bool splits = (name[length] & 0xfc00) == 0xdc00;
    name.resize(splits ? length - 1 : length);
    return name;
}

WideText WithoutBlanksAround(WideText name) {
    while (!name.empty() && name.back() == WideChar{' '}) name.pop_back();
    name.erase(0, std::min(name.find_first_not_of(WideChar{' '}), name.size()));
    return name;
}

// A name that the host takes, as near as can be to that of the product.
WideText LegalName(const std::string& utf8, const char* otherwise) {
    WideText name = Wide(utf8);
    for (WideChar& c : name) {
        if (IsInNoName(c)) c = WideChar{'_'};
    }
    name = WithoutBlanksAround(CutTo(WithoutBlanksAround(std::move(name)), kLongestName));
    if (!name.empty() && name[0] == WideChar{'-'}) name[0] = WideChar{'_'};
    return IsModelName(name) ? Upper(name) : Wide(otherwise);
}

ProdbSurfaceProps Painted(const kernel::Colour& colour) {
    ProdbSurfaceProps props = DefaultAppearance();
    std::copy(colour.begin(), colour.end(), props.colour);
    return props;
}

class Project {
public:
    Project(const kernel::Document& document, const fs::path& file) : document_(document) {
        for (const kernel::Product& product : document.products) {
            models_.push_back(std::make_unique<Model>());
            Model& model = *models_.back();
            const bool isPart = product.occurrences.empty();
            model.type = isPart ? PRO_MDL_PART : PRO_MDL_ASSEMBLY;
            const bool isRoot = models_.size() == 1;
            const auto stem = file.stem().u8string();
            const std::string known = product.name.empty() && isRoot
                                          ? std::string(stem.begin(), stem.end())
                                          : product.name;
            model.name = FreeName(LegalName(known, isPart ? "PART" : "ASSEMBLY"));
            model.title = product.name;
        }
        for (std::size_t i = 0; i < models_.size(); ++i) Fill(i);
        if (lostColours_) {
            result_.notes.push_back("colours of single uses of a part are left out");
        }
    }

    const std::vector<std::unique_ptr<Model>>& models() const { return models_; }
    Imported TakeResult() {
        result_.top = models_.front()->FileName();
        return std::move(result_);
    }

private:
    // Parts and assemblies share their names, so that drawings of both can have them, too.
    WideText FreeName(const WideText& wanted) {
        WideText name = wanted;
        for (int number = 2; !taken_.insert(name).second; ++number) {
            const WideText tail = Wide(fmt::format("_{}", number));
            name = CutTo(wanted, kLongestName - tail.size()) + tail;
        }
        return name;
    }

    void Fill(std::size_t i) {
        const kernel::Product& product = document_.products[i];
        Model& model = *models_[i];
        if (product.colour) model.appearance = Painted(*product.colour);
        if (model.type == PRO_MDL_PART) {
            ++result_.parts;
            model.partData.solids = product.solids;
            for (const auto& [surface, colour] : product.faceColours) {
                model.partData.surfaceAppearances[surface] = Painted(colour);
            }
            if (product.solids.empty()) {
                result_.notes.push_back(model.FileName() + " has no shape in the file");
            }
            return;
        }
        ++result_.assemblies;
        for (const kernel::Occurrence& each : product.occurrences) AddComponent(&model, each);
    }

    void AddComponent(Model* assembly, const kernel::Occurrence& occurrence) {
        Feature component;
        component.type = PRO_FEAT_COMPONENT;
        component.file = models_[occurrence.product]->FileName();
        component.placement = FromMm(occurrence.place, *assembly);
        assembly->AddFeature(component);
        const auto& own = document_.products[occurrence.product].colour;
        lostColours_ = lostColours_ || (occurrence.colour && occurrence.colour != own);
    }

    const kernel::Document& document_;
    std::vector<std::unique_ptr<Model>> models_;
    std::set<WideText> taken_;
    bool lostColours_ = false;
    Imported result_;
};

// The kernel takes many a broken file for an empty one.
void ExpectWhole(const fs::path& file) {
    bool found = false;
    const std::string bytes = ReadFile(file, &found);
    if (!found) throw std::runtime_error("cannot read " + file.string());
    const bool isWhole = bytes.find("ISO-10303-21;") != std::string::npos &&
                         bytes.find("END-ISO-10303-21;") != std::string::npos;
    if (!isWhole) {
        throw std::runtime_error(file.string() + ": it is no STEP file, or not all of one");
    }
}

kernel::Document ReadDocument(const fs::path& file) {
    kernel::Kernel* const kernel = kernel::TheKernel();
    if (!kernel) throw std::runtime_error("no STEP file can be read: there is no geometry kernel");
    try {
        return kernel->ReadStep(file.string());
    } catch (const kernel::Failure& failure) {
        throw std::runtime_error(file.string() + ": " + failure.what());
    }
}

// Where nothing lies that a project could be mixed up with. True: the folder is there.
bool ExpectRoom(const fs::path& folder) {
    std::error_code error;
    const bool isThere = fs::is_directory(folder, error);
    if (isThere && !fs::is_empty(folder, error)) {
        throw std::runtime_error(folder.string() + " is not empty");
    }
    return isThere;
}

// The folder of a project, which goes again unless it is kept.
class NewFolder {
public:
    explicit NewFolder(const fs::path& folder) : folder_(folder), wasThere_(ExpectRoom(folder)) {
        std::error_code error;
        if (!wasThere_ && !fs::create_directories(folder, error)) {
            throw std::runtime_error("cannot make the folder " + folder.string());
        }
    }
    ~NewFolder() {
        std::error_code ignored;
        for (const fs::path& file : written_) fs::remove(file, ignored);
        if (!kept_ && !wasThere_) fs::remove(folder_, ignored);
    }
    NewFolder(const NewFolder&) = delete;
    NewFolder& operator=(const NewFolder&) = delete;

    void Write(const std::string& name, const std::string& text) {
        const fs::path path = folder_ / fs::path(std::u8string(name.begin(), name.end()));
        std::string reason;
        if (!WriteFile(path, text, &reason)) {
            throw std::runtime_error("cannot write " + path.string() + ": " + reason);
        }
        written_.push_back(path);
    }
    void Keep() {
        kept_ = true;
        written_.clear();
    }

private:
    fs::path folder_;
    std::vector<fs::path> written_;
    bool wasThere_, kept_ = false;
};

// A project as one text, by which it comes from the process that has read it: pieces with their
// lengths before them.
struct ProjectFiles {
    Imported made;
    std::vector<std::pair<std::string, std::string>> files;  // names and texts
};

std::string Packed(const ProjectFiles& project) {
    std::string text;
    const auto add = [&text](const std::string& piece) {
        text += std::to_string(piece.size());
        text += ':';
        text += piece;
    };
    add(project.made.top);
    add(std::to_string(project.made.parts));
    add(std::to_string(project.made.assemblies));
    add(std::to_string(project.made.notes.size()));
    for (const std::string& note : project.made.notes) add(note);
    for (const auto& [name, bytes] : project.files) {
        add(name);
        add(bytes);
    }
    return text;
}

ProjectFiles Unpacked(const std::string& text) {
    std::size_t at = 0;
    const auto take = [&text, &at] {
        const std::size_t colon = text.find(':', at);
        const std::size_t length = std::stoul(text.substr(at, colon - at));
        at = colon + 1 + length;
        return text.substr(colon + 1, length);
    };
    ProjectFiles project;
    project.made.top = take();
    project.made.parts = std::stoi(take());
    project.made.assemblies = std::stoi(take());
    for (int notes = std::stoi(take()); notes > 0; --notes) project.made.notes.push_back(take());
    while (at < text.size()) {
        std::string name = take();
        project.files.emplace_back(std::move(name), take());
    }
    return project;
}

// Of numbers beyond all measure nothing can be made that opens again.
void ExpectToOpen(const std::string& text, const std::string& name, const fs::path& file) {
    try {
        Model again;
        ReadModelText(text, name, &again);
    } catch (const ModelFileError& error) {
        throw std::runtime_error(fmt::format("{}: it gives a model that cannot be opened ({})",
                                             file.string(), error.what()));
    }
}

std::string ReadProject(const fs::path& file) {
    const kernel::Document document = ReadDocument(file);
    Project project(document, file);
    ProjectFiles files;
    for (const auto& model : project.models()) {
        std::string text = ModelText(*model);
        ExpectToOpen(text, model->FileName(), file);
        files.files.emplace_back(model->FileName() + ".1", std::move(text));
    }
    files.made = project.TakeResult();
    return Packed(files);
}

std::string ReadApart(const fs::path& file, const Bounds& bounds) {
    try {
        return DoneApart(
            "reading " + file.string(), [&file] { return ReadProject(file); }, bounds);
    } catch (const BrokenOff& how) {
        throw std::runtime_error(how.what() + std::string("; most likely the file is broken"));
    }
}

}  // namespace

std::vector<std::string> TextOf(const Imported& made) {
    std::vector<std::string> lines;
    lines.reserve(made.notes.size() + 1);
    for (const std::string& note : made.notes) lines.push_back("note: " + note);
    lines.push_back(fmt::format("written: {} with {} part{} and {} assembl{}", made.top, made.parts,
                                made.parts == 1 ? "" : "s", made.assemblies,
                                made.assemblies == 1 ? "y" : "ies"));
    return lines;
}

Imported ImportStep(const fs::path& file, const fs::path& folder, const Bounds& bounds) {
    ExpectWhole(file);
    ExpectRoom(folder);
    const ProjectFiles project = Unpacked(ReadApart(file, bounds));
    NewFolder written(folder);
    for (const auto& [name, text] : project.files) written.Write(name, text);
    written.Keep();
    return project.made;
}

}  // namespace simhost
