// The commands of this room: drawings, and the views that they are made of.
#pragma once

// Opens the drawing with all views of the selected or current model or, if there is none yet, asks
// how it should look and makes it.
void TweViews();

// Turns what is on the screen to the nearest view straight along the axes. Without a model on the
// screen nothing happens.
void VxNormalView();

// Opens the palette whose buttons rewrite the texts and tolerances of dimensions: of the selected
// ones, or of those that the user then picks one by one.
void VxDimModify();

// Makes dimensions of what the user picks in a view of the current drawing, one after the other
// until the user picks nothing more. Without a model nothing happens.
void VxSingleDim();
