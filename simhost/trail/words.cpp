// The table of the @ words.
#include "simhost/trail/words.h"

#include <fmt/format.h>

#include <algorithm>

#include "simhost/core/text.h"
#include "simhost/trail/hooks.h"
#include "simhost/trail/interpreter.h"
#include "simhost/ui/near_name.h"
#include "simhost/ui/replace_dialog.h"

namespace simhost {
namespace {

constexpr bool kMain = true, kAny = false;      // Word::mainWindow
constexpr bool kKeeps = true, kLeaves = false;  // Word::keepsPopup

// The text begins with the word, and with nothing that would make it another word.
bool Begins(const std::string& text, const std::string& word) {
    if (text.size() < word.size() || Lower(text.substr(0, word.size())) != word) return false;
    return text.size() == word.size() || text[word.size()] == ' ' || text[word.size()] == '\t';
}

// What can be expected, for an expectation that is none of it.
std::string UnknownExpectation(const std::string& text) {
    constexpr std::string_view kExpect = "expect ";
    std::vector<std::string> subjects;
    std::string all;
    for (const Word& word : Words()) {
        const std::string name = word.name;
        if (name.compare(0, kExpect.size(), kExpect) != 0) continue;
        subjects.push_back(name.substr(kExpect.size()));
        all += (all.empty() ? "" : ", ") + subjects.back();
    }
    const std::string rest(Trimmed(text.substr(kExpect.size() - 1)));
    if (rest.empty()) return "expect what? " + all;
    std::string near = NearName(rest.substr(0, rest.find(' ')), subjects);
    if (near.empty()) near = NearName(rest, subjects);
    if (near.empty())
        return fmt::format("nothing called \"{}\" can be expected; {} can", rest, all);
    return fmt::format("nothing is called \"{}\"; did you mean expect {}?", text, near);
}

}  // namespace

const std::vector<Word>& Words() {
    // clang-format off
    static const std::vector<Word> words = {
        {"open",             "FILE",              kMain, kLeaves, OpenModel,       "open a model of the working folder in a window"},
        {"window",           "FILE",              kMain, kLeaves, SwitchWindow,    "go to the window that shows this model"},
        {"close",            "",                  kMain, kLeaves, CloseModel,      "close the current window"},
        {"activate",         "PATH",              kMain, kLeaves, ActivateComponent, "work on this component in its assembly's window; . for the top again"},
        {"regenerate",       "",                  kMain, kLeaves, RegenerateModel, "bring the current model up to date, with all below it"},
        {"directory",        "FOLDER",            kMain, kLeaves, ChangeDirectory, "make this the working folder"},
        {"select",           "PATH[, PATH…]",     kAny,  kLeaves, SelectItems,     "select components down the tree: UNIT/GEAR:2, items: GEAR#12, GEAR/edge#7, the top: ."},
        {"also",             "PATH[, PATH…]",     kAny,  kLeaves, SelectAlso,      "select these beside what is selected already"},
        {"deselect",         "PATH[, PATH…]",     kAny,  kLeaves, Deselect,        "let go of these, and keep what else is selected"},
        {"rectangle",        "X Y X Y",           kAny,  kLeaves, SelectBox,       "select the parts that lie wholly in a box, by two corners in the coordinates of a picture's ruler"},
        {"rectangle more",   "X Y X Y",           kAny,  kLeaves, SelectMoreByBox, "the same, beside what is selected already"},
        {"clear selection",  "",                  kAny,  kLeaves, ClearSelection,  "select nothing"},
        {"selection empty",  "",                  kMain, kLeaves, SelectNothing,   "for tests: nothing is selected, and the selection can be read all the same"},
        {"turn",             "A B C [scale S at X Y]", kAny, kKeeps, TurnView,     "turn what the window shows: by so many degrees about the screen's axes to the right, up and to the viewer, one after the other, from x right and y up; as large as it fits, or S points of the screen to a mm with the model's origin at X Y"},
        {"right-click",      "[POPUP]",           kMain, kKeeps,  RightClick,      "open a popup menu, \"Sel Obj Menu\" if none is named"},
        {"choose",           "LABEL",             kAny,  kKeeps,  ChooseEntry,     "press a button of the open popup", true},
        {"press",            "MENU/BUTTON",       kMain, kLeaves, PressMenuButton, "press a button by its menu and its name", true},
        {"mapped key",       "COMMAND",           kMain, kLeaves, PressMappedKey,  "run a command as a mapped key does: whatever its access rule says", true},
        {"ok",               "",                  kAny,  kLeaves, AnswerOk,        "press OK in the open box; by hand also: the default button of the open dialog", true},
        {"enter",            "",                  kAny,  kLeaves, PressEnter,      "press the Enter key: the default button of the open dialog, OK in the open box", true},
        {"answer",           "TEXT",              kAny,  kLeaves, AnswerText,      "type at the prompt; no text takes its default"},
        {"quit",             "",                  kAny,  kKeeps,  Quit,            "leave the prompt, the pick, the click or the popup; by hand also: end (again, where changes would be lost)"},
        {"pick",             "PATH[, PATH…]",     kAny,  kKeeps,  PickItems,       "what the host waits for: items as select takes them"},
        {"pick box",         "X Y X Y",           kAny,  kKeeps,  PickBox,         "all that lies wholly in a box, by two corners in the coordinates of a picture's ruler"},
        {"pick edge",        "VIEW/ID [at X Y]",  kAny,  kKeeps,  PickInView,      "an edge of a view, by its number in show edges; 2/start#17, end, axis, csys, silhouette, datum and point likewise"},
        {"pick at",          "X Y",               kAny,  kKeeps,  PickAt,          "what is nearest to a point of the sheet"},
        {"pick nothing",     "",                  kAny,  kKeeps,  PickNothing,     "end the pick without an item"},
        {"click",            "X Y [BUTTON]",      kAny,  kKeeps,  ClickSheet,      "what the host waits for: a place on the sheet; left, middle or right"},
        {"expect box",       "TEXT",              kAny,  kKeeps,  ExpectBox,       "the open box says this (all of it if \"quoted\")"},
        {"expect caption",   "TEXT",              kAny,  kKeeps,  ExpectCaption,   "the open box has this caption; none: the system's own"},
        {"expect no box",    "",                  kAny,  kKeeps,  ExpectNoBox,     "no box is open"},
        {"expect message",   "TEXT",              kAny,  kKeeps,  ExpectMessage,   "the message line says this"},
        {"expect dialog",    "NAME",              kAny,  kKeeps,  ExpectDialog,    "this dialog is open; none: no dialog is"},
        {"expect colour",    "MODEL[#ID] R.G.B",  kAny,  kKeeps,  ExpectColour,    "the model, or its surface, has this colour of its own, 0 to 255; or none"},
        {"expect transparency", "MODEL[#ID] VALUE", kAny, kKeeps, ExpectTransparency, "the model, or its surface, has this transparency of its own, 0 to 1; or none"},
        {"expect greyed",    "COMMAND",           kAny,  kKeeps,  ExpectGreyed,    "the command cannot be pressed now"},
        {"expect available", "COMMAND",           kAny,  kKeeps,  ExpectAvailable, "the command can be pressed now"},
        {"expect button",    "LABEL",             kAny,  kKeeps,  ExpectButton,    "the open popup has this button, ready to press"},
        {"expect no button", "LABEL",             kAny,  kKeeps,  ExpectNoButton,  "the open popup has no such button"},
        {"expect clipboard", "TEXT",              kAny,  kKeeps,  ExpectClipboard, "this text lies on the clipboard; or none"},
        {"expect parameter", "MODEL NAME VALUE",  kAny,  kKeeps,  ExpectParameter, "the model shows this value of a parameter; or none"},
        {"expect relations", "MODEL LINES",       kAny,  kKeeps,  ExpectRelations, "the model's relations, a blank, / and a blank between the lines; or none"},
        {"expect unit",      "MODEL NAME",        kAny,  kKeeps,  ExpectUnit,      "the model's principal system of units"},
        {"expect views",     "NUMBER",            kAny,  kKeeps,  ExpectViews,     "the drawing in the current window has so many views"},
        {"expect scale",     "SHEET VALUE",       kAny,  kKeeps,  ExpectScale,     "what the sheet shows first has this scale, 0.5 for 1:2"},
        {"expect format",    "SHEET FILE",        kAny,  kKeeps,  ExpectFormat,    "the sheet has this format, such as a3.frm; or none"},
        {"expect dimension", "NUMBER TEXT",       kAny,  kKeeps,  ExpectDimension, "what a dimension of the drawing says, with its tolerance; none: it is not there, or not shown"},
        {"expect dimensions", "NUMBER",           kAny,  kKeeps,  ExpectDimensions, "the drawing in the current window has so many dimensions"},
        {"expect option",    "NAME VALUE",        kAny,  kKeeps,  ExpectOption,    "an option of the host has this value, or several with | between them; or none"},
        {"expect material",  "MODEL NAME",        kAny,  kKeeps,  ExpectMaterial,  "the part is made of this material; or none"},
        {"expect mass",      "MODEL KG",          kAny,  kKeeps,  ExpectMass,      "the mass to as many places as are written, of an assembly that of all parts with a material; or none"},
        {"expect bend table", "MODEL NAME",       kAny,  kKeeps,  ExpectBendTable, "the sheet metal part has this bend table; or none"},
        {"expect developed length", "MODEL MM",   kAny,  kKeeps,  ExpectDevelopedLength, "how long its sheet came out, to as many places as are written"},
        {"expect constraints", "PATH TEXT",       kAny,  kKeeps,  ExpectConstraints, "a component's constraints, with ; between them; empty; or none if it never had any"},
        {"expect place",     "PATH X Y Z [turn A B C]", kAny, kKeeps, ExpectPlace, "where a component is in the assembly that holds it"},
        {"expect file",      "FILE",              kAny,  kKeeps,  ExpectFile,      "this file is there, by its path or in the working folder, with its version"},
        {"expect no file",   "FILE",              kAny,  kKeeps,  ExpectNoFile,    "this file is not there"},
        {"expect rows",      "TABLE NUMBER",      kAny,  kKeeps,  ExpectRows,      "the open dialog's table has so many rows"},
        {"expect columns",   "TABLE LABELS",      kAny,  kKeeps,  ExpectColumns,   "the labels of a table's columns, with | between them"},
        {"expect row",       "TABLE ROW CELLS",   kAny,  kKeeps,  ExpectRow,       "the texts of a row, with | between them"},
        {"expect row colours", "TABLE ROW CODES", kAny,  kKeeps,  ExpectRowColours, "the colours of a row's cells; - is the usual one"},
        {"expect cell",      "TABLE ROW COLUMN TEXT", kAny, kKeeps, ExpectCell,   "what is in a cell: the text of the field in it, else its own"},
        {"expect focus",     "TABLE ROW COLUMN",  kAny,  kKeeps,  ExpectFocus,     "the cell that the user works in; or none"},
        {"parameter",        "MODEL NAME VALUE",  kMain, kLeaves, SetParameter,    "give a model a parameter: 4, 12.5, YES or \"text\""},
        {"expect extents",   "MODEL X Y Z X Y Z", kAny,  kKeeps,  ExpectExtents,   "the box around the model along its own axes, by its lowest and its highest corner; or none"},
        {"option",           "NAME VALUE",        kMain, kLeaves, SetOption,       "set an option of the host, such as pro_format_dir, to a value or to several with | between them; none: to no value"},
        {"hold",             "FILE",              kAny,  kKeeps,  HoldFile,        "keep a file open as another program would"},
        {"let go",           "FILE",              kAny,  kKeeps,  LetGoFile,       "the other program closes the file"},
        {"hold clipboard",   "",                  kAny,  kKeeps,  HoldClipboard,   "keep the clipboard open as another program would"},
        {"let go clipboard", "",                  kAny,  kKeeps,  LetGoClipboard,  "the other program closes the clipboard"},
        {"read-only",        "FILE",              kAny,  kKeeps,  MakeReadOnly,    "let nobody write to a file, or into a folder"},
        {"clock",            "[SECONDS]",         kAny,  kLeaves, SetTime,         "what the plug-in is told from now on when it asks for the time, in seconds since 1970"},
        {"wait",             "SECONDS",           kAny,  kLeaves, WaitSeconds,     "let time pass"},
        {"setting",          "SECTION KEY VALUE", kAny,  kLeaves, WriteSetting,    "write a setting of VxConfig.ini"},
        {"save",             "[FILE]",            kMain, kLeaves, SaveModel,       "save the current model, or the one named"},
        {"save all",         "",                  kMain, kLeaves, SaveAllModels,   "save every model that was changed"},
        {"picture",          "FILE",              kAny,  kKeeps,  DrawPicture,     "draw what the window shows into a file"},
        {"picture screen",   "FILE",              kAny,  kKeeps,  DrawScreen,      "the same as it is turned on the screen, with the ruler that pick box goes by"},
        {"show",             "TOPIC",             kAny,  kKeeps,  Show,            "models, tree [PATH] (with what is hidden, invisible, excluded, suppressed), menu, commands, dialog, popup, selection, components (their newest files and constraints), constraints, colours, parameters, relations, units [MODEL], outline [MODEL] (its size in its own unit), sheets, views, edges VIEW, dimensions, tables, options, materials, masses, bends, files [FOLDER], references [FILE] (the names of others in the newest model files) or messages"},
        {"title",            "TEXT",              kAny,  kKeeps,  ShowTitle,       "begin a part of the report"},
        {"remember",         "LABEL [of MODELS]: FACTS", kAny, kKeeps, RememberFacts, "take facts of all models, or of those named, for a table: colour, relations, units, size, placement (of the first component that is not at the origin), material, density, mass, bend table, developed length, or the names of parameters"},
        {"make folder",      "FOLDER",            kAny,  kKeeps,  MakeFolder,      "make a folder, by its path or in the working folder"},
        {"import",           "FILE into FOLDER",  kAny,  kKeeps,  ImportFile,      "make a project of a STEP file of another system, in a folder that holds nothing yet"},
        {"remember files",   "",                  kAny,  kKeeps,  RememberFiles,   "take every file of the working folder, byte for byte"},
        {"expect same files", "",                 kAny,  kKeeps,  ExpectSameFiles, "the working folder holds the remembered files and no others"},
        {"table",            "",                  kAny,  kKeeps,  ShowFactTable,   "show side by side what was remembered"},
        {"erase dimension",  "NUMBER",            kMain, kLeaves, EraseDimension,  "take a dimension or a note off the drawing"},
        {"sheet",            "NUMBER",            kMain, kLeaves, TurnToSheet,     "turn to a sheet of the drawing, from 1"},
        {"add note",         "X Y TEXT",          kMain, kLeaves, AddNote,         "write a note on the current sheet"},
        {"add view",         "X Y [turn A B C]",  kMain, kLeaves, AddView,         "place a view of the drawing's model on the current sheet, at its scale; X Y beside VIEW: a projection"},
        {"erase",            "FILE",              kMain, kLeaves, EraseModel,      "drop a model from memory; what was not saved is lost"},
        {"hand out",         "FILE",              kAny,  kKeeps,  HandOut,         "copy a file of drive C to the folder of results"},
        {"script",           "FILE [ON]",         kAny,  kKeeps,  RunScriptFile,   "in the demonstration: let another program, a Python script beside this one, work on a file of drive C"},
        {"start",            "[VERSION]",         kMain, kLeaves, StartPlugin,     "load the plug-in, into this version of the host: 5.0, Creo 2.0"},
        {"stop",             "",                  kMain, kLeaves, StopPlugin,      "unload the plug-in"},
        {"note",             "TEXT",              kAny,  kKeeps,  Note,            "put a line into the transcript"},
        {"help",             "",                  kAny,  kKeeps,  Help,            "how to go about it"},
        {"help words",       "",                  kAny,  kKeeps,  HelpWords,       "this list"},
    };
    // clang-format on
    return words;
}

const Word* FindWord(const std::string& text, std::string* rest) {
    const Word* longest = nullptr;
    std::size_t length = 0;
    for (const Word& word : Words()) {
        const std::string name = word.name;
        if (name.size() <= length || !Begins(text, name)) continue;
        longest = &word;
        length = name.size();
    }
    if (longest && rest) *rest = Trimmed(text.substr(length));
    return longest;
}

void PerformWord(Trail& trail, const std::string& text) {
    std::string rest;
    if (const Word* word = FindWord(text, &rest)) {
        if (*word->arguments == '\0' && !rest.empty()) {
            trail.Fail(
                fmt::format("nothing belongs after {}, but there is \"{}\"", word->name, rest));
            return;
        }
        word->perform(trail, rest);
        return;
    }
    if (Begins(text, "expect")) return trail.Fail(UnknownExpectation(text));
    std::vector<std::string> names = TheHost().commands.Names();
    for (const Word& word : Words()) names.emplace_back(word.name);
    const std::string first = text.substr(0, text.find(' '));
    std::string hint = DidYouMean(text, names);
    if (hint.empty()) hint = DidYouMean(first, names);
    if (hint.empty()) hint = UnloadedHint();
    trail.Fail(fmt::format("nothing is called \"{}\"{}", text, hint.empty() ? "; try help" : hint));
}

bool NeedsTheMainWindow(const Step& step) {
    const Word* word = FindWord(step.text, nullptr);
    return word && word->mainWindow;
}

bool KeepsPopup(const Step& step) {
    // A command that lies in the popup itself.
    if (step.verb == "Command" && !step.arguments.empty()) return IsInPopup(step.arguments[0]);
    if (step.kind != Step::Kind::Word) return false;
    const Word* word = FindWord(step.text, nullptr);
    return !word || word->keepsPopup;
}

std::optional<bool> IsLoaded() {
    if (!TheHooks().loaded) return std::nullopt;
    return TheHooks().loaded();
}

std::string UnloadedHint() {
    return IsLoaded() == false ? "; the plug-in is not loaded: start loads it" : "";
}

Hooks& TheHooks() {
    static Hooks hooks;
    return hooks;
}

}  // namespace simhost
