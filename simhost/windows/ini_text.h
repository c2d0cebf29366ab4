// The text of an INI file by Windows' rules: one form that is quick to look values up in, and one
// that can be changed while every line that is not touched stays as it was.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "hostapi/wide.h"

namespace simhost {

// The rules, for both forms:
// - The file is UTF-16LE if it begins with that byte-order mark, else in the system's code page.
// - Blanks (also tabs and other control blanks) at both ends of a line, of a name and of a value
//   do not count. Names are compared ignoring case.
// - A line that begins with `[` is a header; the name ends at the last `]` of the line, so that
//   `[A]]` names the section `A]`. What follows is ignored; a header without `]` is no line.
// - A line that begins with `;` is a comment. A `;` elsewhere is text.
// - A line with `=` is a key up to the first `=`; a line without one is no key.
// - Keys above the first header belong to the section without a name.
// - Of sections with one name only the first is seen, of keys with one name in it the first.
// - A value in a pair of ' or " is read without the pair.

// A name as it is compared: without blanks around it, in small letters.
WideText FoldName(WideView name);

// What can be asked of a file. Made from its bytes once, then each look-up is one of a table.
class IniTable {
public:
    explicit IniTable(std::string_view bytes);

    // Null if the file has no such section or key.
    const WideText* Find(WideView section, WideView key) const;
    // In the file's order, as written there; repeated names repeatedly.
    std::vector<WideText> Keys(WideView section) const;
    const std::vector<WideText>& Sections() const { return sectionNames_; }

private:
    struct Section {
        std::vector<WideText> keyNames;
        std::unordered_map<WideText, WideText> values;
    };
    std::unordered_map<WideText, Section> sections_;
    std::vector<WideText> sectionNames_;
};

// The file's bytes with a key written: an existing one gets the new value, a new one is put below
// the last line of its section that is not empty, a new section at the end of the file.
std::string WithIniKey(std::string_view bytes, WideView section, WideView key, WideView value);
// The same without the key, or without the section and all its lines. Unchanged if there is none.
std::string WithoutIniKey(std::string_view bytes, WideView section, WideView key);
std::string WithoutIniSection(std::string_view bytes, WideView section);

}  // namespace simhost
