// Host arrays at the door.
#include "hostapi/host/array.h"

#include "simhost/door/door.h"

using namespace simhost;

ProError ProArrayAlloc(int objects, int objectSize, int reallocationSize, ProArray* array) {
    return Op<"ProArrayAlloc">.Call(
        [&] {
            Need(array, "the place for the array");
            *array = TheHost().arrays.Allocate(objects, objectSize, reallocationSize);
        },
        ARG(objects), ARG(objectSize), "step", reallocationSize);
}

ProError ProArrayFree(ProArray* array) {
    return Op<"ProArrayFree">.Call([&] {
        Need(array, "the place of the array");
        TheHost().arrays.Free(*array);
        *array = nullptr;
    });
}

ProError ProArraySizeGet(ProArray array, int* size) {
    return Op<"ProArraySizeGet">.Call([&] { *size = TheHost().arrays.Size(array); }, OUT(size));
}

ProError ProArrayObjectAdd(ProArray* array, int index, int count, void* object) {
    return Op<"ProArrayObjectAdd">.Call(
        [&] {
            Need(array, "the place of the array");
            Need(object, "the object");
            TheHost().arrays.Insert(array, index, count, object);
        },
        ARG(index), ARG(count));
}

ProError ProStringarrayFree(char** names, int count) {
    return Op<"ProStringarrayFree">.Call(
        [&] {
            Need(names, "the array of names");
            TheHost().arrays.FreeNames(names, count);
        },
        ARG(count));
}
