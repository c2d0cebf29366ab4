// Real .xlsx files as workbooks: libzip opens the container, pugixml its parts.
#include "simhost/spreadsheet/book.h"

#ifdef _WIN32

namespace simhost {

Book ReadXlsx(const std::string& path) {
    throw BookFileError("spreadsheets are not read on Windows: " + path);
}
Book ReadBook(const std::string& path) {
    return ReadXlsx(path);
}

}  // namespace simhost

#else

#include <fmt/format.h>
#include <pugixml.hpp>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <string_view>
#include <utility>
#include <zip.h>

#include "simhost/core/text.h"

namespace simhost {
namespace {

// More than any part and any sheet that a person works with; they keep a broken file from filling
// the memory.
constexpr zip_uint64_t kLargestPart = 1u << 28;
constexpr std::size_t kMostCells = 20'000'000;

class Package {
public:
    explicit Package(const std::string& path) {
        int error = 0;
        zip_ = zip_open(path.c_str(), ZIP_RDONLY, &error);
        if (!zip_) throw BookFileError("it is no spreadsheet");
    }
    ~Package() { zip_discard(zip_); }
    Package(const Package&) = delete;
    Package& operator=(const Package&) = delete;

    bool Has(const std::string& name) const { return zip_name_locate(zip_, name.c_str(), 0) >= 0; }

    pugi::xml_document Part(const std::string& name) const {
        zip_stat_t about;
        if (zip_stat(zip_, name.c_str(), 0, &about) != 0 || about.size > kLargestPart) {
            throw BookFileError("it has no part " + name);
        }
        std::string bytes(about.size, '\0');
        zip_file_t* file = zip_fopen(zip_, name.c_str(), 0);
        const zip_int64_t read = file ? zip_fread(file, bytes.data(), about.size) : -1;
        if (file) zip_fclose(file);
        pugi::xml_document document;
        if (read != zip_int64_t(about.size) ||
            !document.load_buffer(bytes.data(), bytes.size(),
                                  pugi::parse_default | pugi::parse_ws_pcdata)) {
            throw BookFileError(fmt::format("its part {} cannot be read", name));
        }
        return document;
    }

private:
    zip_t* zip_ = nullptr;
};

// Elements are known by their names without the prefix of their namespace.
bool Is(const pugi::xml_node& node, const char* name) {
    const char* colon = std::strrchr(node.name(), ':');
    return std::strcmp(colon ? colon + 1 : node.name(), name) == 0;
}

pugi::xml_node Child(const pugi::xml_node& node, const char* name) {
    for (const pugi::xml_node child : node.children()) {
        if (Is(child, name)) return child;
    }
    return {};
}

// "_x000D_" is a character that a file's text cannot hold itself.
std::string Unescaped(std::string text) {
    constexpr std::size_t kLength = 7;
    for (std::size_t at = text.find("_x"); at != std::string::npos; at = text.find("_x", at)) {
        unsigned code = 0;
        const char* digits = text.data() + at + 2;
        const bool isWhole = at + kLength <= text.size() && text[at + kLength - 1] == '_';
        const auto [parsed, error] = isWhole ? std::from_chars(digits, digits + 4, code, 16)
                                             : std::from_chars_result{digits, std::errc()};
        if (error != std::errc() || parsed != digits + 4) {
            at += 2;
            continue;
        }
        const std::string character = Utf8(WideText(1, WideChar(code)));
        text.replace(at, kLength, character);
        at += character.size();
    }
    return text;
}

// The text of <t> and of the runs <r><t>, without the readings of Asian scripts.
std::string RichText(const pugi::xml_node& item) {
    std::string text;
    for (const pugi::xml_node child : item.children()) {
        if (Is(child, "t")) text += child.text().get();
        if (Is(child, "r")) text += Child(child, "t").text().get();
    }
    return Unescaped(std::move(text));
}

std::vector<std::string> SharedTexts(const Package& package, const std::string& part) {
    std::vector<std::string> texts;
    if (!package.Has(part)) return texts;
    const pugi::xml_document document = package.Part(part);
    for (const pugi::xml_node item : document.document_element().children()) {
        if (Is(item, "si")) texts.push_back(RichText(item));
    }
    return texts;
}

double NumberIn(const std::string& text) {
    double number = 0;
    const char* end = text.data() + text.size();
    const auto [parsed, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || parsed != end || !std::isfinite(number)) {
        throw BookFileError("a cell holds the number " + text);
    }
    return number;
}

// "2026-10-20" or "2026-10-20T06:30:00".
double DateIn(const std::string& text) {
    int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
    const int read = std::sscanf(text.c_str(), "%4d-%2d-%2dT%2d:%2d:%2d", &year, &month, &day,
                                 &hour, &minute, &second);
    const auto number = read >= 3 ? DayNumber(year, month, day) : std::nullopt;
    if (!number) throw BookFileError("a cell holds the date " + text);
    return *number + (hour * 3600 + minute * 60 + second) / 86400.0;
}

// The kinds of values by their names in the file; without one it is a number.
void ReadCell(const pugi::xml_node& node, const std::vector<std::string>& shared, BookCell* cell) {
    const std::string type = node.attribute("t").value();
    const std::string value = Child(node, "v").text().get();
    const auto become = [&](BookCell::Kind kind, double number) {
        cell->kind = kind;
        cell->number = number;
    };
    // A cell that only looks like something counts as used.
    cell->styled = node.attribute("s").as_int(0) > 0;
    if (type == "inlineStr") {
        cell->kind = BookCell::Kind::Text;
        cell->text = RichText(Child(node, "is"));
    } else if (value.empty() && type != "str") {
        return;
    } else if (type == "s") {
        std::size_t index = shared.size();
        std::from_chars(value.data(), value.data() + value.size(), index);
        if (index >= shared.size()) throw BookFileError("a cell names a text that is not there");
        cell->kind = BookCell::Kind::Text;
        cell->text = shared[index];
    } else if (type == "str" || type == "e") {
        cell->kind = type == "e" ? BookCell::Kind::Error : BookCell::Kind::Text;
        cell->text = Unescaped(value);
    } else if (type == "d") {
        become(BookCell::Kind::Number, DateIn(value));
    } else if (type == "b") {
        become(BookCell::Kind::Flag, NumberIn(value) != 0);
    } else {
        become(BookCell::Kind::Number, NumberIn(value));
    }
}

class SheetReader {
public:
    SheetReader(const std::vector<std::string>& shared, Book* book, BookSheet* sheet)
        : shared_(shared), book_(*book), sheet_(*sheet) {}

