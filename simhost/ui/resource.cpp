// The parser of dialog resources: first lists of words and lists, then their meaning.
#include "simhost/ui/resource.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <iterator>
#include <set>

#include "simhost/ui/near_name.h"

namespace simhost {
namespace {

struct Node {
    bool list = false;
    bool quoted = false;
    std::string word;
    std::vector<Node> items;
    int line = 0;

    bool IsWord() const { return !list && !quoted; }
    bool Starts(std::string_view name) const {
        return list && !items.empty() && items[0].IsWord() && items[0].word == name;
    }
};

// Deeper than any dialog nests its grids; keeps a broken file from exhausting the stack.
constexpr int kMostDepth = 100;

class Reader {
public:
    Reader(std::string_view text, const std::string& file) : text_(text), file_(file) {
        if (text_.substr(0, 3) == "\xef\xbb\xbf") text_.remove_prefix(3);
    }

    Node ReadOnly() {
        SkipBlanks();
        if (at_ == text_.size()) Fail("the file holds no dialog");
        Node node = Read(0);
        SkipBlanks();
        if (at_ != text_.size()) Fail("there is something after the dialog's last parenthesis");
        return node;
    }

    [[noreturn]] void Fail(const std::string& what) const { Fail(line_, what); }
    [[noreturn]] void Fail(int line, const std::string& what) const {
        throw ResourceError(fmt::format("{}:{}: {}", file_, line, what));
    }

private:
    void SkipBlanks() {
        for (; at_ < text_.size(); ++at_) {
            if (text_[at_] == '!') {
                while (at_ < text_.size() && text_[at_] != '\n') ++at_;
                if (at_ == text_.size()) return;
            }
            if (text_[at_] == '\n') {
                ++line_;
            } else if (text_[at_] != ' ' && text_[at_] != '\t' && text_[at_] != '\r') {
                return;
            }
        }
    }

    Node Read(int depth) {
        if (depth > kMostDepth) Fail("the lists are nested too deeply");
        if (text_[at_] == '(') return ReadList(depth);
        if (text_[at_] == '"') return ReadText();
        if (text_[at_] == ')') Fail("a parenthesis is closed that was never opened");
        Node node;
        node.line = line_;
        constexpr std::string_view kEnds = " \t\r\n()\"!";
        const std::size_t end = std::min(text_.find_first_of(kEnds, at_), text_.size());
        node.word = text_.substr(at_, end - at_);
        at_ = end;
        return node;
    }

    Node ReadList(int depth) {
        Node node;
        node.list = true;
        node.line = line_;
        ++at_;
        for (SkipBlanks(); at_ < text_.size() && text_[at_] != ')'; SkipBlanks()) {
            node.items.push_back(Read(depth + 1));
        }
        if (at_ == text_.size()) Fail(node.line, "the list that begins here is never closed");
        ++at_;
        return node;
    }

    Node ReadText() {
        Node node;
        node.quoted = true;
        node.line = line_;
        for (++at_; at_ < text_.size() && text_[at_] != '"'; ++at_) {
            if (text_[at_] == '\n') ++line_;
            if (text_[at_] == '\\' && at_ + 1 < text_.size()) {
                ++at_;
                node.word += text_[at_] == 'n' ? '\n' : text_[at_] == 't' ? '\t' : text_[at_];
            } else {
                node.word += text_[at_];
            }
        }
        if (at_ == text_.size()) Fail(node.line, "the text that begins here is never closed");
        ++at_;
        return node;
    }

    std::string_view text_;
    std::string file_;
    std::size_t at_ = 0;
    int line_ = 1;
};

// The attributes that the host knows. A Layout is known of every kind that can hold components.
struct KindAttributes {
    const char* kind;  // empty: of the dialog itself
    std::vector<std::string> names;
};
const std::vector<std::string> kCommonAttributes = {
    "Label", "Sensitive", "Visible", "TopOffset", "BottomOffset", "LeftOffset", "RightOffset"};
const std::vector<KindAttributes> kKindAttributes = {
    {"", {"Label", "DefaultButton"}},
    {"CheckButton", {"Set"}},
    {"DrawingArea", {"Width", "Height"}},
    {"InputPanel", {"Value", "Columns"}},
    {"Label", {"Bitmap"}},
    {"Layout", {"Decorated"}},
    {"OptionMenu", {"Names", "Labels", "Value", "Columns"}},
    {"PushButton", {}},
    {"RadioGroup", {"Names", "Labels", "SelectedNames", "Orientation"}},
    {"Separator", {}},
    {"Table", {"ColumnNames", "ColumnLabels", "VisibleRows", "Columns"}},
    {"TextArea", {"Value", "Columns", "Rows"}},
};

std::vector<std::string> AttributesOf(const std::string& kind) {
    std::vector<std::string> names = kind.empty() ? std::vector<std::string>() : kCommonAttributes;
    for (const KindAttributes& row : kKindAttributes) {
        if (kind == row.kind) names.insert(names.end(), row.names.begin(), row.names.end());
    }
    return names;
}

class Meaning {
public:
    explicit Meaning(const Reader& reader) : reader_(reader) {}

