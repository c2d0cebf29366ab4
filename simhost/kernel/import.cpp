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

// The folder of a project, which goes again unless it is kept.
class NewFolder {
public:
    explicit NewFolder(const fs::path& folder) : folder_(folder) {
        std::error_code error;
        wasThere_ = fs::is_directory(folder, error);
        if (wasThere_ && !fs::is_empty(folder, error)) {
            throw std::runtime_error(folder.string() + " is not empty");
        }
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
    bool wasThere_ = false, kept_ = false;
};

kernel::Document ReadDocument(const fs::path& file) {
    bool found = false;
    const std::string bytes = ReadFile(file, &found);
    if (!found) throw std::runtime_error("cannot read " + file.string());
    // The kernel takes many a broken file for an empty one.
    const bool isWhole = bytes.find("ISO-10303-21;") != std::string::npos &&
                         bytes.find("END-ISO-10303-21;") != std::string::npos;
    if (!isWhole) {
        throw std::runtime_error(file.string() + ": it is no STEP file, or not all of one");
    }
    kernel::Kernel* const kernel = kernel::TheKernel();
    if (!kernel) throw std::runtime_error("no STEP file can be read: there is no geometry kernel");
    try {
        return kernel->ReadStep(file.string());
    } catch (const kernel::Failure& failure) {
        throw std::runtime_error(file.string() + ": " + failure.what());
    }
}

}  // namespace

Imported ImportStep(const fs::path& file, const fs::path& folder) {
    const kernel::Document document = ReadDocument(file);
    Project project(document, file);
    NewFolder written(folder);
    for (const auto& model : project.models()) {
        written.Write(model->FileName() + ".1", ModelText(*model));
    }
    written.Keep();
    return project.TakeResult();
}

}  // namespace simhost
