// The spreadsheet application on Windows: every operation of excel.h is one call of IDispatch.
// Built on Windows only, where the module brings it along.
#include <windows.h>
#include <oleauto.h>
#include <vector>

#include "hostapi/excel.h"

namespace {

// A VARIANT that is cleared at its end.
class Variant {
public:
    Variant() { VariantInit(&value_); }
    ~Variant() { VariantClear(&value_); }
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;
    VARIANT* Place() { return &value_; }
    const VARIANT& value() const { return value_; }

private:
    VARIANT value_;
};

// The arguments of one call, in the order of COM: the last one first.
class Arguments {
public:
    Arguments(const ExcelArgument* arguments, int count) {
        for (int i = count - 1; i >= 0; --i) values_.push_back(ToVariant(arguments[i]));
        parameters_.rgvarg = values_.data();
        parameters_.cArgs = UINT(values_.size());
    }
    ~Arguments() {
        for (VARIANT& value : values_) VariantClear(&value);
    }
    Arguments(const Arguments&) = delete;
    Arguments& operator=(const Arguments&) = delete;

    DISPPARAMS* Parameters() { return &parameters_; }

    // For the value of a property that is put.
    void NamePut() {
        parameters_.rgdispidNamedArgs = &put_;
        parameters_.cNamedArgs = 1;
    }

private:
    static VARIANT ToVariant(const ExcelArgument& argument) {
        VARIANT value;
        VariantInit(&value);
        switch (argument.kind) {
            case EXCEL_TEXT:
                value.vt = VT_BSTR;
                value.bstrVal = SysAllocString(argument.text);
                break;
            case EXCEL_WHOLE:
                value.vt = VT_I4;
                value.lVal = argument.whole;
                break;
            case EXCEL_FLAG:
                value.vt = VT_BOOL;
                value.boolVal = argument.whole ? VARIANT_TRUE : VARIANT_FALSE;
                break;
            default: value.vt = VT_ERROR; value.scode = DISP_E_PARAMNOTFOUND;
        }
        return value;
    }

    std::vector<VARIANT> values_;
    DISPPARAMS parameters_ = {};
    DISPID put_ = DISPID_PROPERTYPUT;
};

IDispatch* Dispatch(ExcelObject object) {
    return reinterpret_cast<IDispatch*>(object);
}

// What an application answers that is busy with its user: with a question of its own, or with a
// cell that is being edited.
bool IsBusy(HRESULT status) {
    constexpr auto kBeingEdited = HRESULT(0x800AC472);
    return status == RPC_E_CALL_REJECTED || status == RPC_E_SERVERCALL_RETRYLATER ||
           status == kBeingEdited;
}

// How much longer a busy application may keep its caller waiting, all calls taken together.
constexpr ULONGLONG kPatience = 30000;  // milliseconds
constexpr DWORD kPause = 100;
ULONGLONG patience = kPatience;

// False once there is no time left.
bool WaitABit() {
    if (patience < kPause) return false;
    const ULONGLONG begin = GetTickCount64();
    Sleep(kPause);
    const ULONGLONG waited = GetTickCount64() - begin;
    patience = waited < patience ? patience - waited : 0;
    return true;
}

// Every call names this one locale. An application in another language than the user's regional
// settings refuses the latter.
constexpr LCID kLocale = 0x0409;

bool Invoke(ExcelObject object, int member, WORD kind, Arguments* arguments, VARIANT* result) {
    if (!object) return false;
    HRESULT status = S_OK;
    do {
        status = Dispatch(object)->Invoke(member, IID_NULL, kLocale, kind, arguments->Parameters(),
                                          result, nullptr, nullptr);
    } while (IsBusy(status) && WaitABit());
    return SUCCEEDED(status);
}

// The result as an object of the caller's own; null if it is none.
ExcelObject TakeObject(const Variant& result) {
    if (result.value().vt != VT_DISPATCH || !result.value().pdispVal) return nullptr;
    result.value().pdispVal->AddRef();
    return reinterpret_cast<ExcelObject>(result.value().pdispVal);
}

ExcelObject InvokeForObject(ExcelObject object, int member, WORD kind,
                            const ExcelArgument* arguments, int count) {
    Arguments converted(arguments, count);
    Variant result;
    if (!Invoke(object, member, kind, &converted, result.Place())) return nullptr;
    return TakeObject(result);
}

}  // namespace

ExcelObject ExcelCreate(const WideChar* programId) try {
    // The host's thread may not have met COM yet; it stays initialised for as long as it runs.
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    patience = kPatience;
    CLSID id;
    if (FAILED(CLSIDFromProgID(programId, &id))) return nullptr;
    IDispatch* application = nullptr;
    // A program of its own: a library under this class would be loaded into the host.
    if (FAILED(CoCreateInstance(id, nullptr, CLSCTX_LOCAL_SERVER, IID_IDispatch,
                                reinterpret_cast<void**>(&application)))) {
        return nullptr;
    }
    return reinterpret_cast<ExcelObject>(application);
} catch (...) {
    return nullptr;
}

ExcelObject ExcelGet(ExcelObject object, int member, const ExcelArgument* arguments,
                     int count) try {
    return InvokeForObject(object, member, DISPATCH_PROPERTYGET, arguments, count);
} catch (...) {
    return nullptr;
}

ExcelObject ExcelCall(ExcelObject object, int member, const ExcelArgument* arguments,
                      int count) try {
    return InvokeForObject(object, member, DISPATCH_METHOD, arguments, count);
} catch (...) {
    return nullptr;
}

int ExcelPut(ExcelObject object, int member, const ExcelArgument* value) try {
    Arguments converted(value, 1);
    converted.NamePut();
    return Invoke(object, member, DISPATCH_PROPERTYPUT, &converted, nullptr) ? 0 : -1;
} catch (...) {
    return -1;
}

int ExcelRead(ExcelObject object, int member, const ExcelArgument* arguments, int count,
              ExcelResult* result) try {
    *result = {EXCEL_OTHER, {}, 0, 0};
    Arguments converted(arguments, count);
    Variant value;
    if (!Invoke(object, member, DISPATCH_PROPERTYGET, &converted, value.Place())) return -1;
    const VARIANT& read = value.value();
    switch (read.vt) {
        case VT_BSTR:
            result->kind = EXCEL_TEXT;
            result->text.assign(read.bstrVal ? read.bstrVal : L"", SysStringLen(read.bstrVal));
            break;
        case VT_R8:
            result->kind = EXCEL_REAL;
            result->real = read.dblVal;
            break;
        case VT_I4:
            result->kind = EXCEL_WHOLE;
            result->whole = int(read.lVal);
            break;
        case VT_BOOL:
            result->kind = EXCEL_FLAG;
            result->whole = read.boolVal == VARIANT_FALSE ? 0 : 1;
            break;
        default: break;
    }
    return 0;
} catch (...) {
    return -1;
}

void ExcelRelease(ExcelObject object) {
    if (object) Dispatch(object)->Release();
}
