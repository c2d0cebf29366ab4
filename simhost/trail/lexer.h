// The lines of trail files: what the host records of a user, and what a user types.
//
//     ~ Activate `Relations` `AddRels`      steps; several on a line are separated by semicolons
//     @ expect box "\tdone\t"               what a trail of the host cannot say
//     ! a comment
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace simhost {

struct Step {
    enum class Kind {
        Trail,  // verb and arguments
        Word,   // text: all after the @
        Plain,  // text: a line that is neither, such as a command's bare name
    } kind = Kind::Plain;
    std::string verb;
    std::vector<std::string> arguments;
    std::string text;
    std::string written;  // as the script has it
    std::string file;
    int line = 0;
    std::string problem;   // why it cannot be told what is meant
    bool byLabel = false;  // the user has said it by a label
};

// A line that cannot be understood; the text says why.
struct LexError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// The steps of one line; none for an empty line or a comment. Throws LexError.
std::vector<Step> LexLine(std::string_view line);

// A text argument: "quoted" with \t \n \" \\ inside, or just what is there.
struct TextArgument {
    std::string text;
    bool quoted = false;
};
// Throws LexError for a quotation that does not end, or with something after its end.
TextArgument ParseText(std::string_view argument);

// Without blanks and tabs at both ends.
std::string_view Trimmed(std::string_view text);
// The first word of a text, which is cut off it with the blanks around it.
std::string TakeWord(std::string* text);

}  // namespace simhost
