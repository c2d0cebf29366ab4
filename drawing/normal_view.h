// VxNormalView: turns what is on the screen to the nearest view straight along the axes.
#pragma once

void VxNormalView();

// The same for other commands. Without a model on the screen nothing happens.
void SnapViewToAxes();
