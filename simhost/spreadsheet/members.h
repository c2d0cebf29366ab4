// The members of the application's objects: known by their dispatch ids, each with the arguments
// that it takes and what it does.
#pragma once

#include <vector>

#include "simhost/spreadsheet/spreadsheets.h"

namespace simhost {

using SheetArguments = std::vector<ExcelArgument>;

struct MemberRow {
    SheetClass of;
    int id;
    const char* name;
    SheetUse use;
    std::vector<unsigned> arguments;  // those that must be there
    std::size_t optional;             // how many missing-argument markers may follow
    SheetAnswer (*run)(SheetObject&, const SheetArguments&);
};

const std::vector<MemberRow>& SheetMemberRows();
const char* ClassName(SheetClass kind);

// Null if the object has no such member, or not for this use.
const MemberRow* FindMember(SheetClass of, int id, SheetUse use);
[[noreturn]] void ComplainOfMember(SheetClass of, int id);
// Complains about arguments that the member does not take.
void CheckArguments(const MemberRow& row, const SheetArguments& arguments);

}  // namespace simhost
