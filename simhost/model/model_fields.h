// The keys of a record in a model's file as rows that reading and writing both walk: a new field is
// a member, whose initial value holds where a file says nothing, and one row.
#pragma once

#include <optional>
#include <string>
#include <type_traits>
#include <vector>

#include "simhost/model/model_text.h"
#include "simhost/model/toml.h"

namespace simhost::model_text {

template <class Record>
struct Field {
    const char* key;
    // Both throw nothing but ModelFileError.
    void (*read)(const toml::node& node, const char* key, Record* record);
    std::string (*text)(const Record& record);  // the value as the file has it
    bool (*usual)(const Record& record);        // then the file need not say it
    bool required = false;                      // the file must say it, as usual or not
};

// --- The kinds of values that one row fits without more ---

void ReadValue(const toml::node& node, const char* key, bool* value);
void ReadValue(const toml::node& node, const char* key, int* value);
void ReadValue(const toml::node& node, const char* key, double* value);
void ReadValue(const toml::node& node, const char* key, std::string* value);
void ReadValue(const toml::node& node, const char* key, WideText* value);
void ReadValue(const toml::node& node, const char* key, Vec3* value);
void ReadValue(const toml::node& node, const char* key, std::vector<int>* value);
void ReadValue(const toml::node& node, const char* key, std::vector<WideText>* value);
void ReadValue(const toml::node& node, const char* key,
               std::optional<std::vector<WideText>>* value);

std::string TextOf(bool value);
std::string TextOf(int value);
std::string TextOf(double value);
std::string TextOf(const std::string& value);
std::string TextOf(const WideText& value);
std::string TextOf(const Vec3& value);
std::string TextOf(const std::vector<int>& value);
std::string TextOf(const std::vector<WideText>& value);
std::string TextOf(const std::optional<std::vector<WideText>>& value);

// The turn of a frame in degrees, as PlacementFrom takes it, without blurred last digits.
Vec3 TidyTurnOf(const Placement& frame);

// --- Where a value is: a way of members, from the record inwards ---

template <auto... Way>
struct WayFrom;
template <class Owner, class Member, Member Owner::*First, auto... Rest>
struct WayFrom<First, Rest...> {
    using Record = Owner;
};
template <auto... Way>
using RecordOf = typename WayFrom<Way...>::Record;

template <auto... Way, class Record>
auto& At(Record& record) {
    // clang-format off
    return (record .* ... .* Way);
    // clang-format on
}

// Whether the value is the one that a new record has; a record that is never made alone has none.
template <auto... Way>
bool IsInitial(const RecordOf<Way...>& record) {
    if constexpr (std::is_default_constructible_v<RecordOf<Way...>>) {
        static const auto initial = [] {
            const RecordOf<Way...> fresh{};
            return At<Way...>(fresh);
        }();
        return At<Way...>(record) == initial;
    } else {
        return false;
    }
}

// --- Rows ---

// A value of one of the kinds above: Of<&Feature::visible>("visible").
template <auto... Way>
constexpr auto Of(const char* key) {
    using Record = RecordOf<Way...>;
    return Field<Record>{key,
                         [](const toml::node& node, const char* name, Record* record) {
                             ReadValue(node, name, &At<Way...>(*record));
                         },
                         [](const Record& record) { return TextOf(At<Way...>(record)); },
                         IsInitial<Way...>};
}

// A whole number, or an enumeration's, that is not less than `Least`.
template <int Least, auto... Way>
constexpr auto Whole(const char* key) {
    using Record = RecordOf<Way...>;
    return Field<Record>{
        key,
        [](const toml::node& node, const char* name, Record* record) {
            auto& value = At<Way...>(*record);
            value = static_cast<std::decay_t<decltype(value)>>(Integer(node, name, Least));
        },
        [](const Record& record) { return std::to_string(int(At<Way...>(record))); },
        IsInitial<Way...>};
}

// A word for a value of an enumeration, by two functions such as StatusName and ParseStatus.
template <auto NameOf, auto Parse, auto... Way>
constexpr auto Word(const char* key) {
    using Record = RecordOf<Way...>;
    return Field<Record>{key,
                         [](const toml::node& node, const char* name, Record* record) {
                             const std::string word = Text(node, name);
                             if (Parse(word, &At<Way...>(*record))) return;
                             Fail(node.source(),
                                  std::string("unknown ") + name + ' ' + Quoted(word));
                         },
                         [](const Record& record) { return TextText(NameOf(At<Way...>(record))); },
                         IsInitial<Way...>};
}

// The place of a word in a list, which is its value in an enumeration.
template <const auto& Words, auto... Way>
constexpr auto OneOf(const char* key) {
    using Record = RecordOf<Way...>;
    return Field<Record>{
        key,
        [](const toml::node& node, const char* name, Record* record) {
            auto& value = At<Way...>(*record);
            value = static_cast<std::decay_t<decltype(value)>>(PlaceOfWord(node, name, Words));
        },
        [](const Record& record) { return TextText(Words[std::size_t(At<Way...>(record))]); },
        IsInitial<Way...>};
}

// The file of another model, which has a new name if the model in memory has.
template <auto File, auto Linked>
std::string LinkedFile(const RecordOf<File>& record) {
    const Model* model = record.*Linked;
    return model ? model->FileName() : record.*File;
}

template <auto File, auto Linked>
constexpr auto Link(const char* key) {
    using Record = RecordOf<File>;
    auto field = Of<File>(key);
    field.text = [](const Record& record) { return TextText(LinkedFile<File, Linked>(record)); };
    field.usual = [](const Record& record) { return LinkedFile<File, Linked>(record).empty(); };
    return field;
}

// How a frame is turned, in degrees about the fixed x, y and z axes; its origin is left alone.
template <auto... Way>
constexpr auto TurnField(const char* key) {
    using Record = RecordOf<Way...>;
    return Field<Record>{
        key,
        [](const toml::node& node, const char* name, Record* record) {
            Vec3 turn;
            ReadValue(node, name, &turn);
            At<Way...>(*record).axes = PlacementFrom({}, turn).axes;
        },
        [](const Record& record) { return TextOf(TidyTurnOf(At<Way...>(record))); },
        [](const Record& record) { return TidyTurnOf(At<Way...>(record)) == Vec3{}; }};
}

template <class Record>
constexpr Field<Record> Required(Field<Record> field) {
    field.required = true;
    return field;
}

// A field that the file says even if it is as usual, for the reader's sake.
template <class Record>
constexpr Field<Record> Always(Field<Record> field) {
    field.usual = [](const Record&) { return false; };
    return field;
}

// A link that must lead somewhere.
template <auto File, auto Linked>
constexpr auto RequiredLink(const char* key) {
    using Record = RecordOf<File>;
    auto field = Required(Link<File, Linked>(key));
    field.read = [](const toml::node& node, const char* name, Record* record) {
        record->*File = Text(node, name);
        if ((record->*File).empty()) Fail(node.source(), Quoted(name) + " must not be empty");
    };
    return field;
}

// --- Walks over rows; all that read fail by Fail ---

template <class... Rows>
Keys KeysOf(const Rows&... tables) {
    Keys keys;
    const auto add = [&](const auto& rows) {
        for (const auto& row : rows) keys.push_back(row.key);
    };
    (add(tables), ...);
    return keys;
}

template <class Record>
void ReadField(const toml::table& table, const Field<Record>& row, Record* record) {
    const toml::node* node = row.required ? &Require(table, row.key) : table.get(row.key);
    if (node) row.read(*node, row.key, record);
}

template <class Rows, class Record>
void ReadFields(const toml::table& table, const Rows& rows, Record* record) {
    for (const auto& row : rows) ReadField(table, row, record);
}

// A table that has nothing but these keys.
template <class Rows, class Record>
void ReadRecord(const toml::table& table, const Rows& rows, Record* record) {
    Allow(table, KeysOf(rows));
    ReadFields(table, rows, record);
}

template <class Record>
void AddField(std::string* text, const Field<Record>& row, const Record& record) {
    if (row.required || !row.usual(record)) Line(text, row.key, row.text(record));
}

template <class Rows, class Record>
void AddFields(std::string* text, const Rows& rows, const Record& record) {
    for (const auto& row : rows) AddField(text, row, record);
}

// A list of tables, each after `header`, its line in brackets.
template <class Rows, class Record>
void AddRecords(std::string* text, const char* header, const Rows& rows,
                const std::vector<Record>& list) {
    for (const Record& record : list) {
        *text += header;
        AddFields(text, rows, record);
    }
}

template <class Rows, class Record>
bool AllUsual(const Rows& rows, const Record& record) {
    for (const auto& row : rows) {
        if (!row.usual(record)) return false;
    }
    return true;
}

}  // namespace simhost::model_text
