// The automation door, where it is not COM that answers.
#ifndef _WIN32

#include "hostapi/excel.h"

#include "simhost/core/operation.h"
#include "simhost/spreadsheet/spreadsheets.h"

namespace simhost {
namespace {

// How things of this door look in the journal; asked for only while it runs.
struct ObjectThen {
    const ExcelObject* object;
};
struct MemberOf {
    ExcelObject object;
    int member;
};
struct ArgumentList {
    const ExcelArgument* arguments;
    int count;
};

std::string Describe(const ObjectThen& then) {
    return TheSpreadsheets().Describe(*then.object);
}
std::string Describe(const MemberOf& member) {
    return TheSpreadsheets().MemberName(member.object, member.member);
}
std::string Describe(const ArgumentList& list) {
    std::string text = "(";
    for (int i = 0; i < list.count; ++i) {
        text += (i ? ", " : "") + Spreadsheets::Describe(list.arguments[i]);
    }
    return text + ")";
}

ExcelObject NoObject(int) {
    return nullptr;
}

ExcelObject InvokeForObject(Operation& op, ExcelObject object, int member, SheetUse use,
                            const ExcelArgument* arguments, int count) {
    ExcelObject result = nullptr;
    return op.CallOr(
        NoObject,
        [&] {
            result = TheSpreadsheets().Invoke(object, member, use, arguments, count).object;
            return result;
        },
        "object", ObjectThen{&object}, "member", MemberOf{object, member}, "arguments",
        ArgumentList{arguments, count}, "result", ObjectThen{&result});
}

}  // namespace
}  // namespace simhost

using namespace simhost;

ExcelObject ExcelCreate(const WideChar* programId) {
    static Operation op("ExcelCreate");
    ExcelObject result = nullptr;
    return op.CallOr(
        NoObject,
        [&] {
            Need(programId, "the program id");
            result = TheSpreadsheets().Create(programId);
            return result;
        },
        "programId", programId, "result", ObjectThen{&result});
}

ExcelObject ExcelGet(ExcelObject object, int member, const ExcelArgument* arguments, int count) {
    static Operation op("ExcelGet");
    return InvokeForObject(op, object, member, SheetUse::Get, arguments, count);
}

ExcelObject ExcelCall(ExcelObject object, int member, const ExcelArgument* arguments, int count) {
    static Operation op("ExcelCall");
    return InvokeForObject(op, object, member, SheetUse::Call, arguments, count);
}

int ExcelPut(ExcelObject object, int member, const ExcelArgument* value) {
    static Operation op("ExcelPut");
    return op.Call(
        [&] {
            Need(value, "the value");
            TheSpreadsheets().Invoke(object, member, SheetUse::Put, value, 1);
            return 0;
        },
        "object", ObjectThen{&object}, "member", MemberOf{object, member}, "value",
        ArgumentList{value, value ? 1 : 0});
}

int ExcelRead(ExcelObject object, int member, const ExcelArgument* arguments, int count,
              ExcelResult* result) {
    static Operation op("ExcelRead");
    return op.Call(
        [&] {
            Need(result, "the place for the result");
            *result = {EXCEL_OTHER, {}, 0, 0};
            *result =
                TheSpreadsheets().Invoke(object, member, SheetUse::Read, arguments, count).value;
            return 0;
        },
        "object", ObjectThen{&object}, "member", MemberOf{object, member}, "arguments",
        ArgumentList{arguments, count});
}

// A release cannot fail, whatever else does.
void ExcelRelease(ExcelObject object) {
    static Operation op("ExcelRelease");
    const std::string name = Operation::journalling ? TheSpreadsheets().Describe(object) : "";
    op.CallOr(
        [&](int) {
            TheSpreadsheets().Forget(object);
            return 0;
        },
        [&] {
            if (object) TheSpreadsheets().Release(object);
            return 0;
        },
        "object", name.c_str());
}

#endif
