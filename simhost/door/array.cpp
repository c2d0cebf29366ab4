// Host arrays at the door.
#include "hostapi/host/array.h"

#include "simhost/host.h"

using namespace simhost;

ProError ProArrayAlloc(int objects, int objectSize, int reallocationSize, ProArray* array) {
    static Operation op("ProArrayAlloc");
    return op.Call(
        [&] {
            Need(array, "the place for the array");
            *array = TheHost().arrays.Allocate(objects, objectSize, reallocationSize);
            return PRO_TK_NO_ERROR;
        },
        "objects", objects, "objectSize", objectSize, "step", reallocationSize);
}

ProError ProArrayFree(ProArray* array) {
    static Operation op("ProArrayFree");
    return op.Call([&] {
        Need(array, "the place of the array");
        TheHost().arrays.Free(*array);
        *array = nullptr;
        return PRO_TK_NO_ERROR;
    });
}

ProError ProArraySizeGet(ProArray array, int* size) {
    static Operation op("ProArraySizeGet");
    return op.Call(
        [&] {
            Need(size, "the place for the size");
            *size = TheHost().arrays.Size(array);
            return PRO_TK_NO_ERROR;
        },
        "size", Out(size));
}

ProError ProArrayObjectAdd(ProArray* array, int index, int count, void* object) {
    static Operation op("ProArrayObjectAdd");
    return op.Call(
        [&] {
            Need(array, "the place of the array");
            Need(object, "the object");
            TheHost().arrays.Insert(array, index, count, object);
            return PRO_TK_NO_ERROR;
        },
        "index", index, "count", count);
}

ProError ProStringarrayFree(char** names, int count) {
    static Operation op("ProStringarrayFree");
    return op.Call(
        [&] {
            Need(names, "the array of names");
            TheHost().arrays.FreeNames(names, count);
            return PRO_TK_NO_ERROR;
        },
        "count", count);
}
