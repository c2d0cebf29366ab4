// Arithmetic on view matrices: free them of scale and place, snap them to the nearest axes, and
// say how a model is laid flat with its longest side to the right.
#pragma once

#include "hostapi/host.h"

// Divides the upper left 3x3 block by the length of row 0 and clears the place in row 3. A matrix
// whose row 0 has no length keeps its block.
void NormalizeTransform(ProMatrix matrix);

// The nearest view straight along the axes. Every row keeps its largest element as 1 or -1; where
// two rows claim one column, one of them moves to the column that is left. Scale and place go.
void SnapToAxes(ProMatrix matrix);

// Quarter turns on the screen, in order.
struct QuarterTurns {
    int count;
    ProViewRotationAxis axes[2];
};

// The turns that bring the longest of the three extents to the right, the middle one up and the
// shortest towards the viewer. None where they lie so already.
QuarterTurns TurnsByExtent(int x, int y, int z);

// An extent without its fraction, so that sides of nearly one length count as equal. What no int
// can hold becomes the nearest one that does; 0 for what is no number.
int WholeExtent(double lower, double upper);
