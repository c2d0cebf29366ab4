// The class of the spreadsheet application for COM, and the ways in which it can refuse.
#include "tests/windows/excel_class.h"

#include <algorithm>
#include <exception>
#include <oleauto.h>
#include <vector>

#include "hostapi/excel.h"
#include "simhost/host.h"
#include "simhost/spreadsheet/spreadsheets.h"

// The interfaces of COM have no virtual destructors; their objects end themselves.
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

namespace workbench {

const CLSID kExcelClass = {
    0x7b1c2d10, 0x52a4, 0x4f0e, {0x9a, 0x11, 0x3c, 0x5d, 0x77, 0x20, 0x64, 1}};
const WideChar* const kExcelClassText = L"{7B1C2D10-52A4-4F0E-9A11-3C5D77206401}";

namespace {

using namespace simhost;

// An application in another language than the user's settings takes English and nothing else.
constexpr LCID kEnglish = 0x0409;

std::function<void(const std::string&)> note;
ExcelTrouble trouble;
int step = 0, attempts = 0, objects = 0;

void Note(const std::string& line) {
    if (note) note(line);
}

bool IsBusyStatus(HRESULT status) {
    constexpr HRESULT kBusy[] = {RPC_E_CALL_REJECTED, RPC_E_SERVERCALL_RETRYLATER,
                                 HRESULT(0x800AC472)};
    return std::find(std::begin(kBusy), std::end(kBusy), status) != std::end(kBusy);
}

// Whether this call is the one to be refused; an application that is busy is asked the same again.
bool IsRefused() {
    ++attempts;
    if (step + 1 != trouble.step || trouble.times == 0) {
        ++step;
        return false;
    }
    --trouble.times;
    if (!IsBusyStatus(trouble.status)) ++step;
    return true;
}

// Nothing that is thrown may leave a method: on its other side is COM, which passes no exception of
// C++ on to another process. Wine's COM does not even come to an end with one.
template <class Method>
HRESULT Guarded(Method method) {
    try {
        return method();
    } catch (const std::exception& error) {
        Note(std::string("failed: ") + error.what());
    } catch (...) {
        Note("failed");
    }
    return E_UNEXPECTED;
}

// Counts references as COM does; the derived object ends with the last one.
template <class Interface>
class Counted : public Interface {
public:
    virtual ~Counted() = default;
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, __uuidof(Interface));
        *object = known ? this : nullptr;
        if (known) AddRef();
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

private:
    ULONG references_ = 1;
};

bool FromVariant(const VARIANT& value, ExcelArgument* argument) {
    switch (value.vt) {
        case VT_BSTR: *argument = {EXCEL_TEXT, value.bstrVal, 0}; return true;
        case VT_I4: *argument = {EXCEL_WHOLE, nullptr, int(value.lVal)}; return true;
        case VT_BOOL: *argument = {EXCEL_FLAG, nullptr, value.boolVal ? 1 : 0}; return true;
        case VT_ERROR:
            *argument = {EXCEL_MISSING, nullptr, 0};
            return value.scode == DISP_E_PARAMNOTFOUND;
        default: return false;
    }
}

void ToVariant(const ExcelResult& value, VARIANT* result) {
    switch (value.kind) {
        case EXCEL_TEXT:
            result->vt = VT_BSTR;
            result->bstrVal = SysAllocString(value.text.c_str());
            break;
        case EXCEL_REAL:
            result->vt = VT_R8;
            result->dblVal = value.real;
            break;
        case EXCEL_WHOLE:
            result->vt = VT_I4;
            result->lVal = value.whole;
            break;
        case EXCEL_FLAG:
            result->vt = VT_BOOL;
            result->boolVal = value.whole ? VARIANT_TRUE : VARIANT_FALSE;
            break;
        default: result->vt = VT_EMPTY;
    }
}

// An object of the application as COM shows it.
class Dispatcher : public Counted<IDispatch> {
public:
    explicit Dispatcher(ExcelObject object) : object_(object) { ++objects; }
    ~Dispatcher() override {
        TheSpreadsheets().Forget(object_);
        --objects;
    }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID locale, WORD flags,
                                     DISPPARAMS* parameters, VARIANT* result, EXCEPINFO*,
                                     UINT*) override {
        return Guarded([&] { return Take(member, locale, flags, *parameters, result); });
    }

private:
    HRESULT Take(DISPID member, LCID locale, WORD flags, const DISPPARAMS& parameters,
                 VARIANT* result) {
        if (locale != kEnglish) return TYPE_E_UNSUPFORMAT;
        if (IsRefused()) {
            Note("refused " + Words(int(member)) + ")");
            return trouble.status;
        }
        std::vector<ExcelArgument> arguments(parameters.cArgs);
        for (UINT i = 0; i < parameters.cArgs; ++i) {
            // The last argument comes first.
            if (!FromVariant(parameters.rgvarg[parameters.cArgs - 1 - i], &arguments[i])) {
                return DISP_E_TYPEMISMATCH;
            }
        }
        const bool isPut = flags == DISPATCH_PROPERTYPUT;
        const bool isNamed =
            parameters.cNamedArgs == 1 && parameters.rgdispidNamedArgs[0] == DISPID_PROPERTYPUT;
        if (isPut != isNamed) return DISP_E_PARAMNOTFOUND;
        return Answer(int(member), UseOf(flags, int(member)), arguments, result);
    }

