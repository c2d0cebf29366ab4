// Whoever sits at the host, and is asked whatever the host would ask a person; a script, a prompt
// or a robot for the fault sweep answers.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "hostapi/wide.h"

namespace simhost {

class Dialog;
class Picking;

// A message box as Windows shows it. Flags as handed to MessageBoxW.
struct Box {
    WideText text;
    WideText caption;
    bool hasCaption = false;  // false: the system's own title
    unsigned flags = 0;
};

// A click on the sheet of a drawing, in its coordinates. Buttons are 1 left, 2 middle, 4 right.
struct Click {
    double x = 0, y = 0;
    int button = 1;
};

// What a file dialog asks.
struct FileQuestion {
    WideText title;
    WideText filter;  // "*.drw", or several with commas between them
    WideText folder;  // where it opens
    WideText proposed;
    std::vector<WideText> files;  // of the folder, that fit the filter, without their versions
    bool toWrite = false;         // the name of a file that is to be written, and need not be there
    bool mayBeMissing = false;    // of a file that is to be read: the same
    bool forFolder = false;       // a folder that is there; `files` are the folders in `folder`
};

class User {
public:
    virtual ~User() = default;

    // A box is open: which button? (1 is OK.) Nobody answering is a complaint; return 1 then.
    virtual int AnswerBox(const Box& box) = 0;

    // A dialog is active: use it until dialog.ended() is true.
    virtual void UseDialog(Dialog& dialog) = 0;

    // The message line waits for a text; nothing is "the user quit the prompt".
    virtual std::optional<WideText> AnswerPrompt(const WideText& prompt,
                                                 const WideText& byDefault) = 0;

    // The host waits for a pick: use it until picking.answered() is true. Nobody picking is a
    // complaint.
    virtual void Pick(Picking&) {}

    // The host waits for a click; nothing is "the user wants none".
    virtual std::optional<Click> AnswerClick() { return std::nullopt; }

    // A file dialog is open: the full path of a file that is there, or any name for one that is to
    // be written, or the folder; nothing leaves the dialog.
    virtual std::optional<WideText> AnswerFile(const FileQuestion&) { return std::nullopt; }

    // A dialog asks whether the file of this path is to be replaced.
    virtual bool AnswerReplace(const WideText&) { return true; }
};

// What the user has been shown, in order.
struct Shown {
    enum class Kind { Box, Message, Prompt, Dialog, Program } kind;
    WideText text;  // the box's or message's text, the dialog's name, the command line
    Box box;        // for boxes
};

}  // namespace simhost
