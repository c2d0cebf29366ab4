// The plug-in's calls of a real clipboard and its memory on their way there; see calls.cpp.
#pragma once

#include "hostapi/windows.h"

namespace simhost::clipboard {

BOOL WINAPI Open(HWND owner);
BOOL WINAPI Close();
BOOL WINAPI Empty();
HANDLE WINAPI Put(UINT format, HANDLE memory);
HGLOBAL WINAPI Allocate(UINT flags, SIZE_T bytes);
void* WINAPI Lock(HGLOBAL memory);
BOOL WINAPI Unlock(HGLOBAL memory);
HGLOBAL WINAPI Free(HGLOBAL memory);

}  // namespace simhost::clipboard
