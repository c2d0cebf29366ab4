// Sheet metal: the bends of a part in its file, and bend tables, in a file of their own and in that
// of a part that has one.
//
//     [sheet_metal]
//     thickness = 2
//     flats = [23, 40]
//
//     [[bend]]
//     radius = 2
//
//     [bend_table]
//     thickness = [1, 2, 3]
//     radius = [1, 2]
//     length = [[2.21, 2.85, 3.49], [3.78, 4.42, 5.06]]
#include "simhost/model/model_file_error.h"
#include "simhost/model/model_file_sections.h"

namespace simhost {

using namespace model_text;

namespace {

double PositiveNumber(const toml::node& node, const char* key) {
    const double number = Measure(node, key);
    if (number <= 0) Fail(node.source(), Quoted(key) + " must be more than 0");
    return number;
}

std::vector<double> PositiveNumbers(const toml::node& node, const char* key) {
    if (!node.is_array()) Fail(node.source(), Quoted(key) + " must be a list of numbers");
    std::vector<double> numbers;
    for (const toml::node& one : *node.as_array()) numbers.push_back(PositiveNumber(one, key));
    return numbers;
}

std::string ListOfNumbers(const std::vector<double>& numbers) {
    std::string text;
    for (const double number : numbers) text += (text.empty() ? "" : ", ") + NumberText(number);
    return '[' + text + ']';
}

// --- Bend tables ---

template <std::vector<double> BendTable::*List>
constexpr Field<BendTable> Rising(const char* key) {
    return Required(Field<BendTable>{
        key,
        [](const toml::node& node, const char* name, BendTable* table) {
            const std::vector<double> numbers = PositiveNumbers(node, name);
            if (numbers.empty()) Fail(node.source(), Quoted(name) + " must not be empty");
            for (std::size_t i = 1; i < numbers.size(); ++i) {
                if (numbers[i] > numbers[i - 1]) continue;
                Fail(node.source(), "the numbers of " + Quoted(name) + " must rise");
            }
            table->*List = numbers;
        },
        [](const BendTable& table) { return ListOfNumbers(table.*List); },
        [](const BendTable&) { return false; }});
}

// After the two lists that say how many there must be.
void ReadLengths(const toml::node& node, const char* key, BendTable* table) {
    const toml::array* rows = node.as_array();
    if (!rows || rows->size() != table->radius.size()) {
        Fail(node.source(), Quoted(key) + " must be a list with a row for each radius");
    }
    for (const toml::node& row : *rows) {
        table->length.push_back(PositiveNumbers(row, key));
        if (table->length.back().size() == table->thickness.size()) continue;
        Fail(row.source(), "a row of " + Quoted(key) + " must have a number for each thickness");
    }
}

std::string LengthsText(const BendTable& table) {
    std::string text;
    for (const auto& row : table.length) text += (text.empty() ? "" : ", ") + ListOfNumbers(row);
    return '[' + text + ']';
}

constexpr Field<BendTable> kTableFields[] = {
    Of<&BendTable::title>("title"),
    Rising<&BendTable::thickness>("thickness"),
    Rising<&BendTable::radius>("radius"),
    Required(Field<BendTable>{"length", ReadLengths, LengthsText,
                              [](const BendTable&) { return false; }}),
};
constexpr Field<BendTable> kTableName = Required(Of<&BendTable::name>("name"));

void OnlyOfSheetMetal(const Model& model, const toml::node& node, const char* key) {
    if (model.subtype == PROMDLSTYPE_PART_SHEETMETAL) return;
    Fail(node.source(), Quoted(key) + " belongs only in a part of subtype \"sheetmetal\"");
}

void ReadTable(const toml::table& root, const char* key, Model* model) {
    const toml::table* table = Table(root, key);
    if (!table) return;
    OnlyOfSheetMetal(*model, *table, key);
    Keys keys = KeysOf(kTableFields);
    keys.push_back(kTableName.key);
    Allow(*table, keys);
    BendTable read;
    ReadField(*table, kTableName, &read);
    if (read.name.empty() || read.name.size() > PRO_NAME_SIZE) {
        Fail(table->source(), "a name has 1 to 32 characters");
    }
    ReadFields(*table, kTableFields, &read);
    model->partData.sheetMetal.table = std::move(read);
}

void AddTable(std::string* text, const char* key, const Model& model) {
    const BendTable& table = model.partData.sheetMetal.table;
    if (table.name.empty()) return;
    *text += std::string("\n[") + key + "]\n";
    AddField(text, kTableName, table);
    AddFields(text, kTableFields, table);
}

// --- The sheet ---

void ReadThickness(const toml::node& node, const char* key, SheetMetal* sheet) {
    sheet->thickness = PositiveNumber(node, key);
}

void ReadFlats(const toml::node& node, const char* key, SheetMetal* sheet) {
    sheet->flats = PositiveNumbers(node, key);
}

constexpr Field<SheetMetal> kSheetFields[] = {
    Required(Field<SheetMetal>{"thickness", ReadThickness,
                               [](const SheetMetal& one) { return NumberText(one.thickness); },
                               [](const SheetMetal&) { return false; }}),
    Required(Field<SheetMetal>{"flats", ReadFlats,
                               [](const SheetMetal& one) { return ListOfNumbers(one.flats); },
                               [](const SheetMetal&) { return false; }}),
    Of<&SheetMetal::developed>("developed"),
};

void ReadSheet(const toml::table& root, const char* key, Model* model) {
    const toml::table* table = Table(root, key);
    if (!table) return;
    OnlyOfSheetMetal(*model, *table, key);
    ReadRecord(*table, kSheetFields, &model->partData.sheetMetal);
}

void AddSheet(std::string* text, const char* key, const Model& model) {
    const SheetMetal& sheet = model.partData.sheetMetal;
    if (sheet.flats.empty()) return;
    *text += std::string("\n[") + key + "]\n";
    AddFields(text, kSheetFields, sheet);
}

void ReadRadius(const toml::node& node, const char* key, Bend* bend) {
    bend->radius = PositiveNumber(node, key);
}

void ReadAngle(const toml::node& node, const char* key, Bend* bend) {
    bend->angle = PositiveNumber(node, key);
    if (bend->angle >= 360) Fail(node.source(), Quoted(key) + " must be less than 360");
}

constexpr Field<Bend> kBendFields[] = {
    Required(Field<Bend>{"radius", ReadRadius,
                         [](const Bend& bend) { return NumberText(bend.radius); },
                         [](const Bend&) { return false; }}),
    {"angle", ReadAngle, [](const Bend& bend) { return NumberText(bend.angle); },
     IsInitial<&Bend::angle>},
};

// The last of the three: sheet and table are known. A sheet that does not say how long it came out
// is up to date.
void ReadBends(const toml::table& root, const char* key, Model* model) {
    SheetMetal& sheet = model->partData.sheetMetal;
    EachTable(root, key, [&](const toml::table& table) {
        OnlyOfSheetMetal(*model, table, key);
        Bend bend;
        ReadRecord(table, kBendFields, &bend);
        sheet.bends.push_back(bend);
        if (sheet.bends.size() < sheet.flats.size()) return;
        Fail(table.source(), "there is a flat piece before and after each bend");
    });
    if (!sheet.flats.empty() && sheet.bends.size() + 1 != sheet.flats.size()) {
        Fail(root.get("sheet_metal")->source(), "there is one bend between two flat pieces");
    }
    if (sheet.developed == 0) sheet.developed = DevelopedLength(sheet);
}

void AddBends(std::string* text, const char* key, const Model& model) {
    for (const Bend& bend : model.partData.sheetMetal.bends) {
        *text += std::string("\n[[") + key + "]]\n";
        AddFields(text, kBendFields, bend);
    }
}

}  // namespace

BendTable ReadBendTableText(const std::string& text, const std::string& fileName) {
    BendTable table;
    ReadOnlyTable(text, fileName, "bend_table",
                  [&](const toml::table& root) { ReadRecord(root, kTableFields, &table); });
    return table;
}

constinit const Section kSheetMetalSection{"sheet_metal", PRO_MDL_PART, ReadSheet, AddSheet};
constinit const Section kBendTableSection{"bend_table", PRO_MDL_PART, ReadTable, AddTable};
constinit const Section kBendSection{"bend", PRO_MDL_PART, ReadBends, AddBends};

}  // namespace simhost