    DialogResource Of(const Node& dialog) {
        if (!dialog.Starts("Dialog") || dialog.items.size() < 2 || dialog.items[1].list) {
            reader_.Fail(dialog.line, "a resource begins with (Dialog NAME");
        }
        resource_.name = dialog.items[1].word;
        for (std::size_t i = 2; i < dialog.items.size(); ++i) {
            const Node& part = dialog.items[i];
            if (part.Starts("Components")) {
                ReadComponents(part);
            } else if (part.Starts("Resources")) {
                for (std::size_t k = 1; k < part.items.size(); ++k) ReadAttribute(part.items[k]);
            } else {
                reader_.Fail(part.line, "only Components and Resources belong here");
            }
        }
        CheckDefaultButton();
        return std::move(resource_);
    }

private:
    bool Declared(const std::string& name) const {
        return std::any_of(resource_.components.begin(), resource_.components.end(),
                           [&](const ResourceComponent& each) { return each.name == name; });
    }

    // Empty for the dialog itself.
    std::string KindOf(const std::string& component) const {
        for (const ResourceComponent& each : resource_.components) {
            if (each.name == component) return each.kind;
        }
        return {};
    }

    void CheckName(const ResourceAttribute& attribute) const {
        const std::string kind = KindOf(attribute.component);
        const std::vector<std::string> known = AttributesOf(kind);
        if (std::find(known.begin(), known.end(), attribute.name) != known.end()) return;
        reader_.Fail(attribute.line,
                     fmt::format("a {} has no attribute {}{}", kind.empty() ? "dialog" : kind,
                                 attribute.name, DidYouMean(attribute.name, known)));
    }

    void CheckDefaultButton() const {
        for (const ResourceAttribute& attribute : resource_.attributes) {
            if (!attribute.component.empty() || attribute.name != "DefaultButton") continue;
            const std::string name = attribute.values.empty() ? "" : attribute.values[0];
            std::vector<std::string> buttons;
            for (const ResourceComponent& each : resource_.components) {
                if (each.kind == "PushButton") buttons.push_back(each.name);
            }
            if (std::find(buttons.begin(), buttons.end(), name) != buttons.end()) continue;
            reader_.Fail(attribute.line, fmt::format("the default button {} is no push-button{}",
                                                     name, DidYouMean(name, buttons)));
        }
    }

    void ReadComponents(const Node& part) {
        for (std::size_t i = 1; i < part.items.size(); ++i) {
            const Node& item = part.items[i];
            if (item.items.size() != 2 || item.items[0].list || item.items[1].list) {
                reader_.Fail(item.line, "a component is (Kind NAME)");
            }
            const std::string& name = item.items[1].word;
            if (Declared(name)) {
                reader_.Fail(item.line, fmt::format("the component {} is there twice", name));
            }
            const std::string& kind = item.items[0].word;
            std::vector<std::string> kinds(std::size(kKindAttributes));
            std::transform(std::begin(kKindAttributes), std::end(kKindAttributes), kinds.begin(),
                           [](const KindAttributes& row) { return row.kind; });
            if (kind.empty() || std::find(kinds.begin(), kinds.end(), kind) == kinds.end()) {
                reader_.Fail(item.line, fmt::format("there is no kind of component {}{}", kind,
                                                    DidYouMean(kind, kinds)));
            }
            resource_.components.push_back({kind, name, item.line});
        }
    }

