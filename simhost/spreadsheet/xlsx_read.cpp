// Real .xlsx files as workbooks: libzip opens the container, pugixml its parts.
#include "simhost/spreadsheet/book.h"

#ifdef _WIN32

namespace simhost {

Book ReadXlsx(const std::string& path) {
    throw BookFileError("spreadsheets are not read on Windows: " + path);
}

}  // namespace simhost

#else

#include <fmt/format.h>
#include <pugixml.hpp>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <zip.h>

namespace simhost {
namespace {

// More than any part that a person works with; keeps a broken file from filling the memory.
constexpr zip_uint64_t kLargestPart = 1u << 30;

class Package {
public:
    explicit Package(const std::string& path) : path_(path) {
        int error = 0;
        zip_ = zip_open(path.c_str(), ZIP_RDONLY, &error);
        if (!zip_) throw BookFileError(path + " is no .xlsx file");
    }
    ~Package() { zip_discard(zip_); }
    Package(const Package&) = delete;
    Package& operator=(const Package&) = delete;

    bool Has(const std::string& name) const { return zip_name_locate(zip_, name.c_str(), 0) >= 0; }

    pugi::xml_document Part(const std::string& name) const {
        zip_stat_t about;
        if (zip_stat(zip_, name.c_str(), 0, &about) != 0 || about.size > kLargestPart) {
            throw BookFileError(path_ + " has no part " + name);
        }
        std::string bytes(about.size, '\0');
        zip_file_t* file = zip_fopen(zip_, name.c_str(), 0);
        const zip_int64_t read = file ? zip_fread(file, bytes.data(), about.size) : -1;
        if (file) zip_fclose(file);
        pugi::xml_document document;
        if (read != zip_int64_t(about.size) ||
            !document.load_buffer(bytes.data(), bytes.size(),
                                  pugi::parse_default | pugi::parse_ws_pcdata)) {
            throw BookFileError(fmt::format("{}: the part {} cannot be read", path_, name));
        }
        return document;
    }

private:
    std::string path_;
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

// The text of <t> and of the runs <r><t>, without the readings of Asian scripts.
std::string RichText(const pugi::xml_node& item) {
    std::string text;
    for (const pugi::xml_node child : item.children()) {
        if (Is(child, "t")) text += child.text().get();
        if (Is(child, "r")) text += Child(child, "t").text().get();
    }
    return text;
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

void ReadCell(const pugi::xml_node& node, const std::vector<std::string>& shared, BookCell* cell) {
    const std::string type = node.attribute("t").value();
    const std::string value = Child(node, "v").text().get();
    if (type == "inlineStr") {
        cell->kind = BookCell::Kind::Text;
        cell->text = RichText(Child(node, "is"));
    } else if (value.empty() && type != "str") {
        return;
    } else if (type == "s") {
        const auto index = std::size_t(std::strtoull(value.c_str(), nullptr, 10));
        if (index >= shared.size()) throw BookFileError("a cell names a text that is not there");
        cell->kind = BookCell::Kind::Text;
        cell->text = shared[index];
    } else if (type == "str" || type == "e" || type == "d") {
        cell->kind = BookCell::Kind::Text;
        cell->text = value;
    } else {
        cell->kind = type == "b" ? BookCell::Kind::Flag : BookCell::Kind::Number;
        cell->number = std::strtod(value.c_str(), nullptr);
    }
}

void ReadSheet(const pugi::xml_document& document, const std::vector<std::string>& shared,
               BookSheet* sheet) {
    int row = 0;
    for (const pugi::xml_node line : Child(document.document_element(), "sheetData").children()) {
        if (!Is(line, "row")) continue;
        row = line.attribute("r").as_int(row + 1);
        int column = 0;
        for (const pugi::xml_node node : line.children()) {
            if (!Is(node, "c")) continue;
            int cellRow = row;
            ++column;
            const char* name = node.attribute("r").value();
            if (*name && !ParseCellName(name, &cellRow, &column)) {
                throw BookFileError(fmt::format("a cell of the name {}", name));
            }
            ReadCell(node, shared, &sheet->At(cellRow, column));
        }
    }
}

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
        ReadSheet(package.Part(part), shared, sheet.get());
        book.sheets.push_back(std::move(sheet));
    }
    if (book.sheets.empty()) throw BookFileError(path + " has no sheets");
    const pugi::xml_node views = Child(workbook.document_element(), "bookViews");
    const int active = Child(views, "workbookView").attribute("activeTab").as_int(0);
    book.active = std::min(std::size_t(std::max(active, 0)), book.sheets.size() - 1);
    return book;
}

}  // namespace simhost

#endif
