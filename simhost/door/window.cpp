// Windows at the door.
#include "hostapi/host/window.h"

#include "simhost/core/text.h"
#include "simhost/door/door.h"
#include "simhost/model/model_file.h"

using namespace simhost;

namespace {

Window& RequireWindow(int id) {
    Window* window = TheHost().session.FindWindow(id);
    if (!window || !window->model) Refuse(PRO_TK_BAD_INPUTS);
    return *window;
}

Window& WindowOf(ProMdl handle) {
    Session& session = TheHost().session;
    const Model& model = session.Require(handle);
    for (const Window& window : session.windows()) {
        if (window.model == &model) return *session.FindWindow(window.id);
    }
    Refuse(PRO_TK_E_NOT_FOUND);
}

}  // namespace

ProError ProObjectwindowCreate(ProName name, ProType type, int* window) {
    return Op<"ProObjectwindowCreate">.Call(
        [&] {
            Session& session = TheHost().session;
            const std::string file = Utf8(Lower(WideView(name))) + '.' + SuffixOf(ProMdlType(type));
            Model* model = nullptr;
            try {
                model = session.Retrieve(file);
            } catch (const ModelFileError& error) {
                TheHost().Tell(error.what());
                Refuse(PRO_TK_INVALID_FILE);
            }
            if (!model) Refuse(PRO_TK_E_NOT_FOUND);
            Window* current = session.current;
            *window = session.Open(*model).id;
            if (current) session.current = current;
        },
        GIVEN(name), ARG(type), OUT(window));
}

ProError ProWindowCurrentSet(int window) {
    return Op<"ProWindowCurrentSet">.Call(
        [&] { TheHost().session.current = &RequireWindow(window); }, ARG(window));
}

ProError ProWindowActivate(int window) {
    return Op<"ProWindowActivate">.Call(
        [&] {
            Window& activated = RequireWindow(window);
            TheHost().session.current = &activated;
            ++activated.repaints;
        },
        ARG(window));
}

ProError ProMdlDisplay(ProMdl model) {
    return Op<"ProMdlDisplay">.Call(
        [&] {
            Session& session = TheHost().session;
            Model& shown = session.Require(model);
            if (session.current) {
                session.current->model = &shown;
            } else {
                session.Open(shown);
            }
            ++session.current->repaints;
        },
        ARG(model));
}

ProError ProMdlWindowGet(ProMdl model, int* window) {
    return Op<"ProMdlWindowGet">.Call([&] { *window = WindowOf(model).id; }, ARG(model),
                                      OUT(window));
}
