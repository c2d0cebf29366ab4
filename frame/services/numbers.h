// Numbers that somebody has typed, read as far as they are numbers.
#pragma once

#include "hostapi/wide.h"

// Decimal digits as a number, with a sign and blanks before them; 0 for anything else, and the
// nearest number that there is for one that is too large.
int WholeNumber(WideView text);

// A decimal number at the text's beginning; 0 for anything else.
double RealNumber(WideView text);
