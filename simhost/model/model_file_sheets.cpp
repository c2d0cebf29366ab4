// The part of a drawing's or format's file that says which sheets it has, and what lies on them
// besides views: formats, lines, words and tables.
#include <algorithm>

#include "simhost/core/text.h"
#include "simhost/model/model_file_sections.h"

namespace simhost {

using namespace model_text;

// What is there:
//
//     [sheets]
//     sizes = ["A3", "A4"]          # short for sheets that have nothing but a size
//
//     [[sheet]]
//     size = "A3"
//     scale = 0.5
//     format = "a3.frm"             # a drawing's; its lines are drawn from the format's file
//     about = "shaft.prt"           # the model that the format's fields are about
//     [[sheet.model_scale]]         # where a model has another one
//     model = "pin.prt"
//     scale = 2
//     [[sheet.line]]                # a format's
//     points = [25, 5, 415, 5]
//     width = 0.7
//     [[sheet.text]]                # a format's
//     at = [30, 10]
//     text = "&dwg_name"
//
//     [[table]]
//     id = 1
//     sheet = 1
//     at = [235, 61]                # the upper left corner
//     columns = [20, 60]
//     heights = [8, 8]
//     cells = [["名称", "&model_name"], ["比例", "&scale"]]

namespace {

void RequireSheets(const Model& model, const toml::node* node, std::string_view key) {
    if (!node || model.type == PRO_MDL_DRAWING || model.type == PRO_MDL_DWGFORM) return;
    OnlyIn(model, PRO_MDL_DRAWING, node, key);
}

void ReadMore(const toml::node& node, const char* key, double* value) {
    ReadValue(node, key, value);
    if (!(*value > 0)) Fail(node.source(), Quoted(key) + " must be more than 0");
}

template <auto Member>
constexpr auto MoreThanNothing(const char* key) {
    auto field = Of<Member>(key);
    field.read = [](const toml::node& node, const char* name, RecordOf<Member>* record) {
        ReadMore(node, name, &(record->*Member));
    };
    return field;
}

template <auto Member>
constexpr auto FileName(const char* key) {
    auto field = Of<Member>(key);
    field.read = [](const toml::node& node, const char* name, RecordOf<Member>* record) {
        record->*Member = Lower(Text(node, name));
    };
    return field;
}

template <auto Member>
constexpr auto Place(const char* key) {
    using Record = RecordOf<Member>;
    return Required(Field<Record>{key,
                                  [](const toml::node& node, const char* name, Record* record) {
                                      double at[2] = {};
                                      Numbers(node, name, at, 2);
                                      record->*Member = {at[0], at[1], 0};
                                  },
                                  [](const Record& record) {
                                      return ListText({(record.*Member).x, (record.*Member).y});
                                  },
                                  [](const Record&) { return false; }});
}

std::string NumbersText(const std::vector<double>& values) {
    std::string text;
    for (const double value : values) text += (text.empty() ? "[" : ", ") + NumberText(value);
    return text.empty() ? "[]" : text + ']';
}

std::vector<double> NumbersIn(const toml::node& node, const char* key) {
    const toml::array* list = node.as_array();
    if (!list || list->empty()) Fail(node.source(), Quoted(key) + " must be a list of numbers");
    std::vector<double> values;
    values.reserve(list->size());
    for (const toml::node& one : *list) values.push_back(Measure(one, key));
    return values;
}

// --- Lines and words of formats, scales ---

void ReadPoints(const toml::node& node, const char* key, FormatLine* line) {
    const std::vector<double> values = NumbersIn(node, key);
    if (values.size() < 4 || values.size() % 2 != 0) {
        Fail(node.source(), Quoted(key) + " must have x and y of at least two points");
    }
    for (std::size_t i = 0; i < values.size(); i += 2) {
        line->points.push_back({values[i], values[i + 1], 0});
    }
}

std::string PointsText(const FormatLine& line) {
    std::vector<double> values;
    for (const Vec3& point : line.points) {
        values.push_back(point.x);
        values.push_back(point.y);
    }
    return NumbersText(values);
}

constexpr Field<FormatLine> kLineFields[] = {
    Required(Field<FormatLine>{"points", ReadPoints, PointsText,
                               [](const FormatLine&) { return false; }}),
    MoreThanNothing<&FormatLine::width>("width"),
};

constexpr Field<FormatText> kTextFields[] = {
    Place<&FormatText::at>("at"),
    MoreThanNothing<&FormatText::height>("height"),
    Of<&FormatText::centred>("centred"),
    Required(Of<&FormatText::text>("text")),
};

constexpr Field<SolidScale> kScaleFields[] = {
    Required(FileName<&SolidScale::file>("model")),
    Required(MoreThanNothing<&SolidScale::scale>("scale")),
};

template <class Record, class Rows>
void ReadList(const toml::table& holder, const char* key, const Rows& rows,
              std::vector<Record>* list) {
    EachTable(holder, key, [&](const toml::table& table) {
        Record record;
        ReadRecord(table, rows, &record);
        list->push_back(std::move(record));
    });
}

// --- Sheets ---

constexpr Field<Sheet> kDrawingSheetFields[] = {
    Required(Of<&Sheet::size>("size")),
    MoreThanNothing<&Sheet::scale>("scale"),
};
constexpr Field<Sheet> kFormatFields[] = {
    FileName<&Sheet::format>("format"),
    Whole<1, &Sheet::formatSheet>("format_sheet"),
    FileName<&Sheet::about>("about"),
};

void ReadSheet(const toml::table& table, Model* model) {
    Sheet sheet;
    Keys keys = KeysOf(kDrawingSheetFields, kFormatFields);
    for (const char* key : {"model_scale", "line", "text"}) keys.emplace_back(key);
    Allow(table, keys);
    for (const Field<Sheet>& row : kFormatFields) {
        OnlyIn(*model, PRO_MDL_DRAWING, table.get(row.key), row.key);
    }
    OnlyIn(*model, PRO_MDL_DRAWING, table.get("model_scale"), "model_scale");
    OnlyIn(*model, PRO_MDL_DWGFORM, table.get("line"), "line");
    OnlyIn(*model, PRO_MDL_DWGFORM, table.get("text"), "text");
    ReadFields(table, kDrawingSheetFields, &sheet);
    ReadFields(table, kFormatFields, &sheet);
    ReadList(table, "model_scale", kScaleFields, &sheet.scales);
    ReadList(table, "line", kLineFields, &sheet.lines);
    ReadList(table, "text", kTextFields, &sheet.texts);
    model->drawingData.sheets.push_back(std::move(sheet));
}

bool IsPlain(const Sheet& sheet) {
    return sheet.scale == 1 && sheet.scales.empty() && sheet.format.empty() &&
           sheet.about.empty() && sheet.lines.empty() && sheet.texts.empty();
}

bool ArePlain(const Model& model) {
    const auto& sheets = model.drawingData.sheets;
    return std::all_of(sheets.begin(), sheets.end(), IsPlain);
}

void ReadSizes(const toml::table& root, const char* key, Model* model) {
    RequireSheets(*model, root.get(key), key);
    const toml::table* table = Table(root, key);
    if (!table) return;
    if (root.get("sheet")) Fail(table->source(), "there are [[sheet]] tables, too");
    Allow(*table, {"sizes"});
    std::vector<WideText> sizes;
    ReadValue(Require(*table, "sizes"), "sizes", &sizes);
    model->drawingData.sheets.assign(sizes.begin(), sizes.end());
}

void AddSizes(std::string* text, const char* key, const Model& model) {
    if (model.drawingData.sheets.empty() || !ArePlain(model)) return;
    std::vector<WideText> sizes;
    for (const Sheet& sheet : model.drawingData.sheets) sizes.push_back(sheet.size);
    *text += std::string("\n[") + key + "]\n";
    Line(text, "sizes", TextOf(sizes));
}

void ReadSheets(const toml::table& root, const char* key, Model* model) {
    RequireSheets(*model, root.get(key), key);
    EachTable(root, key, [&](const toml::table& table) { ReadSheet(table, model); });
}

void AddSheets(std::string* text, const char* key, const Model& model) {
    if (ArePlain(model)) return;
    for (const Sheet& sheet : model.drawingData.sheets) {
        *text += std::string("\n[[") + key + "]]\n";
        AddFields(text, kDrawingSheetFields, sheet);
        AddFields(text, kFormatFields, sheet);
        AddRecords(text, "[[sheet.model_scale]]\n", kScaleFields, sheet.scales);
        AddRecords(text, "[[sheet.line]]\n", kLineFields, sheet.lines);
        AddRecords(text, "[[sheet.text]]\n", kTextFields, sheet.texts);
    }
}

// --- Tables ---

template <auto Member>
constexpr auto Sizes(const char* key) {
    return Required(
        Field<SheetTable>{key,
                          [](const toml::node& node, const char* name, SheetTable* table) {
                              table->*Member = NumbersIn(node, name);
                              for (const double size : table->*Member) {
                                  if (!(size > 0))
                                      Fail(node.source(), Quoted(name) + " must be more than 0");
                              }
                          },
                          [](const SheetTable& table) { return NumbersText(table.*Member); },
                          [](const SheetTable&) { return false; }});
}

void ReadCells(const toml::node& node, const char* key, SheetTable* table) {
    const toml::array* rows = node.as_array();
    if (!rows || rows->size() > table->heights.size()) {
        Fail(node.source(),
             Quoted(key) + " must be a list of rows, no more than there are heights");
    }
    for (const toml::node& row : *rows) {
        std::vector<WideText> cells;
        ReadValue(row, key, &cells);
        if (cells.size() > table->columns.size()) {
            Fail(row.source(), "more cells than columns in a row");
        }
        table->cells.push_back(std::move(cells));
    }
}

std::string CellsText(const SheetTable& table) {
    std::string text;
    for (const auto& row : table.cells) text += (text.empty() ? "[" : ", ") + TextOf(row);
    return text + ']';
}

constexpr Field<SheetTable> kSheetTableFields[] = {
    Required(Whole<1, &SheetTable::id>("id")),
    Always(Whole<1, &SheetTable::sheet>("sheet")),
    Place<&SheetTable::at>("at"),
    Sizes<&SheetTable::columns>("columns"),
    Sizes<&SheetTable::heights>("heights"),
    {"cells", ReadCells, CellsText, [](const SheetTable& table) { return table.cells.empty(); }},
    MoreThanNothing<&SheetTable::textHeight>("text_height"),
    Of<&SheetTable::fromFormat>("from_format"),
    FileName<&SheetTable::about>("about"),
};

void ReadTables(const toml::table& root, const char* key, Model* model) {
    RequireSheets(*model, root.get(key), key);
    EachTable(root, key, [&](const toml::table& one) {
        SheetTable table;
        ReadRecord(one, kSheetTableFields, &table);
        SheetSet& set = model->drawingData;
        if (set.FindTable(table.id)) Fail(one.get("id")->source(), "the id is there twice");
        if (!set.Find(table.sheet)) {
            Fail(one.source(), "there is no sheet " + std::to_string(table.sheet));
        }
        set.tables.push_back(std::move(table));
    });
}

void AddTables(std::string* text, const char* key, const Model& model) {
    for (const SheetTable& table : model.drawingData.tables) {
        *text += std::string("\n[[") + key + "]]\n";
        AddFields(text, kSheetTableFields, table);
    }
}

}  // namespace

constinit const Section kSheetsSection{"sheets", PRO_MDL_UNUSED, ReadSizes, AddSizes};
constinit const Section kSheetSection{"sheet", PRO_MDL_UNUSED, ReadSheets, AddSheets};
constinit const Section kTableSection{"table", PRO_MDL_UNUSED, ReadTables, AddTables};

}  // namespace simhost
