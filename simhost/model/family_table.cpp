// Family tables: what a generic's columns are.
#include "simhost/model/family_table.h"

#include <algorithm>

#include "simhost/core/text.h"

namespace simhost {

bool FamilyTable::HasColumn(WideView parameter) const {
    return std::any_of(columns.begin(), columns.end(),
                       [&](const WideText& one) { return SameName(one, parameter); });
}

}  // namespace simhost
