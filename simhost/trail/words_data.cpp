// The @ words about the data of models: parameters, relations, family tables.
#include <fmt/format.h>

#include "simhost/core/text.h"
#include "simhost/trail/interpreter.h"
#include "simhost/trail/words.h"
#include "simhost/ui/near_name.h"
#include "simhost/ui/text_frame.h"

namespace simhost {
namespace {

// A value as it is typed: a text in quotes, YES or NO, a number with or without a point.
bool ParseValue(const std::string& written, Parameter* parameter) {
    const TextArgument argument = ParseText(written);
    if (argument.quoted) {
        *parameter = TextParameter(parameter->name, Wide(argument.text));
        return true;
    }
    const std::string& text = argument.text;
    if (text == "YES" || text == "NO") {
        *parameter = FlagParameter(parameter->name, text == "YES");
        return true;
    }
    if (text.empty() || text.find_first_not_of("+-.0123456789eE") != std::string::npos)
        return false;
    if (text.find_first_of(".eE") == std::string::npos) {
        *parameter = WholeParameter(parameter->name, std::atoi(text.c_str()));
    } else {
        *parameter = RealParameter(parameter->name, std::atof(text.c_str()));
    }
    return true;
}

// A value as it is typed.
std::string Written(const Parameter& parameter) {
    const std::string text = ValueText(parameter);
    return parameter.type == PRO_PARAM_STRING ? Visible(Wide(text)) : text;
}

std::string RelationsText(const Model& model) {
    std::string text;
    const auto add = [&](const std::vector<WideText>& lines) {
        for (const WideText& line : lines) text += (text.empty() ? "" : " / ") + Utf8(line);
    };
    if (model.relations.initial) add(*model.relations.initial);
    if (!model.relations.afterRegeneration.empty()) {
        text += text.empty() ? "after: " : " / after: ";
        std::string after;
        for (const WideText& line : model.relations.afterRegeneration) {
            after += (after.empty() ? "" : " / ") + Utf8(line);
        }
        text += after;
    }
    return text;
}

}  // namespace

void ExpectParameter(Trail& trail, const std::string& rest) {
    std::string left = rest;
    Model* model = InMemory(trail, TakeWord(&left));
    if (!model) return;
    const std::string name = TakeWord(&left);
    const TextArgument expected = ParseText(left);
    const Parameter* found = ShownParameter(*model, Wide(name));
    if (!expected.quoted && expected.text == "none") {
        if (found) {
            trail.Fail(fmt::format("{} of {} is {}, and should not be there", name,
                                   model->FileName(), Written(*found)));
        }
    } else if (!found) {
        std::vector<std::string> names;
        for (const Parameter& each : model->parameters.all()) names.push_back(Utf8(each.name));
        trail.Fail(fmt::format("{} has no parameter {}{}", model->FileName(), name,
                               DidYouMean(name, names)));
    } else if (ValueText(*found) != expected.text) {
        const std::string wanted = expected.quoted || found->type == PRO_PARAM_STRING
                                       ? Visible(Wide(expected.text))
                                       : expected.text;
        trail.Fail(fmt::format("{} of {} is {}, not {}", name, model->FileName(), Written(*found),
                               wanted));
    }
}

void SetParameter(Trail& trail, const std::string& rest) {
    std::string left = rest;
    Model* model = InMemory(trail, TakeWord(&left));
    if (!model) return;
    Parameter parameter;
    parameter.name = Wide(TakeWord(&left));
    if (!IsParameterName(parameter.name) || !ParseValue(left, &parameter)) {
        return trail.Fail("a parameter is MODEL NAME VALUE: a number, YES, NO or a \"text\"");
    }
    if (const char* why = WhyFixed(*model, parameter.name)) {
        return trail.Fail(fmt::format("{} cannot be changed: {}", Utf8(parameter.name), why));
    }
    model->parameters.Set(parameter);
    model->modified = true;
}

void ExpectRelations(Trail& trail, const std::string& rest) {
    std::string left = rest;
    Model* model = InMemory(trail, TakeWord(&left));
    if (!model) return;
    const TextArgument expected = ParseText(left);
    const std::string text = RelationsText(*model);
    const bool none = !expected.quoted && expected.text == "none";
    if (text != (none ? "" : expected.text)) trail.Fail(fmt::format("the relations are {}", text));
}

void ShowParameters(Trail& trail) {
    for (const Model* model : TheHost().session.All()) {
        for (const Parameter& one : model->parameters.all()) {
            trail.Say(fmt::format(
                "{} {} {} {}{}{}{}", Padded(model->FileName(), 28), Padded(Utf8(one.name), 20),
                Padded(ParameterTypeName(one.type), 8), ValueText(one), one.unit.empty() ? "" : " ",
                Utf8(one.unit), WhyFixed(*model, one.name) ? " (locked)" : ""));
        }
    }
}

void ShowRelations(Trail& trail) {
    for (const Model* model : TheHost().session.All()) {
        const std::string text = RelationsText(*model);
        if (!text.empty()) trail.Say(fmt::format("{} {}", Padded(model->FileName(), 28), text));
    }
}

}  // namespace simhost
