// What the commands share that make a drawing or open one that is there.
#pragma once

#include <optional>

#include "frame/services.h"

// A drawing of that name in memory or where the host looks for it; null if there is none.
ProMdl RetrieveDrawing(const WideText& name);

// A window for the drawing of that name; nothing if the host refuses it.
std::optional<int> OpenDrawingWindow(const WideText& name);
// The same, made current and activated.
void OpenDrawingWindowAndEnter(const WideText& name);

// The model that a new drawing is to show, as the host wants it named.
ProModel ShownModel(ProMdl model);

// Makes a drawing of the model from a template in the host's working folder. Receives the drawing;
// the host's status.
ProError CreateDrawing(const WideText& name, const WideText& drawingTemplate, ProModel shown,
                       ProDrawing* drawing);

// A folder that the host works in for a while: entered here, and left for `back` at the end. A
// folder to which there would be no way back is not entered.
class FolderVisit {
public:
    FolderVisit(const WideText& folder, const WideText& back);
    ~FolderVisit();
    FolderVisit(const FolderVisit&) = delete;
    FolderVisit& operator=(const FolderVisit&) = delete;

private:
    WideText back_;  // empty: it was not entered
};
