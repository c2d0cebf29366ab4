// Configuration options, file dialogs and the model tree at the door.
#include "hostapi/host/config.h"

#include "hostapi/host/file_dialog.h"
#include "hostapi/host/treetool.h"
#include "simhost/core/text.h"
#include "simhost/door/door.h"

using namespace simhost;

namespace {

struct PathRecord {
    ProPath text;
};

}  // namespace

ProError ProConfigoptArrayGet(WideChar* option, ProPath** values) {
    Operation& op = Op<"ProConfigoptArrayGet">;
    return op.Call(
        [&] {
            Host& host = TheHost();
            const auto found = host.configOptions.find(Lower(WideView(option)));
            if (found == host.configOptions.end() || found->second.empty()) {
                Refuse(PRO_TK_E_NOT_FOUND);
            }
            std::vector<PathRecord> records(found->second.size());
            for (std::size_t i = 0; i < records.size(); ++i) {
                CopyCut(found->second[i], records[i].text, PRO_PATH_SIZE);
            }
            *values = &host.arrays.Make(records, op.name())->text;
        },
        GIVEN(option), OUT_ARRAY(values));
}

ProError ProConfigoptSet(WideChar* option, WideChar* value) {
    return Op<"ProConfigoptSet">.Call(
        [&] {
            if (*option == 0) Refuse(PRO_TK_BAD_INPUTS);
            TheHost().configOptions[Lower(WideView(option))] = {value};
        },
        GIVEN(option), GIVEN(value));
}

ProError ProFileOpen(WideChar* title, WideChar* filter, ProPath*, ProName*, ProPath folder,
                     ProFileName proposed, ProPath path) {
    return Op<"ProFileOpen">.Call(
        [&] {
            Host& host = TheHost();
            FileQuestion question{title, filter, host.session.workingDirectory, {}};
            if (folder && *folder) question.folder = folder;
            if (proposed) question.proposed = proposed;
            host.shown.push_back({Shown::Kind::Prompt, title, {}});
            const auto answer = host.user ? host.user->AnswerFile(question) : std::nullopt;
            if (!answer) Refuse(PRO_TK_USER_ABORT);
            CopyCut(*answer, path, PRO_PATH_SIZE);
        },
        GIVEN(title), GIVEN(filter), ARG(folder), ARG(proposed), OUT(path));
}

ProError ProTreetoolRefresh(ProMdl model) {
    return Op<"ProTreetoolRefresh">.Call([&] { ++TheHost().session.Require(model).treeRefreshes; },
                                         ARG(model));
}
