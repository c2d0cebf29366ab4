// The objects of the application: made, used and given up.
#include "simhost/spreadsheet/spreadsheets.h"

#include <fmt/format.h>

#include <algorithm>

#include "simhost/core/operation.h"
#include "simhost/core/text.h"
#include "simhost/spreadsheet/members.h"

namespace simhost {

namespace {

std::unique_ptr<Spreadsheets>& Instance() {
    static std::unique_ptr<Spreadsheets> spreadsheets;
    return spreadsheets;
}

}  // namespace

ExcelObject Spreadsheets::Create(const WideText& programId) {
    if (!installed || !SameName(programId, WIDE("Excel.Application"))) Refuse(-1);
    SheetApplication& application = applications_.emplace_back();
    application.number = int(applications_.size());
    SheetObject made;
    made.application = &application;
    return Add(made);
}

ExcelObject Spreadsheets::Add(SheetObject object) {
    SheetObject* place = nullptr;
    if (free_.empty()) {
        place = &objects_.emplace_back();
    } else {
        place = free_.back();
        free_.pop_back();
    }
    *place = object;
    place->handle = static_cast<ExcelObject>(handles_.Add(place));
    return place->handle;
}

SheetObject& Spreadsheets::Require(ExcelObject object) const {
    SheetObject* found = handles_.Find(object);
    if (!found) {
        Complain(-1, handles_.WasGiven(object) ? "an object that was released"
                                               : "no object of the application");
    }
    return *found;
}

SheetAnswer Spreadsheets::Invoke(ExcelObject object, int member, SheetUse use,
                                 const ExcelArgument* arguments, int count) {
    if (!object) Refuse(-1);  // a step after one that failed
    SheetObject self = Require(object);
    if (self.application->hasQuit) Complain(-1, "the application has quit");
    const auto& books = self.application->books;
    const auto isOpen = [&](const Book& book) { return &book == self.book; };
    if (self.book && std::none_of(books.begin(), books.end(), isOpen)) {
        Complain(-1, "the workbook is closed");
    }
    const MemberRow* row = FindMember(self.kind, member, use);
    if (!row) ComplainOfMember(self.kind, member);
    if (count > 0) Need(arguments, "the arguments");
    const SheetArguments list(arguments, arguments + count);
    CheckArguments(*row, list);
    return row->run(self, list);
}

void Spreadsheets::Release(ExcelObject object) {
    SheetObject& released = Require(object);
    handles_.Drop(object);
    free_.push_back(&released);
}

void Spreadsheets::Forget(ExcelObject object) {
    if (handles_.Find(object)) Release(object);
}

std::string Spreadsheets::Describe(ExcelObject object) const {
    if (!object) return "null";
    const SheetObject* found = handles_.Find(object);
    if (!found) return "released";
    const std::string name = ClassName(found->kind);
    if (found->kind == SheetClass::Application) {
        return fmt::format("{} {}", name, found->application->number);
    }
    if (found->kind < SheetClass::Range) return name;
    const Area& area = found->area;
    if (IsWholeColumns(area) && IsWholeRows(area)) return name + " of all cells";
    const std::string first = CellNameOf(area.r1, area.c1);
    const std::string last = CellNameOf(area.r2, area.c2);
    if (IsWholeColumns(area)) {
        return fmt::format("{} {}:{}", name, first.substr(0, first.size() - 1),
                           last.substr(0, last.size() - std::to_string(kLastSheetRow).size()));
    }
    return name + " " + (first == last ? first : first + ":" + last);
}

std::string Spreadsheets::MemberName(ExcelObject object, int member) const {
    const SheetObject* found = handles_.Find(object);
    for (const MemberRow& row : SheetMemberRows()) {
        if (row.id == member && (!found || row.of == found->kind)) return row.name;
    }
    return std::to_string(member);
}

std::string Spreadsheets::Describe(const ExcelArgument& argument) {
    switch (argument.kind) {
        case EXCEL_TEXT: return simhost::Describe(argument.text);
        case EXCEL_WHOLE: return std::to_string(argument.whole);
        case EXCEL_FLAG: return argument.whole ? "true" : "false";
        default: return "missing";
    }
}

std::vector<std::string> Spreadsheets::NotQuit() const {
    std::vector<std::string> lines;
    for (const SheetApplication& application : applications_) {
        if (application.hasQuit) continue;
        lines.push_back(fmt::format("Application {} with {} workbooks", application.number,
                                    application.books.size()));
    }
    return lines;
}

std::vector<std::string> Spreadsheets::NotReleased() const {
    std::vector<std::string> lines;
    for (const SheetObject& object : objects_) {
        if (handles_.Find(object.handle) == &object) lines.push_back(Describe(object.handle));
    }
    return lines;
}

Spreadsheets& TheSpreadsheets() {
    auto& spreadsheets = Instance();
    if (!spreadsheets) spreadsheets = std::make_unique<Spreadsheets>();
    return *spreadsheets;
}

void RestartSpreadsheets() {
    Instance().reset();
}

}  // namespace simhost
