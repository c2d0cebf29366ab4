// Windows at the door.
#include "hostapi/host/window.h"

#include "hostapi/host/solid.h"
#include "simhost/core/text.h"
#include "simhost/door/door.h"
#include "simhost/model/model_file.h"
#include "simhost/model/shown.h"

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

void ShowInCurrent(Model& model) {
    Session& session = TheHost().session;
    if (session.current) {
        session.current->model = &model;
    } else {
        session.Open(model);
    }
    ++session.current->repaints;
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

ProError ProWindowCurrentGet(int* window) {
    return Op<"ProWindowCurrentGet">.Call(
        [&] {
            const Window* current = TheHost().session.current;
            if (!current) Refuse(PRO_TK_BAD_CONTEXT);
            *window = current->id;
        },
        OUT(window));
}

ProError ProWindowRefresh(int window) {
    return Op<"ProWindowRefresh">.Call([&] { RequireWindow(window); }, ARG(window));
}

ProError ProSolidDisplay(ProSolid solid) {
    return Op<"ProSolidDisplay">.Call(
        [&] {
            Model& shown = TheHost().session.RequireSolid(solid);
            Model* current = TheHost().session.CurrentModel();
            // The window of a manufacturing model shows its assembly, and stays its own.
            ShowInCurrent(current && &ContentsOf(*current) == &shown ? *current : shown);
        },
        ARG(solid));
}

ProError ProWindowMdlGet(int window, ProMdl* model) {
    return Op<"ProWindowMdlGet">.Call([&] { *model = RequireWindow(window).model->handle; },
                                      ARG(window), OUT(model));
}

ProError ProWindowDelete(int window) {
    return Op<"ProWindowDelete">.Call(
        [&] {
            Session& session = TheHost().session;
            Window& deleted = RequireWindow(window);
            if (&deleted == session.current) Refuse(PRO_TK_BAD_CONTEXT);
            session.Close(deleted);
        },
        ARG(window));
}

ProError ProWindowCurrentClose() {
    return Op<"ProWindowCurrentClose">.Call([&] {
        Session& session = TheHost().session;
        if (!session.current) Refuse(PRO_TK_BAD_CONTEXT);
        session.CloseCurrent();
    });
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
    return Op<"ProMdlDisplay">.Call([&] { ShowInCurrent(TheHost().session.Require(model)); },
                                    ARG(model));
}

ProError ProMdlWindowGet(ProMdl model, int* window) {
    return Op<"ProMdlWindowGet">.Call([&] { *window = WindowOf(model).id; }, ARG(model),
                                      OUT(window));
}
