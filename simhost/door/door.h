// What every file of the door includes, and the form of an operation: what it does, then the names
// and values of its arguments for the journal.
//
//     ProError ProMdlTypeGet(ProMdl model, ProMdlType* type) {
//         return Op<"ProMdlTypeGet">.Call(
//             [&] { *type = TheHost().session.Require(model).type; }, ARG(model), OUT(type));
//     }
//
// A body without a result means success; Refuse and Complain end it earlier. A null handle, a
// zeroed record and a model of the wrong kind are refused quietly, as a host does; a dangling
// handle, garbage, and a null place or text are complaints.
#pragma once

#include "simhost/core/operation.h"
#include "simhost/door/describe.h"
#include "simhost/host.h"

namespace simhost {

// What the values of an option say once the array that they were handed out in is out of date.
inline constexpr WideView kEndedOptionValue = WIDE("(a value from before another option call)");
// A complaint about such a value that is handed over.
inline void RefuseEndedOptionValue(const WideChar* value) {
    if (WideView(value) != kEndedOptionValue) return;
    Complain(PRO_TK_BAD_INPUTS, "a value of an option that was kept beyond another option call");
}

}  // namespace simhost

// Windows' headers have an empty macro of this name.
#undef OUT

// clang-format off
#define ARG(argument) #argument, argument                        // any value
#define GIVEN(argument) #argument, ::simhost::Given(argument)    // must not be null
#define OUT(argument) #argument, ::simhost::NeededOut(argument)  // a place for a result, not null
#define OUT_NAME(argument) #argument, ::simhost::NameOut{argument}
#define OUT_NUMBER(argument) #argument, ::simhost::NumberOut{argument}
#define OUT_POINT(argument) #argument, ::simhost::PointOut{argument}
// Lists with their length: handed in; handed out; handed in and out as a host array, which knows
// its own.
#define LIST(list, count) #list, ::simhost::ListOf{list, count}
#define OUT_LIST(list, count) #list, ::simhost::ListOut{list, count}
#define ARRAY(list) #list, ::simhost::ArrayIn{list}
#define OUT_ARRAY(list) #list, ::simhost::ListOut{list}
// clang-format on
