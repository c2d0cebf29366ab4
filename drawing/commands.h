// The commands of this room: drawings, and the views that they are made of.
#pragma once

// Opens the drawing with all views of the selected or current model or, if there is none yet, asks
// how it should look and makes it.
void TweViews();

// Opens the drawing that bears the selected or current model's name or, if there is none yet, asks
// for a size of sheet and makes it from the template that the settings have for it.
void VxNewDrw();

// The same from the plug-in's own template, with a format that the user chooses.
void NewDraw();

// Opens the drawing that bears the selected model's name.
void VxOpenDrw();

// Puts another format onto every sheet of the drawings in the working directory, and saves them.
void VxFrmReplace();

// Lists the sheets of the drawings in the working directory on which the scale of a general view is
// not the sheet's.
void VxDrwScaleCheck();

// Gives the current drawing's first sheet, and all its views that have a scale of their own, one
// scale: a typed one, that of the current sheet, that of the main view.
void SameScale();
void VxUpdateSheetScale();
void VxUpdateMainViewScale();

// Turns what is on the screen to the nearest view straight along the axes. Without a model on the
// screen nothing happens.
void VxNormalView();

// Opens the palette whose buttons rewrite the texts and tolerances of dimensions: of the selected
// ones, or of those that the user then picks one by one.
void VxDimModify();

// Makes dimensions of what the user picks in a view of the current drawing, one after the other
// until the user picks nothing more. Without a model nothing happens.
void VxSingleDim();
