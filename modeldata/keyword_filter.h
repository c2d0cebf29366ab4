// The keywords with which a designer leaves models out of a batch: a model whose name begins with
// one of them, in small letters or capitals, is passed over.
#pragma once

#include <vector>

#include "hostapi/wide.h"

// The pieces of a text between the separators, without the empty ones.
std::vector<WideText> SplitText(WideView text, WideChar separator);

struct KeywordFilter {
    std::vector<WideText> keywords;  // folded

    // Keywords between commas, plain or full-width.
    static KeywordFilter FromText(const WideText& text);

    bool Excludes(WideView modelName) const;
};