    void Read(const pugi::xml_document& document) {
        int row = 0;
        const pugi::xml_node data = Child(document.document_element(), "sheetData");
        for (const pugi::xml_node line : data.children()) {
            if (!Is(line, "row")) continue;
            row = line.attribute("r").as_int(row + 1);
            ReadRow(line, row);
        }
    }

private:
    void ReadRow(const pugi::xml_node& line, int row) {
        if (!IsSheetCell(row, 1)) throw BookFileError(fmt::format("there is a row {}", row));
        int column = 0;
        for (const pugi::xml_node node : line.children()) {
            if (!Is(node, "c")) continue;
            int cellRow = row;
            ++column;
            const char* name = node.attribute("r").value();
            const bool isKnown =
                *name ? ParseCellName(name, &cellRow, &column) : IsSheetCell(row, column);
            if (!isKnown) throw BookFileError(fmt::format("there is a cell {}", name));
            // The row is filled up to its last cell.
            cells_ += std::size_t(column);
            if (cells_ > kMostCells) throw BookFileError("there are too many cells");
            ReadCell(node, shared_, &sheet_.At(cellRow, column));
            if (Child(node, "f") && !Child(node, "v")) {
                book_.notCalculated.push_back(CellNameOf(cellRow, column));
            }
        }
    }

    const std::vector<std::string>& shared_;
    Book& book_;
    BookSheet& sheet_;
    std::size_t cells_ = 0;
};

// Where a relation of the workbook leads, by its id or, without one, by the end of its kind.
std::string Target(const pugi::xml_document& relations, const std::string& id, const char* kind) {
    for (const pugi::xml_node node : relations.document_element().children()) {
        const std::string type = node.attribute("Type").value();
        const bool fits = id.empty() ? type.size() >= std::strlen(kind) &&
                                           type.compare(type.size() - std::strlen(kind),
                                                        std::string::npos, kind) == 0
                                     : id == node.attribute("Id").value();
        if (!fits) continue;
        const std::string target = node.attribute("Target").value();
        return target.substr(0, 1) == "/" ? target.substr(1) : "xl/" + target;
    }
    return {};
}

}  // namespace

Book ReadXlsx(const std::string& path) {
    const Package package(path);
    const pugi::xml_document workbook = package.Part("xl/workbook.xml");
    const pugi::xml_document relations = package.Part("xl/_rels/workbook.xml.rels");
    const std::vector<std::string> shared =
        SharedTexts(package, Target(relations, {}, "/sharedStrings"));
    Book book;
    for (const pugi::xml_node node : Child(workbook.document_element(), "sheets").children()) {
        if (!Is(node, "sheet")) continue;
        auto sheet = std::make_unique<BookSheet>();
        sheet->name = node.attribute("name").value();
        const std::string part = Target(relations, node.attribute("r:id").value(), "");
        SheetReader(shared, &book, sheet.get()).Read(package.Part(part));
        book.sheets.push_back(std::move(sheet));
    }
    if (book.sheets.empty()) throw BookFileError("it has no sheets");
    const pugi::xml_node views = Child(workbook.document_element(), "bookViews");
    const int active = Child(views, "workbookView").attribute("activeTab").as_int(0);
    book.active = std::min(std::size_t(std::max(active, 0)), book.sheets.size() - 1);
    return book;
}

Book ReadBook(const std::string& path) {
    // How a container of Microsoft's older formats begins.
    constexpr std::string_view kOld = "\xD0\xCF\x11\xE0";
    std::ifstream file(path, std::ios::binary);
    std::string begin(kOld.size(), '\0');
    file.read(begin.data(), std::streamsize(begin.size()));
    return begin == kOld ? ReadOldXls(path) : ReadXlsx(path);
}

}  // namespace simhost

#endif
