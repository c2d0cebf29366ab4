// The @ words of scripts: what a trail of the host cannot say.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hostapi/host.h"
#include "simhost/trail/lexer.h"

namespace simhost {

class Trail;
class Model;
struct ScreenBox;

struct Word {
    const char* name;       // one or more words, such as "expect box"
    const char* arguments;  // for people: "TEXT"
    // A user who is held by a box, a prompt or a dialog cannot do this.
    bool mainWindow;
    // An open popup menu stays open.
    bool keepsPopup;
    void (*perform)(Trail& trail, const std::string& rest);
    const char* help;
    bool presses = false;  // lets the plug-in work, so that what it changed is told
};

// What help says: lines to type, with what they do. `plays`: an example that works on the sample
// gearbox as it is shipped, one after the other.
struct HelpLine {
    const char *typed, *english, *chinese;
    bool plays;
};
const std::vector<HelpLine>& HelpLines();
const char* ChineseHelp(std::string_view word);  // empty for a word that has none

const std::vector<Word>& Words();
// The word that the text begins with (the longest that fits), with what follows it.
const Word* FindWord(const std::string& text, std::string* rest);

void PerformWord(Trail& trail, const std::string& text);
// The model of this file; a failure of the script and null if it is not in memory.
Model* InMemory(Trail& trail, const std::string& file);
// Whether the plug-in is loaded; nothing where nobody can tell.
std::optional<bool> IsLoaded();
// "; the plug-in is not loaded: start loads it", or nothing: for commands that do not exist.
std::string UnloadedHint();
bool NeedsTheMainWindow(const Step& step);
bool KeepsPopup(const Step& step);

// Two corners of a box on the screen, "X Y X Y"; false: they are none, and that has been told, with
// the hint behind it.
bool TakeScreenBox(Trail& trail, const std::string& rest, ScreenBox* box, const char* hint = "");
// Whether the user can select now; that he cannot has been told.
bool MaySelect(Trail& trail);

// --- The words by topic (words_*.cpp); all fail through trail.Fail -----------------------------

void OpenModel(Trail& trail, const std::string& rest);
void SwitchWindow(Trail& trail, const std::string& rest);
void CloseModel(Trail& trail, const std::string& rest);
void ChangeDirectory(Trail& trail, const std::string& rest);
void SelectItems(Trail& trail, const std::string& rest);
void TurnView(Trail& trail, const std::string& rest);
void SelectAlso(Trail& trail, const std::string& rest);
void Deselect(Trail& trail, const std::string& rest);
void SelectBox(Trail& trail, const std::string& rest);
void SelectMoreByBox(Trail& trail, const std::string& rest);
void ClearSelection(Trail& trail, const std::string& rest);
void SelectNothing(Trail& trail, const std::string& rest);
void SaveModel(Trail& trail, const std::string& rest);
void SaveAllModels(Trail& trail, const std::string& rest);
void WriteSetting(Trail& trail, const std::string& rest);
void WaitSeconds(Trail& trail, const std::string& rest);
void SetTime(Trail& trail, const std::string& rest);
void DrawPicture(Trail& trail, const std::string& rest);
void DrawScreen(Trail& trail, const std::string& rest);
void ExpectTransparency(Trail& trail, const std::string& rest);
void StartPlugin(Trail& trail, const std::string& rest);
void StopPlugin(Trail& trail, const std::string& rest);

void RightClick(Trail& trail, const std::string& rest);
void ChooseEntry(Trail& trail, const std::string& rest);
void PressMenuButton(Trail& trail, const std::string& rest);
void PressMappedKey(Trail& trail, const std::string& rest);
void AnswerOk(Trail& trail, const std::string& rest);
void PressEnter(Trail& trail, const std::string& rest);
void AnswerText(Trail& trail, const std::string& rest);
void PickItems(Trail& trail, const std::string& rest);
void PickBox(Trail& trail, const std::string& rest);
void PickNothing(Trail& trail, const std::string& rest);
void Quit(Trail& trail, const std::string& rest);

void ExpectBox(Trail& trail, const std::string& rest);
void ExpectCaption(Trail& trail, const std::string& rest);
void ExpectNoBox(Trail& trail, const std::string& rest);
void ExpectMessage(Trail& trail, const std::string& rest);
void ExpectDialog(Trail& trail, const std::string& rest);
void ExpectColour(Trail& trail, const std::string& rest);
void ExpectGreyed(Trail& trail, const std::string& rest);
void ExpectAvailable(Trail& trail, const std::string& rest);
void ExpectButton(Trail& trail, const std::string& rest);
void ExpectNoButton(Trail& trail, const std::string& rest);

void ExpectParameter(Trail& trail, const std::string& rest);
void ExpectRelations(Trail& trail, const std::string& rest);
void ExpectViews(Trail& trail, const std::string& rest);
void ExpectScale(Trail& trail, const std::string& rest);
void ExpectFormat(Trail& trail, const std::string& rest);
void TurnToSheet(Trail& trail, const std::string& rest);
void SetParameter(Trail& trail, const std::string& rest);
void ExpectExtents(Trail& trail, const std::string& rest);
void ShowParameters(Trail& trail);
void ShowRelations(Trail& trail);
void ShowSheets(Trail& trail);
void ShowViews(Trail& trail);

void PickInView(Trail& trail, const std::string& rest);
void PickAt(Trail& trail, const std::string& rest);
void ClickSheet(Trail& trail, const std::string& rest);
void ExpectDimension(Trail& trail, const std::string& rest);
void ExpectDimensions(Trail& trail, const std::string& rest);
void EraseDimension(Trail& trail, const std::string& rest);
void AddNote(Trail& trail, const std::string& rest);
void AddView(Trail& trail, const std::string& rest);
void ShowEdges(Trail& trail, const std::string& rest);
void ShowDimensions(Trail& trail);

void SetOption(Trail& trail, const std::string& rest);
void ExpectOption(Trail& trail, const std::string& rest);
void ShowOptions(Trail& trail);

void ExpectMaterial(Trail& trail, const std::string& rest);
void ExpectMass(Trail& trail, const std::string& rest);
void ExpectBendTable(Trail& trail, const std::string& rest);
void ExpectDevelopedLength(Trail& trail, const std::string& rest);
void ShowMaterials(Trail& trail);
void ShowMasses(Trail& trail);
void ShowBends(Trail& trail);
void ActivateComponent(Trail& trail, const std::string& rest);
void RegenerateModel(Trail& trail, const std::string& rest);
void ExpectConstraints(Trail& trail, const std::string& rest);
void ExpectPlace(Trail& trail, const std::string& rest);
void ExpectFile(Trail& trail, const std::string& rest);
void ExpectNoFile(Trail& trail, const std::string& rest);
// The components below the current model: their newest files in the working folder, constraints.
void ShowComponents(Trail& trail);
void ShowConstraints(Trail& trail);
void ShowUnits(Trail& trail, const std::string& rest);    // of a model, or of all in memory
void ShowOutline(Trail& trail, const std::string& rest);  // of a model, or of the current one
void ExpectUnit(Trail& trail, const std::string& rest);
// "25.4 x 10 x 5 mm", in the model's unit of length; empty: it has no geometry. And the place of
// its first component that is not at the origin, "(1, 2, 3)"; empty: it has none.
std::string SizeText(const Model& model);
std::string FirstPlaceText(const Model& model);

void ShowTitle(Trail& trail, const std::string& rest);
void RememberFacts(Trail& trail, const std::string& rest);
void ShowFactTable(Trail& trail, const std::string& rest);
void EraseModel(Trail& trail, const std::string& rest);
void HandOut(Trail& trail, const std::string& rest);
void RunScriptFile(Trail& trail, const std::string& rest);

void MakeFolder(Trail& trail, const std::string& rest);
void ImportFile(Trail& trail, const std::string& rest);
void RememberFiles(Trail& trail, const std::string& rest);
void ExpectSameFiles(Trail& trail, const std::string& rest);
void ShowFiles(Trail& trail, const std::string& rest);       // of a folder, or the working one
void ShowReferences(Trail& trail, const std::string& rest);  // of a file, or of all files

void HoldFile(Trail& trail, const std::string& rest);
void LetGoFile(Trail& trail, const std::string& rest);
void MakeReadOnly(Trail& trail, const std::string& rest);
void HoldClipboard(Trail& trail, const std::string& rest);
void LetGoClipboard(Trail& trail, const std::string& rest);
void ExpectClipboard(Trail& trail, const std::string& rest);

void ExpectRows(Trail& trail, const std::string& rest);
void ExpectColumns(Trail& trail, const std::string& rest);
void ExpectRow(Trail& trail, const std::string& rest);
void ExpectRowColours(Trail& trail, const std::string& rest);
void ExpectCell(Trail& trail, const std::string& rest);
void ExpectFocus(Trail& trail, const std::string& rest);
void ShowTables(Trail& trail);

void Show(Trail& trail, const std::string& rest);
const std::vector<std::string>& ShowTopics();
std::string ColourWords(const ProdbSurfaceProps& props);  // "255.128.0": red, green, blue
void Note(Trail& trail, const std::string& rest);
void Help(Trail& trail, const std::string& rest);
void HelpWords(Trail& trail, const std::string& rest);

}  // namespace simhost
