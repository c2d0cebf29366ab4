// The part of a drawing's file that has its dimensions and notes.
#include "simhost/core/text.h"
#include "simhost/model/annotations.h"
#include "simhost/model/model_file_sections.h"

namespace simhost {

using namespace model_text;

// What is there:
//
//     [[dimension]]
//     id = 3
//     view = 1
//     kind = "diameter"
//     to = ["12/edge#21 point 3"]         # ids of components, the item, and the point if it is one
//     at = [40, 25]                       # its text, from the place of the view
//     shown = true
//     value = 30                          # as last measured
//     text = ["4×@D"]
//     tolerance = "plus-minus"
//     upper = 0.1
//     lower = 0
//
//     [[note]]
//     id = 4
//     sheet = 1
//     at = [20, 30]
//     text = ["未注倒角C1"]

namespace {

constexpr const char* kKinds[] = {"horizontal", "vertical", "slanted",
                                  "radius",     "diameter", "angle"};

struct ToleranceName {
    ProToleranceType type;
    const char* name;
};
constexpr ToleranceName kTolerances[] = {{PRO_TOL_DEFAULT, "none"},
                                         {PRO_TOL_LIMITS, "limits"},
                                         {PRO_TOL_PLUS_MINUS, "plus-minus"},
                                         {PRO_TOL_PLUS_MINUS_SYM, "symmetric"}};

const char* ToleranceWord(ProToleranceType type) {
    for (const ToleranceName& row : kTolerances) {
        if (row.type == type) return row.name;
    }
    return "none";
}

bool ParseTolerance(const std::string& word, ProToleranceType* type) {
    for (const ToleranceName& row : kTolerances) {
        if (word != row.name) continue;
        *type = row.type;
        return true;
    }
    return false;
}

std::string AttachmentText(const Attachment& attachment) {
    std::string text = WordsOf(attachment.way);
    if (attachment.senseType == 1) text += " point " + std::to_string(attachment.sense);
    return text;
}

// "edge#21", "12/edge#21 point 3".
bool ParseAttachment(const std::string& text, Attachment* attachment) {
    constexpr std::string_view kPoint = " point ";
    const std::size_t at = text.find(kPoint);
    const auto way = ParseWay(text.substr(0, at));
    if (!way) return false;
    attachment->way = *way;
    if (at == std::string::npos) return true;
    const std::string sense = text.substr(at + kPoint.size());
    if (sense.size() != 1 || sense[0] < '1' || sense[0] > '3') return false;
    attachment->senseType = 1;
    attachment->sense = sense[0] - '0';
    return true;
}

void ReadAttachments(const toml::node& node, const char* key, Dimension* dimension) {
    std::vector<WideText> words;
    ReadValue(node, key, &words);
    for (const WideText& each : words) {
        Attachment attachment;
        if (!ParseAttachment(Utf8(each), &attachment)) {
            Fail(node.source(), Quoted(key) + " has " + Quoted(Utf8(each)) + ", which is no item");
        }
        dimension->to.push_back(std::move(attachment));
    }
    if (words.empty() || words.size() > 2) {
        Fail(node.source(), Quoted(key) + " must name one item or two");
    }
}

std::string AttachmentsText(const Dimension& dimension) {
    std::vector<WideText> words;
    words.reserve(dimension.to.size());
    for (const Attachment& each : dimension.to) words.push_back(Wide(AttachmentText(each)));
    return TextOf(words);
}

template <class Record>
void ReadPlace(const toml::node& node, const char* key, Record* record) {
    double at[2] = {};
    Numbers(node, key, at, 2);
    record->at = {at[0], at[1], 0};
}

template <class Record>
constexpr Field<Record> PlaceField() {
    return Required(Field<Record>{"at", ReadPlace<Record>,
                                  [](const Record& record) {
                                      return ListText({record.at.x, record.at.y});
                                  },
                                  [](const Record&) { return false; }});
}

constexpr Field<Dimension> kDimensionFields[] = {
    Required(Whole<1, &Dimension::id>("id")),
    Required(Whole<1, &Dimension::view>("view")),
    Required(OneOf<kKinds, &Dimension::kind>("kind")),
    Required(Field<Dimension>{"to", ReadAttachments, AttachmentsText,
                              [](const Dimension&) { return false; }}),
    PlaceField<Dimension>(),
    Of<&Dimension::shown>("shown"),
    Of<&Dimension::value>("value"),
    Of<&Dimension::text>("text"),
    Word<ToleranceWord, ParseTolerance, &Dimension::tolerance>("tolerance"),
    Of<&Dimension::upper>("upper"),
    Of<&Dimension::lower>("lower"),
};

constexpr Field<SheetNote> kNoteFields[] = {
    Required(Whole<1, &SheetNote::id>("id")),
    Always(Whole<1, &SheetNote::sheet>("sheet")),
    PlaceField<SheetNote>(),
    Of<&SheetNote::text>("text"),
};

void RefuseTwice(const toml::table& table, Model* model, int id) {
    Annotations& all = AnnotationsOf(*model);
    if (all.FindDimension(id) || all.FindNote(id)) {
        Fail(table.get("id")->source(), "the id is there twice");
    }
}

void ReadDimensions(const toml::table& root, const char* key, Model* model) {
    EachTable(root, key, [&](const toml::table& table) {
        Dimension dimension;
        ReadRecord(table, kDimensionFields, &dimension);
        if (!DrawingOf(*model).FindView(dimension.view)) {
            Fail(table.get("view")->source(), "no view has this id");
        }
        RefuseTwice(table, model, dimension.id);
        AnnotationsOf(*model).Add(std::move(dimension));
    });
}

void ReadNotes(const toml::table& root, const char* key, Model* model) {
    EachTable(root, key, [&](const toml::table& table) {
        SheetNote note;
        ReadRecord(table, kNoteFields, &note);
        RefuseTwice(table, model, note.id);
        AnnotationsOf(*model).Add(std::move(note));
    });
}

template <class Records, class Fields>
void AddAll(std::string* text, const char* key, const Records& records, const Fields& fields) {
    for (const auto& [id, record] : records) {
        *text += std::string("\n[[") + key + "]]\n";
        AddFields(text, fields, record);
    }
}

void AddDimensions(std::string* text, const char* key, const Model& model) {
    const auto& all = model.drawingData.annotations;
    if (all) AddAll(text, key, all->dimensions(), kDimensionFields);
}

void AddNotes(std::string* text, const char* key, const Model& model) {
    const auto& all = model.drawingData.annotations;
    if (all) AddAll(text, key, all->notes(), kNoteFields);
}

}  // namespace

constinit const Section kDimensionSection{"dimension", PRO_MDL_DRAWING, ReadDimensions,
                                          AddDimensions};
constinit const Section kNoteSection{"note", PRO_MDL_DRAWING, ReadNotes, AddNotes};

}  // namespace simhost
