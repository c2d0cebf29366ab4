// The automation door, where it is not COM that answers.
#ifndef _WIN32

#include "hostapi/excel.h"

#include "simhost/door/door.h"
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
    ExcelObject result = nullptr;
    return Op<"ExcelCreate">.CallOr(
        NoObject,
        [&] {
            result = TheSpreadsheets().Create(programId);
            return result;
        },
        GIVEN(programId), "result", ObjectThen{&result});
}

ExcelObject ExcelGet(ExcelObject object, int member, const ExcelArgument* arguments, int count) {
    return InvokeForObject(Op<"ExcelGet">, object, member, SheetUse::Get, arguments, count);
}

ExcelObject ExcelCall(ExcelObject object, int member, const ExcelArgument* arguments, int count) {
    return InvokeForObject(Op<"ExcelCall">, object, member, SheetUse::Call, arguments, count);
}

int ExcelPut(ExcelObject object, int member, const ExcelArgument* value) {
    return Op<"ExcelPut">.Call(
        [&] {
            Need(value, "the value");
            TheSpreadsheets().Invoke(object, member, SheetUse::Put, value, 1);
        },
        "object", ObjectThen{&object}, "member", MemberOf{object, member}, "value",
        ArgumentList{value, value ? 1 : 0});
}

int ExcelRead(ExcelObject object, int member, const ExcelArgument* arguments, int count,
              ExcelResult* result) {
    return Op<"ExcelRead">.Call(
        [&] {
            Need(result, "the place for the result");
            *result = {EXCEL_OTHER, {}, 0, 0};
            *result =
                TheSpreadsheets().Invoke(object, member, SheetUse::Read, arguments, count).value;
        },
        "object", ObjectThen{&object}, "member", MemberOf{object, member}, "arguments",
        ArgumentList{arguments, count});
}

// A release cannot fail, whatever else does.
void ExcelRelease(ExcelObject object) {
    const std::string name = Operation::journalling ? TheSpreadsheets().Describe(object) : "";
    Op<"ExcelRelease">.CallOr(
        [&](int) {
            TheSpreadsheets().Forget(object);
            return PRO_TK_NO_ERROR;
        },
        [&] {
            if (object) TheSpreadsheets().Release(object);
        },
        "object", name.c_str());
}

#endif
