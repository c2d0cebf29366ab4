// Counting, failing and recording of the calls through the door, and how values look in the
// journal.
#include "simhost/core/operation.h"

#include <fmt/format.h>

#include <algorithm>

#include "simhost/core/handles.h"
#include "simhost/core/text.h"
#include "simhost/host.h"
#include "simhost/model/drawing.h"

namespace simhost {

namespace {

std::map<std::string, Operation*>& Registry() {
    static std::map<std::string, Operation*> operations;
    return operations;
}

std::vector<Fault>& Faults() {
    static std::vector<Fault> faults;
    return faults;
}

std::uint64_t firedFaults = 0;

}  // namespace

bool Operation::journalling = false;
bool Operation::faultsArmed = false;

void Refuse(int status) {
    throw Refusal{status, {}};
}

void Complain(int status, std::string complaint) {
    throw Refusal{status, std::move(complaint)};
}

Operation::Operation(const char* name) : name_(name) {
    Registry()[name] = this;
}

const std::map<std::string, Operation*>& Operation::All() {
    return Registry();
}

void Operation::Fail(Fault fault) {
    Faults().push_back(std::move(fault));
    faultsArmed = true;
}

void Operation::ForgetFaults() {
    Faults().clear();
    faultsArmed = false;
    firedFaults = 0;
}

std::uint64_t Operation::FiredFaults() {
    return firedFaults;
}

void Operation::ResetCounts() {
    for (auto& [name, operation] : Registry()) operation->calls_ = 0;
}

std::uint64_t Operation::TotalCalls() {
    std::uint64_t total = 0;
    for (const auto& [name, operation] : Registry()) total += operation->calls_;
    return total;
}

bool Operation::Fails(int* status) {
    for (Fault& fault : Faults()) {
        if (fault.operation != name_ || fault.n == 0) continue;
        if (--fault.n > 0) continue;
        if (fault.forGood) fault.n = 1;
        *status = fault.status;
        ++firedFaults;
        return true;
    }
    return false;
}

void Operation::Report(const Refusal& refusal) {
    if (!refusal.complaint.empty()) {
        TheHost().Complain(fmt::format("{}: {}", name_, refusal.complaint));
    }
}

long Operation::Begin() {
    return TheHost().journal.Begin(name_);
}

void Operation::End(long line, const std::string& arguments, const std::string& result) {
    TheHost().journal.End(line, arguments, result);
}

void Operation::Add(std::string* text, const char* name, const std::string& value) {
    if (!text->empty()) *text += ", ";
    *text += name;
    *text += '=';
    *text += value;
}

// --- Values in the journal ---

// clang-format off
std::string Describe(int value) { return fmt::format("{}", value); }
std::string Describe(unsigned value) { return fmt::format("{}", value); }
std::string Describe(long value) { return fmt::format("{}", value); }
std::string Describe(unsigned long value) { return fmt::format("{}", value); }
std::string Describe(long long value) { return fmt::format("{}", value); }
std::string Describe(unsigned long long value) { return fmt::format("{}", value); }
std::string Describe(double value) { return fmt::format("{}", value); }
// clang-format on

namespace {

std::string Quoted(const std::string& utf8) {
    std::string text = "\"";
    for (char c : utf8) {
        switch (c) {
            case '\t': text += "\\t"; break;
            case '\n': text += "\\n"; break;
            case '\r': text += "\\r"; break;
            case '"': text += "\\\""; break;
            default: text += c;
        }
    }
    return text + '"';
}

}  // namespace

std::string Describe(const char* text) {
    return text ? Quoted(Utf8(FromSystemCodePage(text))) : "null";
}

std::string Describe(const WideChar* text) {
    return text ? Quoted(Utf8(text)) : "null";
}

std::string Describe(const void* handle) {
    if (!handle) return "null";
    const Session& session = TheHost().session;
    switch (KindOf(handle)) {
        case HandleKind::Model:
            if (const Model* model = session.Find(const_cast<void*>(handle))) {
                return model->FileName();
            }
            return "dangling model";
        case HandleKind::Object:
            if (const Model* model = session.FindObject(handle)) {
                return model->FileName() + " object";
            }
            break;
        case HandleKind::Surface:
            if (const Surface* surface = session.FindSurface(handle)) {
                return fmt::format("{} surface {}", surface->part->FileName(), surface->id);
            }
            break;
        case HandleKind::Selection:
            if (const Selection* selection = session.FindSelection(handle)) {
                return "selection of " + Describe(selection->item);
            }
            break;
        case HandleKind::View: return DescribeView(handle);
        case HandleKind::Command: return TheHost().commands.Describe(handle);
    }
    return "pointer";
}

std::string Describe(const ProModelitem& item) {
    return fmt::format("{} item {} of type {}", Describe(static_cast<const void*>(item.owner)),
                       item.id, int(item.type));
}

std::string Describe(const ProParameter& parameter) {
    const WideChar* id = parameter.id;
    const WideText name(id, std::find(id, id + PRO_NAME_SIZE, WideChar{}));
    return fmt::format("{} of {}", Quoted(Utf8(name)), Describe(parameter.owner.owner));
}

std::string Describe(const ProParamvalue& value) {
    Parameter parameter;
    TakeValue(value, &parameter);
    const std::string text = ValueText(parameter);
    return parameter.type == PRO_PARAM_STRING ? Quoted(text) : text;
}

}  // namespace simhost
