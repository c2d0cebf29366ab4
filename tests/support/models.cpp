// Reads the lines of text that models are made from.
#include "tests/support/models.h"

#include <charconv>
#include <optional>
#include <set>
#include <stdexcept>
#include <string_view>
#include <vector>

#include "simhost/core/text.h"
#include "simhost/host.h"

namespace workbench {

using namespace simhost;

namespace {

// What is written of a model at one place.
struct Mention {
    std::string name;  // with its type, if that is written
    std::set<std::string> marks;
    std::string generic;
    int count = 1;
    bool holds = false;  // a list follows
    std::vector<Mention> list;
};

const std::set<std::string> kMarks = {"sheet",      "skeleton", "round",     "released",
                                      "suppressed", "hidden",   "invisible", "missing"};

class Reader {
public:
    explicit Reader(const std::string& text) : text_(text) {}

    Mention Read() {
        Mention first = One();
        if (Take(':')) {
            first.holds = true;
            if (!AtEnd()) first.list = List();
        }
        if (!AtEnd()) Refuse("nothing may follow here");
        return first;
    }

private:
    std::vector<Mention> List() {
        std::vector<Mention> list = {One()};
        while (Take(',')) list.push_back(One());
        return list;
    }

    Mention One() {
        Mention one;
        one.name = Word();
        while (Take('!')) {
            const std::string mark = Word();
            if (kMarks.count(mark) == 0) Refuse("there is no mark !" + mark);
            one.marks.insert(mark);
        }
        if (TakeWord("of")) one.generic = Word();
        SkipBlanks();
        if (at_ + 1 < text_.size() && text_[at_] == 'x' && IsDigit(text_[at_ + 1])) {
            ++at_;
            one.count = Number();
        }
        if (Take('(')) {
            one.holds = true;
            if (!Take(')')) {
                one.list = List();
                if (!Take(')')) Refuse("a closing parenthesis is missing");
            }
        }
        return one;
    }

    std::string Word() {
        SkipBlanks();
        const std::size_t end = text_.find_first_of(" ,:()!", at_);
        const std::string word = text_.substr(at_, end - at_);
        if (word.empty()) Refuse("a name is missing");
        at_ += word.size();
        return word;
    }

    int Number() {
        int number = 0;
        const char* end = text_.data() + text_.size();
        const auto [stop, error] = std::from_chars(text_.data() + at_, end, number);
        if (error != std::errc() || number < 1) Refuse("a number is wrong");
        at_ = std::size_t(stop - text_.data());
        return number;
    }

    static bool IsDigit(char c) { return c >= '0' && c <= '9'; }
    void SkipBlanks() {
        while (at_ < text_.size() && text_[at_] == ' ') ++at_;
    }
    bool AtEnd() {
        SkipBlanks();
        return at_ == text_.size();
    }
    bool Take(char c) {
        if (AtEnd() || text_[at_] != c) return false;
        ++at_;
        return true;
    }
    bool TakeWord(const std::string& word) {
        SkipBlanks();
        if (text_.compare(at_, word.size() + 1, word + " ") != 0) return false;
        at_ += word.size();
        return true;
    }
    [[noreturn]] void Refuse(const std::string& why) const {
        throw std::invalid_argument("models: " + why + ": " + text_.substr(0, at_) + " >>> " +
                                    text_.substr(at_));
    }