    std::string Words(int member) const {
        const Spreadsheets& sheets = TheSpreadsheets();
        return "(object=" + sheets.Describe(object_) +
               ", member=" + sheets.MemberName(object_, member);
    }

    static SheetUse UseOf(WORD flags, int member) {
        constexpr int kValue2 = 1388, kCount = 118;
        if (flags == DISPATCH_PROPERTYPUT) return SheetUse::Put;
        if (flags == DISPATCH_METHOD) return SheetUse::Call;
        return member == kValue2 || member == kCount ? SheetUse::Read : SheetUse::Get;
    }

    HRESULT Answer(int member, SheetUse use, const std::vector<ExcelArgument>& arguments,
                   VARIANT* result) {
        Spreadsheets& sheets = TheSpreadsheets();
        const std::string line = Words(member);
        std::string list;
        for (const ExcelArgument& one : arguments) {
            list += (list.empty() ? "" : ", ") + Spreadsheets::Describe(one);
        }
        SheetAnswer answer;
        try {
            answer = sheets.Invoke(object_, member, use, arguments.data(), int(arguments.size()));
        } catch (const Refusal& refusal) {
            if (!refusal.complaint.empty()) TheHost().Complain(refusal.complaint);
            Note("refused " + line + ")");
            return E_FAIL;
        }
        const std::string made = sheets.Describe(answer.object);
        const std::string end = "), result=" + made + ") = " + (answer.object ? "pointer" : "null");
        if (use == SheetUse::Put) Note("ExcelPut" + line + ", value=(" + list + ")) = 0");
        if (use == SheetUse::Get) Note("ExcelGet" + line + ", arguments=(" + list + end);
        if (use == SheetUse::Call) {
            Note("ExcelCall" + line + ", arguments=(" + list + end);
        }
        if (!result) {
            sheets.Forget(answer.object);
        } else if (answer.object) {
            result->vt = VT_DISPATCH;
            result->pdispVal = new Dispatcher(answer.object);
        } else {
            ToVariant(answer.value, result);
        }
        return S_OK;
    }

    ExcelObject object_;
};

class Factory : public Counted<IClassFactory> {
public:
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID id, void** object) override {
        return Guarded([&] {
            const ExcelObject made = TheSpreadsheets().Create(L"Excel.Application");
            Note("ExcelCreate(programId=\"Excel.Application\", result=" +
                 TheSpreadsheets().Describe(made) + ") = pointer");
            auto* dispatcher = new Dispatcher(made);
            const HRESULT status = dispatcher->QueryInterface(id, object);
            dispatcher->Release();
            return status;
        });
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }
};

}  // namespace

void WatchExcel(const ExcelTrouble& next, std::function<void(const std::string&)> watcher) {
    trouble = next;
    note = std::move(watcher);
    step = attempts = 0;
}

int ExcelAttempts() {
    return attempts;
}

int ExcelObjects() {
    return objects;
}

DWORD OfferExcel(DWORD context) {
    DWORD registration = 0;
    auto* factory = new Factory;
    CoRegisterClassObject(kExcelClass, factory, context, REGCLS_MULTIPLEUSE, &registration);
    factory->Release();
    return registration;
}

}  // namespace workbench
