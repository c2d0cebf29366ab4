// Windows at the door.
#include "hostapi/host/window.h"

#include "simhost/core/text.h"
#include "simhost/host.h"
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
    static Operation op("ProObjectwindowCreate");
    return op.Call(
        [&] {
            Need(name, "the name");
            Need(window, "the place for the window's id");
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
            return PRO_TK_NO_ERROR;
        },
        "name", name, "type", type, "window", Out(window));
}

ProError ProWindowCurrentSet(int window) {
    static Operation op("ProWindowCurrentSet");
    return op.Call(
        [&] {
            TheHost().session.current = &RequireWindow(window);
            return PRO_TK_NO_ERROR;
        },
        "window", window);
}

ProError ProWindowActivate(int window) {
    static Operation op("ProWindowActivate");
    return op.Call(
        [&] {
            Window& activated = RequireWindow(window);
            TheHost().session.current = &activated;
            ++activated.repaints;
            return PRO_TK_NO_ERROR;
        },
        "window", window);
}

ProError ProMdlDisplay(ProMdl model) {
    static Operation op("ProMdlDisplay");
    return op.Call(
        [&] {
            Session& session = TheHost().session;
            Model& shown = session.Require(model);
            if (session.current) {
                session.current->model = &shown;
            } else {
                session.Open(shown);
            }
            ++session.current->repaints;
            return PRO_TK_NO_ERROR;
        },
        "model", model);
}

ProError ProMdlWindowGet(ProMdl model, int* window) {
    static Operation op("ProMdlWindowGet");
    return op.Call(
        [&] {
            Need(window, "the place for the window's id");
            *window = WindowOf(model).id;
            return PRO_TK_NO_ERROR;
        },
        "model", model, "window", Out(window));
}