    const std::string& text_;
    std::size_t at_ = 0;
};

// The type that the name says, and the name without it.
ProMdlType TakeType(std::string* name) {
    const std::size_t stop = name->rfind('.');
    if (stop == std::string::npos) return PRO_MDL_UNUSED;
    const ProMdlType type = TypeOfSuffix(std::string_view(*name).substr(stop + 1));
    if (type != PRO_MDL_UNUSED) name->resize(stop);
    return type;
}

// A name without its type is that of an assembly or of a part.
Model* Find(std::string name, std::optional<ProMdlType> type = {}) {
    const ProMdlType written = TakeType(&name);
    if (written != PRO_MDL_UNUSED) type = written;
    if (type) return TheHost().session.FindByName(Wide(name), *type);
    Model* found = nullptr;
    for (const ProMdlType each : {PRO_MDL_ASSEMBLY, PRO_MDL_PART}) {
        Model* model = TheHost().session.FindByName(Wide(name), each);
        if (model && found) {
            throw std::invalid_argument("models: of the name " + name + " there are several");
        }
        if (model) found = model;
    }
    return found;
}

void Mark(Model& model, const std::set<std::string>& marks) {
    if (marks.count("sheet")) model.subtype = PROMDLSTYPE_PART_SHEETMETAL;
    if (marks.count("skeleton")) model.partData.skeleton = true;
    if (marks.count("released")) model.readOnly = true;
    if (marks.count("round")) {
        for (Solid& solid : model.partData.solids) {
            solid.shape = Shape::Cylinder;
            solid.diameter = 20;
            solid.size = {20, 20, 30};
        }
    }
}

void Mark(Feature& component, const std::set<std::string>& marks) {
    if (marks.count("suppressed")) component.status = PRO_FEAT_SUPPRESSED;
    if (marks.count("hidden")) component.hidden = true;
    if (marks.count("invisible")) component.visible = false;
}

// A component whose model is on no disk either.
void AddMissing(Model& assembly, std::string name) {
    const ProMdlType type = TakeType(&name);
    Feature component;
    component.type = PRO_FEAT_COMPONENT;
    component.file = Lower(name) + "." + SuffixOf(type == PRO_MDL_UNUSED ? PRO_MDL_PART : type);
    assembly.AddFeature(component);
}

Model& Made(const Mention& mention);

void Fill(Model& model, const std::vector<Mention>& list) {
    for (const Mention& each : list) {
        if (model.type == PRO_MDL_DRAWING) {
            model.drawingData.sheets.emplace_back(Wide(each.name));
            continue;
        }
        if (each.marks.count("missing")) {
            AddMissing(model, each.name);
            continue;
        }
        Model& held = Made(each);
        if (model.type == PRO_MDL_MFG) {
            model.manufacturingData.assembly = &held;
            model.manufacturingData.assemblyFile = held.FileName();
            continue;
        }
        for (int i = 0; i < each.count; ++i) Mark(AddComponent(model, held), each.marks);
    }
}

Model& MadeAnew(const Mention& mention) {
    std::string name = mention.name;
    ProMdlType type = TakeType(&name);
    if (type == PRO_MDL_UNUSED) type = mention.holds ? PRO_MDL_ASSEMBLY : PRO_MDL_PART;
    return type == PRO_MDL_PART ? MakePart(name) : MakeModel(name, type);
}

Model& Made(const Mention& mention) {
    std::optional<ProMdlType> type;
    if (mention.holds) type = PRO_MDL_ASSEMBLY;
    Model* found = Find(mention.name, type);
    Model& model = found ? *found : MadeAnew(mention);
    Mark(model, mention.marks);
    if (!mention.generic.empty()) {
        Mention generic;
        generic.name = mention.generic;
        Model& family = Made(generic);
        model.family.generic = &family;
        model.family.genericFile = family.FileName();
    }
    Fill(model, mention.list);
    return model;
}

}  // namespace

Model& MakeModels(const std::string& text) {
    return Made(Reader(text).Read());
}

Model& ModelNamed(const std::string& name) {
    if (Model* model = Find(name)) return *model;
    throw std::invalid_argument("models: there is no " + name);
}

Feature& AddComponent(Model& assembly, Model& model) {
    Feature feature;
    feature.type = PRO_FEAT_COMPONENT;
    feature.file = model.FileName();
    feature.model = &model;
    return assembly.AddFeature(feature);
}

Model& MakeModel(const std::string& name, ProMdlType type) {
    return TheHost().session.Create(Wide(name), type);
}

Model& MakePart(const std::string& name, int boxes) {
    Model& model = MakeModel(name, PRO_MDL_PART);
    for (int i = 0; i < boxes; ++i) {
        Solid solid;
        solid.id = 10 * (i + 1);
        solid.shape = Shape::Box;
        solid.size = {10, 20, 30};
        solid.at = {40.0 * i, 0, 0};
        model.partData.solids.push_back(solid);
    }
    return model;
}

Model& MakeManufacturing(const std::string& name, Model& assembly) {
    Model& model = MakeModel(name, PRO_MDL_MFG);
    model.manufacturingData.assemblyFile = assembly.FileName();
    model.manufacturingData.assembly = &assembly;
    return model;
}

}  // namespace workbench
