// Splitting of column lists.
#include "frame/services/column_list.h"

#include <algorithm>

#include "frame/services/text.h"

std::vector<WideText> SplitColumnList(const WideText& value) {
    const WideText text = ReplaceAll(value, WIDE("，"), WIDE(","));
    const WideView list = text;
    const std::size_t blank = std::min(list.find(WideChar{' '}), list.size());
    std::vector<WideText> items;
    std::size_t start = 0;
    // A comma after the blank no longer separates anything.
    for (std::size_t comma = list.find(',', start); comma < blank; comma = list.find(',', start)) {
        if (comma > start) items.emplace_back(list.substr(start, comma - start));
        start = comma + 1;
    }
    // What is left counts by its whole length, though only the text before the blank is seen.
    if (start < list.size()) items.emplace_back(list.substr(start, blank - start));
    return items;
}
