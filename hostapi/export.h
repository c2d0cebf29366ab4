// The export markers of the two modules that meet at the door: the host's operations come out of
// the host's library (HOST_API), the two entry points out of the plug-in (PLUGIN_ENTRY).
#pragma once

#if defined(_WIN32)
#define PLUGIN_ENTRY extern "C" __declspec(dllexport)
#if defined(HOST_LIBRARY)
#define HOST_API extern "C" __declspec(dllexport)
#else
#define HOST_API extern "C"
#endif
#else
#define PLUGIN_ENTRY extern "C" __attribute__((visibility("default")))
#define HOST_API extern "C" __attribute__((visibility("default")))
#endif
