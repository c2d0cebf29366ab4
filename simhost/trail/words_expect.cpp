// The @ words that say what must be so.
#include <fmt/format.h>

#include <charconv>
#include <optional>

#include "simhost/core/text.h"
#include "simhost/trail/interpreter.h"
#include "simhost/trail/known_names.h"
#include "simhost/trail/words.h"
#include "simhost/ui/near_name.h"
#include "simhost/ui/text_frame.h"

namespace simhost {
namespace {

// A quoted text is the whole; another is a piece of it.
bool Says(const WideText& text, const TextArgument& expected) {
    const std::string utf8 = Utf8(text);
    return expected.quoted ? utf8 == expected.text : utf8.find(expected.text) != std::string::npos;
}

const Box* OpenBox(Trail& trail) {
    const Wait* wait = trail.waiting();
    if (wait && wait->kind == Wait::Kind::Box) return wait->box;
    trail.Fail("no box is open");
    return nullptr;
}

// Words of an expectation that are missing would be found in any text.
bool HasText(Trail& trail, const TextArgument& expected) {
    if (!expected.text.empty() || expected.quoted) return true;
    trail.Fail("the text that is expected is missing");
    return false;
}

void ExpectAccess(Trail& trail, const std::string& rest, bool available) {
    Commands& commands = TheHost().commands;
    const std::string name = ParseText(rest).text;
    const auto state = commands.Access(name);
    if (!state) {
        return trail.Fail(
            fmt::format("there is no command {}{}", name, DidYouMean(name, commands.Names())));
    }
    if ((*state == ACCESS_AVAILABLE) != available) {
        trail.Fail(fmt::format("{} is {} (its access rule answers {})", name, AccessWord(*state),
                               static_cast<int>(*state)));
    }
}

const PopupEntry* EntryOf(const Popup& popup, const std::string& label) {
    for (const PopupEntry& entry : popup.entries) {
        if (Utf8(entry.label) == label) return &entry;
    }
    return nullptr;
}

// A model by its file name, or by its name alone.
Model* FindModel(const std::string& name) {
    Session& session = TheHost().session;
    if (Model* model = session.FindByFile(Lower(name))) return model;
    for (Model* model : session.All()) {
        if (SameName(model->name, Wide(name))) return model;
    }
    return nullptr;
}

// A model, or one of its surfaces.
struct Painted {
    Model* model = nullptr;
    std::optional<int> surface;
};

// What MODEL[#ID] names; that there is none has been told.
std::optional<Painted> FindPainted(Trail& trail, const std::string& text) {
    std::string name(Trimmed(text));
    Painted painted;
    if (const std::size_t hash = name.rfind('#'); hash != std::string::npos) {
        int id = 0;
        const char* end = name.data() + name.size();
        const auto [parsed, error] = std::from_chars(name.data() + hash + 1, end, id);
        if (error != std::errc() || parsed != end) {
            trail.Fail("behind # belongs an id");
            return std::nullopt;
        }
        painted.surface = id;
        name = Trimmed(name.substr(0, hash));
    }
    painted.model = FindModel(name);
    if (!painted.model) {
        trail.Fail(fmt::format("the model {} is not in memory{}", name,
                               DidYouMean(name, ModelsInMemory())));
        return std::nullopt;
    }
    if (painted.surface && !painted.model->HasSurface(*painted.surface)) {
        trail.Fail(
            fmt::format("{} has no surface {}", painted.model->FileName(), *painted.surface));
        return std::nullopt;
    }
    return painted;
}

// Null: it has no appearance of its own.
const ProdbSurfaceProps* OwnLook(const Painted& painted) {
    const Model& model = *painted.model;
    if (!painted.surface) return model.appearance ? &*model.appearance : nullptr;
    const auto own = model.surfaceAppearances.find(*painted.surface);
    return own == model.surfaceAppearances.end() ? nullptr : &own->second;
}

// "255.128.0".
bool IsColour(const std::string& text) {
    const char* at = text.data();
    const char* end = at + text.size();
    for (int i = 0; i < 3; ++i) {
        int part = 0;
        if (i > 0 && (at == end || *at++ != '.')) return false;
        const auto [next, error] = std::from_chars(at, end, part);
        if (error != std::errc() || part < 0 || part > 255) return false;
        at = next;
    }
    return at == end;
}

}  // namespace

void ExpectBox(Trail& trail, const std::string& rest) {
    const TextArgument expected = ParseText(rest);
    const Box* box = OpenBox(trail);
    if (box && HasText(trail, expected) && !Says(box->text, expected)) {
        trail.Fail(fmt::format("the box says {}", Visible(box->text)));
    }
}

void ExpectCaption(Trail& trail, const std::string& rest) {
    const TextArgument expected = ParseText(rest);
    const Box* box = OpenBox(trail);
    if (!box || !HasText(trail, expected)) return;
    if (!expected.quoted && expected.text == "none") {
        if (box->hasCaption) trail.Fail(fmt::format("the caption is {}", Visible(box->caption)));
    } else if (!box->hasCaption) {
        trail.Fail("the box has the system's own caption");
    } else if (!Says(box->caption, expected)) {
        trail.Fail(fmt::format("the caption is {}", Visible(box->caption)));
    }
}

void ExpectNoBox(Trail& trail, const std::string&) {
    Wait* wait = trail.waiting();
    if (!wait || wait->kind != Wait::Kind::Box) return;
    trail.Fail(fmt::format("the box {} is open; it is answered OK", Visible(wait->box->text)));
    wait->answered = true;
}

void ExpectMessage(Trail& trail, const std::string& rest) {
    const TextArgument expected = ParseText(rest);
    const WideText& message = TheHost().messages.last();
    if (HasText(trail, expected) && !Says(message, expected)) {
        trail.Fail(fmt::format("the message line says {}", Visible(message)));
    }
}

void ExpectDialog(Trail& trail, const std::string& rest) {
    const std::string name = ParseText(rest).text;
    const Dialog* dialog = TheHost().dialogs.Active();
    const std::string open = dialog ? dialog->name() : "none";
    if (name.empty()) return trail.Fail("a dialog's name belongs after expect dialog");
    if (open == name) return;
    trail.Fail(dialog ? fmt::format("dialog {} is open", open) : std::string("no dialog is open"));
}

void ExpectColour(Trail& trail, const std::string& rest) {
    const std::string text = ParseText(rest).text;
    const std::size_t blank = text.find_last_of(" \t");
    if (blank == std::string::npos) return trail.Fail("a colour is MODEL R.G.B, or MODEL none");
    const std::string expected = text.substr(blank + 1);
    if (expected != "none" && !IsColour(expected)) {
        return trail.Fail(
            fmt::format("a colour is R.G.B, each 0 to 255, or none, not {}", expected));
    }
    const std::optional<Painted> painted = FindPainted(trail, text.substr(0, blank));
    if (!painted) return;
    const ProdbSurfaceProps* own = OwnLook(*painted);
    const std::string colour = own ? ColourWords(*own) : "none";
    if (colour != expected) {
        trail.Fail(fmt::format("the colour of {} is {}, not {}", painted->model->FileName(), colour,
                               expected));
    }
}

void ExpectTransparency(Trail& trail, const std::string& rest) {
    const std::string text = ParseText(rest).text;
    const std::size_t blank = text.find_last_of(" \t");
    if (blank == std::string::npos) {
        return trail.Fail("a transparency is MODEL VALUE, or MODEL none");
    }
    const std::string expected = text.substr(blank + 1);
    double value = 0;
    const char* end = expected.data() + expected.size();
    const auto [parsed, error] = std::from_chars(expected.data(), end, value);
    if (expected != "none" && (error != std::errc() || parsed != end)) {
        return trail.Fail(fmt::format("a transparency is a number or none, not {}", expected));
    }
    const std::optional<Painted> painted = FindPainted(trail, text.substr(0, blank));
    if (!painted) return;
    const ProdbSurfaceProps* own = OwnLook(*painted);
    // To the last bit: a value that is only nearly right is wrong.
    if (own ? expected != "none" && own->transparency == value : expected == "none") return;
    trail.Fail(fmt::format("the transparency of {} is {}, not {}", painted->model->FileName(),
                           own ? fmt::format("{}", own->transparency) : "none", expected));
}

void ExpectGreyed(Trail& trail, const std::string& rest) {
    ExpectAccess(trail, rest, /*available=*/false);
}

void ExpectAvailable(Trail& trail, const std::string& rest) {
    ExpectAccess(trail, rest, /*available=*/true);
}

void ExpectButton(Trail& trail, const std::string& rest) {
    const Popup* popup = TheHost().commands.popup();
    if (!popup) return trail.Fail("no popup is open; right-click opens one");
    const std::string label = ParseText(rest).text;
    const PopupEntry* entry = EntryOf(*popup, label);
    if (!entry) {
        trail.Fail(fmt::format("the popup {} has no button {}", popup->name, label));
    } else if (entry->state != ACCESS_AVAILABLE) {
        trail.Fail(fmt::format("the button {} is {}", label, AccessWord(entry->state)));
    }
}

void ExpectNoButton(Trail& trail, const std::string& rest) {
    const Popup* popup = TheHost().commands.popup();
    if (!popup) return trail.Fail("no popup is open; right-click opens one");
    const std::string label = ParseText(rest).text;
    if (label.empty()) return trail.Fail("a label belongs after expect no button");
    if (EntryOf(*popup, label)) {
        trail.Fail(fmt::format("the popup {} has the button {}", popup->name, label));
    }
}

}  // namespace simhost
