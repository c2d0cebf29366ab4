// Guards for every function that the host or Windows calls back: no exception leaves the plug-in.
#pragma once

#include <type_traits>

#include "hostapi/host.h"

// Tells the user that memory ran out, as far as that can still be done.
void ReportUnfinished() noexcept;

template <auto Function>
struct Guard;

// A guarded function ends with this when it could not finish: a visit ends, a command is greyed.
template <class Result>
inline constexpr Result kUnfinished = Result(-1);
template <>
inline constexpr uiCmdAccessState kUnfinished<uiCmdAccessState> = ACCESS_INVISIBLE;

template <class Result, class... Arguments, Result (*Function)(Arguments...)>
struct Guard<Function> {
    static Result Call(Arguments... arguments) noexcept {
        try {
            return Function(arguments...);
        } catch (...) {
            if constexpr (std::is_void_v<Result>) {
                ReportUnfinished();
            } else {
                return kUnfinished<Result>;
            }
        }
    }
};

// A callback with the parameter list of `Function`.
template <auto Function>
inline constexpr auto Guarded = &Guard<Function>::Call;

// A callback as the host takes it where each event has a parameter list of its own.
template <class Callback>
ProFunction AsProFunction(Callback callback) {
    return reinterpret_cast<ProFunction>(reinterpret_cast<void (*)()>(callback));
}

// A command's action: `Function` takes nothing and returns nothing, or what the host is answered.
template <void (*Function)()>
int Command(uiCmdCmdId, uiCmdValue*, void*) noexcept {
    Guard<Function>::Call();
    return 0;
}
template <int (*Function)()>
void PutResult(int* result) {
    *result = Function();
}
template <int (*Function)()>
int Command(uiCmdCmdId, uiCmdValue*, void*) noexcept {
    int result = kUnfinished<int>;
    Guard<PutResult<Function>>::Call(&result);
    return result;
}
