// The spreadsheet application through COM: it is a class of this very process, whose objects are
// those of the simulated application. The plug-in's own way to COM is what is tested.
#include <gtest/gtest.h>

#include <windows.h>
#include <oleauto.h>

#include "hostapi/excel.h"
#include "simhost/host.h"
#include "simhost/spreadsheet/spreadsheets.h"
#include "simhost/system/windows.h"
#include "tests/support/observed.h"
#include "tests/tables/export_steps.h"

// The interfaces of COM have no virtual destructors; their objects end themselves.
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

namespace {

using namespace simhost;
using workbench::Names;

constexpr CLSID kClass = {
    0x7b1c2d10, 0x52a4, 0x4f0e, {0x9a, 0x11, 0x3c, 0x5d, 0x77, 0x20, 0x64, 1}};
constexpr const WideChar* kClassText = L"{7B1C2D10-52A4-4F0E-9A11-3C5D77206401}";
constexpr const WideChar* kProgramKey = L"Excel.Application\\CLSID";

// What was asked, in the words of the journal.
Names calls;

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
    explicit Dispatcher(ExcelObject object) : object_(object) {}
    ~Dispatcher() override { TheSpreadsheets().Forget(object_); }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD flags,
                                     DISPPARAMS* parameters, VARIANT* result, EXCEPINFO*,
                                     UINT*) override {
        std::vector<ExcelArgument> arguments(parameters->cArgs);
        for (UINT i = 0; i < parameters->cArgs; ++i) {
            // The last argument comes first.
            if (!FromVariant(parameters->rgvarg[parameters->cArgs - 1 - i], &arguments[i])) {
                return DISP_E_TYPEMISMATCH;
            }
        }
        const bool isPut = flags == DISPATCH_PROPERTYPUT;
        const bool isNamed =
            parameters->cNamedArgs == 1 && parameters->rgdispidNamedArgs[0] == DISPID_PROPERTYPUT;
        if (isPut != isNamed) return DISP_E_PARAMNOTFOUND;
        return Answer(int(member), UseOf(flags, int(member)), arguments, result);
    }

private:
    static SheetUse UseOf(WORD flags, int member) {
        constexpr int kValue2 = 1388, kCount = 118;
        if (flags == DISPATCH_PROPERTYPUT) return SheetUse::Put;
        if (flags == DISPATCH_METHOD) return SheetUse::Call;
        return member == kValue2 || member == kCount ? SheetUse::Read : SheetUse::Get;
    }

    HRESULT Answer(int member, SheetUse use, const std::vector<ExcelArgument>& arguments,
                   VARIANT* result) {
        Spreadsheets& sheets = TheSpreadsheets();
        std::string line = "(object=" + sheets.Describe(object_) +
                           ", member=" + sheets.MemberName(object_, member);
        std::string list;
        for (const ExcelArgument& one : arguments) {
            list += (list.empty() ? "" : ", ") + Spreadsheets::Describe(one);
        }
        SheetAnswer answer;
        try {
            answer = sheets.Invoke(object_, member, use, arguments.data(), int(arguments.size()));
        } catch (const Refusal& refusal) {
            if (!refusal.complaint.empty()) TheHost().Complain(refusal.complaint);
            calls.push_back("refused " + line + ")");
            return E_FAIL;
        }
        const std::string made = sheets.Describe(answer.object);
        const std::string end = "), result=" + made + ") = " + (answer.object ? "pointer" : "null");
        if (use == SheetUse::Put)
            calls.push_back("ExcelPut" + line + ", value=(" + list + ")) = 0");
        if (use == SheetUse::Get) calls.push_back("ExcelGet" + line + ", arguments=(" + list + end);
        if (use == SheetUse::Call) {
            calls.push_back("ExcelCall" + line + ", arguments=(" + list + end);
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
        const ExcelObject made = TheSpreadsheets().Create(L"Excel.Application");
        calls.push_back("ExcelCreate(programId=\"Excel.Application\", result=" +
                        TheSpreadsheets().Describe(made) + ") = pointer");
        auto* dispatcher = new Dispatcher(made);
        const HRESULT status = dispatcher->QueryInterface(id, object);
        dispatcher->Release();
        return status;
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }
};

class SpreadsheetsByCom : public workbench::ObservedBench {
protected:
    void SetUp() override {
        calls.clear();
        CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        HKEY key = nullptr;
        RegCreateKeyExW(HKEY_CLASSES_ROOT, kProgramKey, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                        &key, nullptr);
        const auto bytes = DWORD((wcslen(kClassText) + 1) * sizeof(WideChar));
        RegSetValueExW(key, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(kClassText), bytes);
        RegCloseKey(key);
        auto* factory = new Factory;
        ASSERT_EQ(CoRegisterClassObject(kClass, factory, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE,
                                        &registration_),
                  S_OK);
        factory->Release();
    }
    void TearDown() override {
        CoRevokeClassObject(registration_);
        RegDeleteTreeW(HKEY_CLASSES_ROOT, L"Excel.Application");
        ObservedBench::TearDown();
        CoUninitialize();
    }

