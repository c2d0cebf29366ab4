// The commands of this room: drawings, and the views that they are made of.
#pragma once

// Opens the drawing with all views of the selected or current model or, if there is none yet, asks
// how it should look and makes it.
void TweViews();

// Turns what is on the screen to the nearest view straight along the axes. Without a model on the
// screen nothing happens.
void VxNormalView();
