// The file dialog that is open, for whoever sits before it.
#pragma once

#include "simhost/user/desk.h"

namespace simhost {

// Lies on the desk for as long as its dialog is open.
class OpenFileDialog {
public:
    OpenFileDialog(Desk& desk, const FileQuestion& question)
        : desk_(desk), before_(desk.fileQuestion) {
        desk_.fileQuestion = &question;
    }
    ~OpenFileDialog() { desk_.fileQuestion = before_; }
    OpenFileDialog(const OpenFileDialog&) = delete;
    OpenFileDialog& operator=(const OpenFileDialog&) = delete;

private:
    Desk& desk_;
    const FileQuestion* before_;
};

}  // namespace simhost
