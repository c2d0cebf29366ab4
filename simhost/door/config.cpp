// Configuration options and the model tree at the door.
#include "hostapi/host/config.h"

#include "hostapi/host/treetool.h"
#include "simhost/core/text.h"
#include "simhost/door/door.h"
#include "simhost/door/name_record.h"

using namespace simhost;

namespace {

// What was handed out is not to be read after the next call: from then on it says so.
void EndHandedOutValues() {
    Host& host = TheHost();
    if (!host.optionValues) return;
    auto* values = static_cast<ProPath*>(host.optionValues);
    for (int i = 0; i < host.arrays.Size(host.optionValues); ++i) {
        CopyCut(kEndedOptionValue, values[i], PRO_PATH_SIZE);
    }
    host.optionValues = nullptr;
}

}  // namespace

ProError ProConfigoptArrayGet(WideChar* option, ProPath** values) {
    Operation& op = Op<"ProConfigoptArrayGet">;
    return op.Call(
        [&] {
            Host& host = TheHost();
            EndHandedOutValues();
            const auto found = host.configOptions.find(Lower(WideView(option)));
            if (found == host.configOptions.end()) Refuse(PRO_TK_E_NOT_FOUND);
            std::vector<PathRecord> records(found->second.size());
            for (std::size_t i = 0; i < records.size(); ++i) {
                CopyCut(found->second[i], records[i].text, PRO_PATH_SIZE);
            }
            PathRecord* array = host.arrays.Make(records, op.name());
            host.optionValues = array;
            *values = &array->text;
        },
        GIVEN(option), OUT_ARRAY(values));
}

ProError ProConfigoptGet(WideChar* option, ProPath value) {
    return Op<"ProConfigoptGet">.Call(
        [&] {
            Host& host = TheHost();
            EndHandedOutValues();
            const auto found = host.configOptions.find(Lower(WideView(option)));
            if (found == host.configOptions.end()) Refuse(PRO_TK_E_NOT_FOUND);
            CopyCut(found->second.empty() ? WideText() : found->second.front(), value,
                    PRO_PATH_SIZE);
        },
        GIVEN(option), OUT(value));
}

ProError ProConfigoptSet(WideChar* option, WideChar* value) {
    return Op<"ProConfigoptSet">.Call(
        [&] {
            EndHandedOutValues();
            RefuseEndedOptionValue(value);
            if (!*option) Refuse(PRO_TK_BAD_INPUTS);
            TheHost().configOptions[Lower(WideView(option))] = {value};
        },
        GIVEN(option), GIVEN(value));
}

ProError ProTreetoolRefresh(ProMdl model) {
    return Op<"ProTreetoolRefresh">.Call([&] { ++TheHost().session.Require(model).treeRefreshes; },
                                         ARG(model));
}
