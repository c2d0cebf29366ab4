// What the page can ask: each address with the function that answers it on the session's thread.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "simhost/app/workplace.h"
#include "simhost/trail/interpreter.h"

namespace simhost {

// The session that is asked.
struct Seat {
    Trail& trail;
    const Workplace& workplace;
};

// The values of an address: ?from=3&count=10.
struct Query {
    std::map<std::string, std::string> values;
    std::string Text(const std::string& name) const;
    std::size_t Number(const std::string& name, std::size_t byDefault) const;
};

struct Reply {
    int status = 200;
    std::string type = "application/json; charset=utf-8";
    std::string body;
    std::string download;  // the name under which a browser keeps it; empty: it is for the page
};

// A question that cannot be answered, with a sentence for the user.
Reply Refused(int status, const std::string& why);

struct Answer {
    const char* address;
    Reply (*give)(const Seat& seat, const Query& query);
};
const std::vector<Answer>& Answers();

// --- By topic: see docs/workbench.md for what each looks like ---

Reply StateNow(const Seat& seat, const Query& query);   // state.cpp
Reply TreeNow(const Seat& seat, const Query& query);    // tree.cpp
Reply SceneNow(const Seat& seat, const Query& query);   // scene.cpp
Reply DialogNow(const Seat& seat, const Query& query);  // dialog_form.cpp
Reply RowsNow(const Seat& seat, const Query& query);
Reply FilesNow(const Seat& seat, const Query& query);  // files.cpp
Reply OneFile(const Seat& seat, const Query& query);
Reply RecordingNow(const Seat& seat, const Query& query);  // records.cpp
Reply FaultsNow(const Seat& seat, const Query& query);
Reply JournalNow(const Seat& seat, const Query& query);
Reply SheetNow(const Seat& seat, const Query& query);    // sheet_view.cpp
Reply ModelFacts(const Seat& seat, const Query& query);  // model_facts.cpp

}  // namespace simhost
