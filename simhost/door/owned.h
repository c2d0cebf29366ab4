// Objects that the caller allocates and frees, at the door.
#pragma once

#include <string>
#include <utility>

#include "simhost/core/owned_handles.h"
#include "simhost/door/door.h"

namespace simhost {

// The object of a handle; null is refused, any other that names none is a complaint.
template <class T>
T& RequireOf(const OwnedHandles<T>& handles, const void* handle, const char* what) {
    if (!handle) Refuse(PRO_TK_BAD_INPUTS);
    if (T* found = handles.Find(handle)) return *found;
    const bool ended = handles.WasGiven(handle);
    Complain(PRO_TK_BAD_INPUTS, ended ? std::string(what).append(" that was freed or handed on")
                                      : std::string("not ").append(what));
}

// An object that the caller holds until it frees it or hands it on.
template <class Handle, class T>
Handle Give(OwnedHandles<T>* handles, T object, const char* origin) {
    void* handle = handles->Add(std::move(object));
    TheHost().arrays.NoteHandle(handle, origin);
    return static_cast<Handle>(handle);
}

// The end of that; the object itself comes back.
template <class T>
T TakeBack(OwnedHandles<T>* handles, const void* handle, const char* what) {
    T object = std::move(RequireOf(*handles, handle, what));
    handles->Free(handle);
    TheHost().arrays.ForgetHandle(handle);
    return object;
}

}  // namespace simhost
