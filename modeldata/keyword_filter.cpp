// The keywords with which a designer leaves models out of a batch.
#include "modeldata/keyword_filter.h"

#include <algorithm>

#include "frame/services.h"

std::vector<WideText> SplitText(WideView text, WideChar separator) {
    std::vector<WideText> pieces;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(separator), text.size());
        if (end > 0) pieces.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return pieces;
}

KeywordFilter KeywordFilter::FromText(const WideText& text) {
    KeywordFilter filter;
    for (const WideText& keyword : SplitText(ReplaceAll(text, WIDE("，"), WIDE(",")), ',')) {
        filter.keywords.push_back(FoldCase(keyword));
    }
    return filter;
}

bool KeywordFilter::Excludes(WideView modelName) const {
    const WideText name = FoldCase(modelName);
    return std::any_of(keywords.begin(), keywords.end(), [&](const WideText& keyword) {
        return name.compare(0, keyword.size(), keyword) == 0;
    });
}
