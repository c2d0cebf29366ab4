// Twelve views: how the views of a model are placed on the sheet, with gaps of one size between
// them.
#pragma once

#include "hostapi/host.h"

// Which way the long side of the main view runs.
enum class LongSide { AsItIs, Across, Upright };

// How the views are shown, and whether the whole set is there twice.
enum class ViewStyle { AsTheyAre, SixHidden, SixNoHidden, Twelve };

struct TwelveViewsOrder {
    LongSide longSide = LongSide::AsItIs;
    ViewStyle style = ViewStyle::AsTheyAre;
};

// Puts the views of `solid`, whose main view is turned as `mainView` says, on sheet 1 of a new
// drawing. Returns the status of the main view: one of those that MainViewFailure names means that
// nothing was put there. What fails later leaves its view out.
ProError LayOutTwelveViews(ProDrawing drawing, ProSolid solid, ProMatrix mainView,
                           const TwelveViewsOrder& order);

// The name of a status that ends the command; null for all others.
const WideChar* MainViewFailure(ProError status);