    void ReadAttribute(const Node& node) {
        const std::size_t dot = !node.items.empty() && node.items[0].IsWord()
                                    ? node.items[0].word.rfind('.')
                                    : std::string::npos;
        if (dot == std::string::npos) {
            reader_.Fail(node.line, "an attribute is (COMPONENT.Name value) or (.Name value)");
        }
        ResourceAttribute attribute;
        attribute.component = node.items[0].word.substr(0, dot);
        attribute.name = node.items[0].word.substr(dot + 1);
        attribute.line = node.line;
        if (!attribute.component.empty() && !Declared(attribute.component)) {
            reader_.Fail(node.line, fmt::format("no component {} is declared before its {}",
                                                attribute.component, attribute.name));
        }
        if (attribute.name == "Layout") {
            ReadLayout(node, attribute.component);
            return;
        }
        CheckName(attribute);
        if (resource_.Find(attribute.component, attribute.name)) {
            reader_.Fail(node.line, fmt::format("{} is given twice", node.items[0].word));
        }
        for (std::size_t i = 1; i < node.items.size(); ++i) {
            if (node.items[i].list) reader_.Fail(node.items[i].line, "a value is no list");
            attribute.values.push_back(node.items[i].word);
        }
        resource_.attributes.push_back(std::move(attribute));
    }

    void ReadLayout(const Node& node, const std::string& component) {
        if (node.items.size() != 2 || !node.items[1].Starts("Grid")) {
            reader_.Fail(node.line, "a layout is one (Grid (Rows …) (Cols …) …)");
        }
        if (!resource_.layouts.emplace(component, ReadGrid(node.items[1])).second) {
            reader_.Fail(node.line, "a second layout");
        }
    }

    std::vector<int> Weights(const Node& node) {
        std::vector<int> weights;
        for (std::size_t i = 1; i < node.items.size(); ++i) {
            const std::string& word = node.items[i].word;
            int weight = 0;
            const auto [end, error] =
                std::from_chars(word.data(), word.data() + word.size(), weight);
            if (node.items[i].list || error != std::errc() || end != word.data() + word.size()) {
                reader_.Fail(node.items[i].line, "rows and columns are whole numbers");
            }
            weights.push_back(weight);
        }
        return weights;
    }

    Grid ReadGrid(const Node& node) {
        Grid grid;
        for (std::size_t i = 1; i < node.items.size(); ++i) {
            const Node& item = node.items[i];
            if (item.Starts("Rows")) {
                grid.rows = Weights(item);
            } else if (item.Starts("Cols")) {
                grid.cols = Weights(item);
            } else if (item.Starts("Grid")) {
                grid.children.push_back(ReadGrid(item));
            } else if (item.list) {
                reader_.Fail(item.line, "a grid holds Rows, Cols, grids and components");
            } else {
                if (!Declared(item.word)) {
                    reader_.Fail(item.line, fmt::format("no component {} is declared", item.word));
                }
                // Once only: layouts that hold each other would have no end.
                if (!laidOut_.insert(item.word).second) {
                    reader_.Fail(item.line, fmt::format("{} is laid out twice", item.word));
                }
                grid.children.emplace_back().component = item.word;
            }
        }
        if (grid.rows.empty()) grid.rows.push_back(1);
        if (grid.cols.empty()) grid.cols.push_back(1);
        if (grid.children.size() > grid.rows.size() * grid.cols.size()) {
            reader_.Fail(node.line,
                         fmt::format("{} children in a grid of {} rows and {} columns",
                                     grid.children.size(), grid.rows.size(), grid.cols.size()));
        }
        return grid;
    }

    const Reader& reader_;
    DialogResource resource_;
    std::set<std::string> laidOut_;
};

}  // namespace

const std::vector<std::string>* DialogResource::Find(std::string_view component,
                                                     std::string_view attributeName) const {
    for (const ResourceAttribute& attribute : attributes) {
        if (attribute.component == component && attribute.name == attributeName) {
            return &attribute.values;
        }
    }
    return nullptr;
}

int DialogResource::Whole(std::string_view component, std::string_view attributeName,
                          int byDefault) const {
    const std::vector<std::string>* found = Find(component, attributeName);
    int number = byDefault;
    if (!found || found->empty()) return number;
    const std::string& text = found->front();
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

DialogResource ParseResource(std::string_view text, const std::string& fileName) {
    Reader reader(text, fileName);
    const Node dialog = reader.ReadOnly();
    return Meaning(reader).Of(dialog);
}

}  // namespace simhost
