// The drawings of the working directory, one after the other, and the sheets of each: what the two
// batches over a folder share.
#pragma once

#include "frame/services.h"

// The files that hold a drawing, by their full paths, each in its newest version; empty with a
// plain error where there is none.
HostArray<ProPath> DrawingsOfWorkingDirectory();

// The name of a model by the path of its file: without folder, extension and version.
WideText ModelNameOf(WideView path);

// A drawing and its views, in the order of their making.
struct DrawingWithViews {
    ProDrawing drawing = nullptr;
    HostArray<ProView> views;
    int count = 0;
};
// Fetches the drawing; without views (count 0) where it cannot be fetched or has none.
DrawingWithViews FetchDrawing(WideView path);
