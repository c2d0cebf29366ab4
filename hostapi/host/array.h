// Expandable arrays. An array is a pointer to its first element; adding to it may move it.
#pragma once

#include "hostapi/host/types.h"

// Makes an array of `objects` zeroed elements of `objectSize` bytes that grows by
// `reallocationSize` elements. The caller frees it with ProArrayFree.
// PRO_TK_BAD_INPUTS: a size that is not positive; PRO_TK_OUT_OF_MEMORY.
// Assumed (behaviour, 40 %): adding one object at a time is cheap with a step of 1. If it really
//   copies at each, a large assembly is slow: measure
HOST_API ProError ProArrayAlloc(int objects, int objectSize, int reallocationSize, ProArray* array);

// Frees the array and sets the variable to null. PRO_TK_BAD_INPUTS: not a live array.
HOST_API ProError ProArrayFree(ProArray* array);

// Number of elements. PRO_TK_BAD_INPUTS: not a live array.
HOST_API ProError ProArraySizeGet(ProArray array, int* size);

// Copies `count` elements from `object` into the array before element `index`, or after the last
// one with index -1. The array may move, so `*array` changes.
HOST_API ProError ProArrayObjectAdd(ProArray* array, int index, int count, void* object);

// Frees an array of narrow names that an operation has handed out, with its texts.
HOST_API ProError ProStringarrayFree(char** names, int count);
