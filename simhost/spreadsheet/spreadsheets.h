// The spreadsheet application behind the automation door: its objects with the members that the
// plug-in uses, known by their dispatch ids. It is strict: an id that an object does not have, or
// an argument of the wrong kind, is a complaint.
#pragma once

#include <deque>
#include <functional>
#include <list>
#include <memory>
#include <string>
#include <vector>

#include "hostapi/excel.h"
#include "simhost/core/handles.h"
#include "simhost/spreadsheet/book.h"

namespace simhost {

struct SheetApplication {
    int number = 0;  // from 1
    bool visible = false;
    bool userControl = true;
    bool hasQuit = false;
    std::list<Book> books;
};

enum class SheetClass {
    Application,
    Workbooks,
    Workbook,
    Sheets,
    Worksheet,
    Range,
    Interior,
    Font
};

struct SheetObject {
    SheetClass kind = SheetClass::Application;
    SheetApplication* application = nullptr;
    Book* book = nullptr;
    BookSheet* sheet = nullptr;
    Area area;                 // of ranges, and of what belongs to one
    bool fitsColumns = false;  // a range that was asked for as columns
    ExcelObject handle = nullptr;
};

// How a member is used.
enum class SheetUse { Get = 1, Put = 2, Call = 4, Read = 8 };

// What a member gives back: an object that the caller has to release, or a value.
struct SheetAnswer {
    ExcelObject object = nullptr;
    ExcelResult value{EXCEL_OTHER, {}, 0, 0};
};

class Spreadsheets {
public:
    // --- For the door; misuse is a complaint, failures are refusals ---
    ExcelObject Create(const WideText& programId);
    SheetAnswer Invoke(ExcelObject object, int member, SheetUse use, const ExcelArgument* arguments,
                       int count);
    void Release(ExcelObject object);
    void Forget(ExcelObject object);  // the same without a complaint
    bool installed = true;            // false: the program id is not known to the system
    // Gives the workbook of a Windows path in the place of its file; unset: files are read. For
    // systems without the libraries that read them. Throws BookFileError.
    std::function<Book(const WideText& path)> reader;

    // --- For whoever looks on ---
    // "Range B2", "Range A1:D1", "Application 1"; "null".
    std::string Describe(ExcelObject object) const;
    // "Value2", for a member of this object.
    std::string MemberName(ExcelObject object, int member) const;
    static std::string Describe(const ExcelArgument& argument);
    // Applications that nobody has quit, a line each, and references that nobody has given up.
    std::vector<std::string> NotQuit() const;
    std::vector<std::string> NotReleased() const;

private:
    friend struct SheetMembers;
    SheetObject& Require(ExcelObject object) const;
    ExcelObject Add(SheetObject object);

    HandleTable<SheetObject> handles_{HandleKind{0x41}};
    std::deque<SheetObject> objects_;
    std::vector<SheetObject*> free_;
    std::deque<SheetApplication> applications_;
};

// The spreadsheet applications of this process.
Spreadsheets& TheSpreadsheets();

// Forgets all of them.
void RestartSpreadsheets();

}  // namespace simhost