    DWORD registration_ = 0;
};

TEST_F(SpreadsheetsByCom, TheExportAsksTheSameAsOfTheSimulatedApplication) {
    Start();
    Open(Assembly("empty"));
    Write(workbench::kModuleFolder + WIDE("\\VXconfig\\VxBom.ini"),
          ToSystemCodePage(Wide("[tableCols_sum]\r\ncontent=模型名称\r\n")));
    Play(
        "~ Command `VxBom`\n~ Activate `VxBom` `VxExportBom`\n"
        "@ answer C:\\Nowhere\\list.xlsx\n~ Activate `VxBom` `Close`\n");
    // There is no such folder, so the step that saves is refused, and the others are done still.
    Names expected = workbench::StepsOfEmptyBom("C:\\Nowhere\\list.xlsx");
    ASSERT_GT(expected.size(), 3u);
    expected[expected.size() - 3] = "refused (object=Workbook, member=SaveCopyAs)";
    EXPECT_EQ(calls, expected);
    EXPECT_EQ(TheSpreadsheets().NotReleased(), Names{});
}

TEST_F(SpreadsheetsByCom, TextsNumbersAndFlagsComeAndGo) {
    const auto text = [](const WideChar* value) { return ExcelArgument{EXCEL_TEXT, value, 0}; };
    const ExcelArgument missing = {EXCEL_MISSING, nullptr, 0}, one = {EXCEL_WHOLE, nullptr, 1};
    ExcelObject application = ExcelCreate(L"Excel.Application");
    ASSERT_NE(application, nullptr);
    ExcelObject books = ExcelGet(application, 572, nullptr, 0);
    ExcelObject book = ExcelCall(books, 181, &missing, 1);
    ExcelObject sheets = ExcelGet(book, 485, nullptr, 0);
    ExcelObject sheet = ExcelGet(sheets, 170, &one, 1);
    const ExcelArgument corner[] = {text(L"B2"), text(L"B2")};
    ExcelObject cell = ExcelGet(sheet, 197, corner, 2);
    ExcelArgument value = text(L"螺栓");
    ExcelResult read{};
    EXPECT_EQ(ExcelPut(cell, 1388, &value), 0);
    EXPECT_EQ(ExcelRead(cell, 1388, nullptr, 0, &read), 0);
    EXPECT_EQ(read.kind, EXCEL_TEXT);
    EXPECT_EQ(read.text, L"螺栓");
    value = {EXCEL_WHOLE, nullptr, -7};
    EXPECT_EQ(ExcelPut(cell, 1388, &value), 0);
    EXPECT_EQ(ExcelRead(cell, 1388, nullptr, 0, &read), 0);
    EXPECT_EQ(read.kind, EXCEL_REAL);
    EXPECT_EQ(read.real, -7);
    value = {EXCEL_FLAG, nullptr, 1};
    EXPECT_EQ(ExcelPut(cell, 1388, &value), 0);
    EXPECT_EQ(ExcelRead(cell, 1388, nullptr, 0, &read), 0);
    EXPECT_EQ(read.kind, EXCEL_FLAG);
    EXPECT_EQ(read.whole, 1);
    EXPECT_EQ(ExcelCall(application, 302, nullptr, 0), nullptr);
    for (ExcelObject object : {cell, sheet, sheets, book, books, application}) ExcelRelease(object);
}

TEST_F(SpreadsheetsByCom, AStepThatFailsGivesNoObjectAndNothingIsAskedOfIt) {
    EXPECT_EQ(ExcelCreate(L"No.Such.Application"), nullptr);
    EXPECT_EQ(ExcelGet(nullptr, 572, nullptr, 0), nullptr);
    EXPECT_EQ(ExcelCall(nullptr, 302, nullptr, 0), nullptr);
    const ExcelArgument value = {EXCEL_FLAG, nullptr, 1};
    EXPECT_NE(ExcelPut(nullptr, 558, &value), 0);
    ExcelResult read{};
    EXPECT_NE(ExcelRead(nullptr, 1388, nullptr, 0, &read), 0);
    EXPECT_EQ(read.kind, EXCEL_OTHER);
    ExcelRelease(nullptr);
    EXPECT_EQ(calls, Names{});
}

}  // namespace
