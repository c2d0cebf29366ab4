// The spreadsheet application through COM, which is the plug-in's own way to it: in this very
// process and as a program of its own.
#include <gtest/gtest.h>

#include <windows.h>
#include <algorithm>
#include <oleauto.h>
#include <sstream>
#include <stdexcept>
#include <thread>

#include "hostapi/excel.h"
#include "simhost/core/disk.h"
#include "simhost/host.h"
#include "simhost/spreadsheet/spreadsheets.h"
#include "simhost/windows_real/real.h"
#include "tests/support/observed.h"
#include "tests/tables/export_steps.h"
#include "tests/windows/excel_class.h"

namespace {

using namespace simhost;
using workbench::ExcelTrouble;
using workbench::Names;

constexpr const WideChar* kClasses = L"Software\\Classes";
constexpr const char* kList = "C:\\Nowhere\\list.xlsx";
const WideText kLog = L"C:\\excel.log";

// What was asked, in the words of the journal.
Names calls;

// A clock that only moves while somebody waits.
ULONGLONG clockNow = 1000;
ULONGLONG waited = 0;
void WINAPI WaitByClock(DWORD milliseconds) {
    clockNow += milliseconds;
    waited += milliseconds;
}
ULONGLONG WINAPI ReadClock() {
    return clockNow;
}

// The texts of the plug-in's arguments: how many were made, and how many are left.
int textsMade = 0, textsLeft = 0;
BSTR WINAPI CountText(const OLECHAR* text) {
    ++textsMade;
    ++textsLeft;
    return SysAllocString(text);
}
HRESULT WINAPI CountClear(VARIANTARG* value) {
    if (value->vt == VT_BSTR && value->bstrVal) --textsLeft;
    return VariantClear(value);
}

template <class Function>
void Put(const char* name, Function* call) {
    ReplaceCall(GetModuleHandleW(L"vorlatix5.1.dll"), name, reinterpret_cast<void*>(call));
}

void SetClassesValue(const WideText& path, const WideText& text) {
    const WideText key = WideText(kClasses) + L"\\" + path;
    RegSetKeyValueW(HKEY_LOCAL_MACHINE, key.c_str(), nullptr, REG_SZ, text.c_str(),
                    DWORD((text.size() + 1) * sizeof(WideChar)));
}

// There is no such folder, so the step that saves is refused, and the others are done still.
Names WholeExport() {
    Names steps = workbench::StepsOfEmptyBom(kList);
    steps[steps.size() - 3] = "refused (object=Workbook, member=SaveCopyAs)";
    return steps;
}

class SpreadsheetsByCom : public workbench::ObservedBench {
protected:
    void SetUp() override {
        calls.clear();
        waited = 0;
        textsMade = textsLeft = 0;
        CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        SetClassesValue(L"Excel.Application\\CLSID", workbench::kExcelClassText);
    }
    void TearDown() override {
        if (registration_) CoRevokeClassObject(registration_);
        const WideText classes = kClasses;
        RegDeleteTreeW(HKEY_LOCAL_MACHINE, (classes + L"\\Excel.Application").c_str());
        RegDeleteTreeW(HKEY_LOCAL_MACHINE,
                       (classes + L"\\CLSID\\" + workbench::kExcelClassText).c_str());
        ObservedBench::TearDown();
        CoUninitialize();
    }
    // The class in this process; as its local server, too, which a client asks for.
    void Offer(DWORD context = CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER) {
        registration_ = workbench::OfferExcel(context);
        ASSERT_NE(registration_, 0u);
        Refuse({});
    }
    void Refuse(const ExcelTrouble& trouble) {
        calls.clear();
        workbench::WatchExcel(trouble, [](const std::string& line) { calls.push_back(line); });
    }
    void OpenEmptyAssembly() {
        Start();
        Open(Assembly("empty"));
        Write(workbench::kModuleFolder + WIDE("\\VXconfig\\VxBom.ini"),
              ToSystemCodePage(Wide("[tableCols_sum]\r\ncontent=模型名称\r\n")));
    }
    void Export() {
        Play(std::string("~ Command `VxBom`\n~ Activate `VxBom` `VxExportBom`\n@ answer ") + kList +
             "\n~ Activate `VxBom` `Close`\n");
    }
    DWORD registration_ = 0;
};

// What is asked when step `refused` is: everything up to there, and of the rest what can be asked
// still, in its order, to the end.
void ExpectTheRestWithout(std::size_t refused, const Names& asked) {
    const Names whole = WholeExport();
    ASSERT_GT(asked.size(), refused);
    const auto at = std::ptrdiff_t(refused);
    EXPECT_EQ(Names(asked.begin(), asked.begin() + at), Names(whole.begin(), whole.begin() + at));
    EXPECT_EQ(asked[refused].substr(0, 7), "refused");
    auto next = whole.begin() + at + 1;
    for (std::size_t i = refused + 1; i < asked.size(); ++i) {
        next = std::find(next, whole.end(), asked[i]);
        ASSERT_NE(next, whole.end()) << asked[i];
        ++next;
    }
    if (refused + 1 < whole.size()) {
        EXPECT_EQ(asked.back(), whole.back());
    }
}

TEST_F(SpreadsheetsByCom, TheExportAsksTheSameAsOfTheSimulatedApplication) {
    Offer();
    OpenEmptyAssembly();
    Export();
    EXPECT_EQ(calls, WholeExport());
    EXPECT_EQ(TheSpreadsheets().NotReleased(), Names{});
}

TEST_F(SpreadsheetsByCom, EachStepThatIsRefusedLeavesOutWhatHangsOnItAndNothingElse) {
    Offer();
    OpenEmptyAssembly();
    leavesSpreadsheets_ = true;  // where the last step, which quits, is refused
    for (std::size_t step = 1; step < WholeExport().size(); ++step) {
        SCOPED_TRACE(step);
        RestartSpreadsheets();
        Refuse({int(step), E_FAIL, 1});
        Export();
        ExpectTheRestWithout(step, calls);
        EXPECT_EQ(workbench::ExcelAttempts(), int(calls.size()) - 1);  // nothing is asked again
        EXPECT_EQ(TheSpreadsheets().NotReleased(), Names{});
    }
}

// A sheet of a title, labels and two rows, the second of which has a number, a flag, nothing and an
// error in the place of texts.
Book NewNames(const WideText&) {
    Book book;
    book.sheets.push_back(std::make_unique<BookSheet>());
    BookSheet& sheet = *book.sheets[0];
    const char* texts[] = {"1", "PLATE", "prt", "cover"};
    PutTyped(&sheet.At(1, 1), "title", 2026);
    for (int column = 1; column <= 4; ++column) {
        sheet.At(3, column).style.asText = true;
        PutTyped(&sheet.At(3, column), texts[column - 1], 2026);
    }
    PutTyped(&sheet.At(4, 1), "12.75", 2026);
    PutTyped(&sheet.At(4, 2), "TRUE", 2026);
    sheet.At(4, 4).kind = BookCell::Kind::Error;
    return book;
}

TEST_F(SpreadsheetsByCom, NewNamesComeBackFromThere) {
    Offer();
    Start();
    Open(workbench::MakeModels("top: plate"));
    TheSpreadsheets().reader = NewNames;
    Play(
        "~ Command `VxRename`\n~ Activate `VxRename` `VxLoadTab`\n@ answer C:\\Nowhere\\new.xls\n"
        "@ expect rows mdl_list 2\n"
        "@ expect row mdl_list 1 \"1|PLATE|prt|cover\"\n"
        "@ expect row mdl_list 2 \"12|12|12|12\"\n"
        "~ Close `VxRename`\n");
    EXPECT_EQ(calls.back().substr(0, 9), "ExcelCall");
    EXPECT_EQ(TheSpreadsheets().NotQuit(), Names{});
    EXPECT_EQ(TheSpreadsheets().NotReleased(), Names{});
}

TEST_F(SpreadsheetsByCom, EveryTextOfAnArgumentIsReleased) {
    Offer();
    OpenEmptyAssembly();
    Put("SysAllocString", CountText);
    Put("VariantClear", CountClear);
    Export();
    EXPECT_GT(textsMade, 10);
    EXPECT_EQ(textsLeft, 0);
    Refuse({5, E_FAIL, 1});
    Export();
    EXPECT_EQ(textsLeft, 0);
}

TEST_F(SpreadsheetsByCom, ABusyApplicationIsAskedAgainUntilItIsFree) {
    Offer();
    OpenEmptyAssembly();
    Put("Sleep", WaitByClock);
    Put("GetTickCount64", ReadClock);
    for (const HRESULT status :
         {RPC_E_CALL_REJECTED, RPC_E_SERVERCALL_RETRYLATER, HRESULT(0x800AC472)}) {
        SCOPED_TRACE(status);
        RestartSpreadsheets();
        waited = 0;
        Refuse({6, status, 20});
        Export();
        calls.erase(std::remove_if(calls.begin(), calls.end(),
                                   [](const std::string& line) {
                                       return line.find("refused") == 0 &&
                                              line.find("SaveCopyAs") == std::string::npos;
                                   }),
                    calls.end());
        EXPECT_EQ(calls, WholeExport());
        EXPECT_GT(waited, 0u);
        EXPECT_LT(waited, 10000u);
    }
}

TEST_F(SpreadsheetsByCom, ABusyApplicationIsWaitedForHalfAMinuteAnExportAndNoLonger) {
    Offer();
    OpenEmptyAssembly();
    Put("Sleep", WaitByClock);
    Put("GetTickCount64", ReadClock);
    leavesSpreadsheets_ = true;  // it is too busy to quit, too
    // The second export has a patience of its own.
    for (int export_ = 0; export_ < 2; ++export_) {
        RestartSpreadsheets();
        waited = 0;
        Refuse({6, RPC_E_CALL_REJECTED, 1'000'000});
        Export();
        EXPECT_GT(waited, 29000u);
        EXPECT_LE(waited, 30000u);
        EXPECT_EQ(TheSpreadsheets().NotReleased(), Names{});
    }
}

TEST_F(SpreadsheetsByCom, ALibraryUnderTheNameOfTheApplicationIsNotLoaded) {
    Offer(CLSCTX_INPROC_SERVER);
    EXPECT_EQ(ExcelCreate(L"Excel.Application"), nullptr);
    EXPECT_EQ(calls, Names{});
}

TEST_F(SpreadsheetsByCom, WhatIsThrownInACallIsAFailureOfThisCall) {
    Offer();
    Start();
    leavesSpreadsheets_ = true;  // nobody quits it
    const ExcelObject application = ExcelCreate(L"Excel.Application");
    calls.clear();
    workbench::WatchExcel({1, E_FAIL, 1}, [](const std::string& line) {
        calls.push_back(line);
        if (calls.size() == 1) throw std::runtime_error("there is no room for this");
    });
    EXPECT_EQ(ExcelGet(application, 572, nullptr, 0), nullptr);
    EXPECT_EQ(calls, (Names{"refused (object=Application 1, member=Workbooks)",
                            "failed: there is no room for this"}));
    ExcelRelease(application);
}

// --- As a program of its own ---

class SpreadsheetProgram : public SpreadsheetsByCom {
protected:
    // As COM starts it, but for its last word: for this client, refusing this step.
    static WideText CommandLine(DWORD client, std::size_t refusedStep) {
        const WideText folder = std::filesystem::path(TheWindows().executablePath).parent_path();
        return L"\"" + folder + L"\\excel_server.exe\" " + kLog + L" " +
               std::to_wstring(refusedStep) + L" " + std::to_wstring(client);
    }
    static void Register(std::size_t refusedStep) {
        std::error_code ignored;
        std::filesystem::remove(kLog, ignored);
        SetClassesValue(WideText(L"CLSID\\") + workbench::kExcelClassText + L"\\LocalServer32",
                        CommandLine(GetCurrentProcessId(), refusedStep));
    }
    static Names Log() {
        Names lines;
        std::istringstream text(ReadFile(kLog));
        for (std::string line; std::getline(text, line);) lines.push_back(line);
        return lines;
    }
    // What the program was asked, once it has ended; without its own lines.
    static Names Asked() {
        Names lines = Log();
        if (lines.empty()) {
            ADD_FAILURE() << "the program was not started";
            return {};
        }
        const std::string process = lines.front().substr(lines.front().find(' ') + 1);
        ExpectEnd(OpenProcess(SYNCHRONIZE, FALSE, DWORD(std::stoul(process))));
        lines = Log();
        EXPECT_EQ(lines.back(), "end");
        if (lines.back() != "end") lines.emplace_back();
        return Names(lines.begin() + 1, lines.end() - 1);
    }
    // Null is a program that has ended. One that does not ends by itself in less time than this.
    static void ExpectEnd(HANDLE program) {
        if (!program) return;
        EXPECT_EQ(WaitForSingleObject(program, 90000), WAIT_OBJECT_0);
        CloseHandle(program);
    }
    // For COM to find it running, which takes a second less under Wine than to start it.
    static void Serve(std::size_t refusedStep) {
        Register(refusedStep);
        CloseHandle(Run(CommandLine(GetCurrentProcessId(), refusedStep), 0));
        for (int tries = 0; tries < 6000 && Log().empty(); ++tries) Sleep(10);
    }
    static HANDLE Run(WideText commandLine, DWORD flags) {
        STARTUPINFOW startup = {};
        startup.cb = sizeof(startup);
        PROCESS_INFORMATION made = {};
        EXPECT_TRUE(CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, flags,
                                   nullptr, nullptr, &startup, &made));
        CloseHandle(made.hThread);
        return made.hProcess;
    }
};

TEST_F(SpreadsheetProgram, IsAskedTheSameAndGivenUpWhole) {
    Register(0);
    OpenEmptyAssembly();
    Export();
    EXPECT_EQ(Asked(), WholeExport());
}

TEST_F(SpreadsheetProgram, RefusesEachStepAndIsGivenUpAllTheSame) {
    OpenEmptyAssembly();
    for (std::size_t step = 1; step < WholeExport().size(); ++step) {
        SCOPED_TRACE(step);
        Serve(step);
        Export();
        ExpectTheRestWithout(step, Asked());
        if (HasFailure()) break;  // each further one might take a minute
    }
}

TEST_F(SpreadsheetProgram, IsFoundOnAThreadThatHasNotMetCom) {
    Register(0);
    bool found = false;
    std::thread([&] {
        const ExcelObject application = ExcelCreate(L"Excel.Application");
        found = application != nullptr;
        ExcelRelease(application);
        CoUninitialize();
    }).join();
    EXPECT_TRUE(found);
    if (found) Asked();
}

TEST_F(SpreadsheetProgram, EndsWithItsClient) {
    // Any process will do for a client, and this one does nothing.
    const HANDLE client = Run(CommandLine(0, 0), CREATE_SUSPENDED);
    const HANDLE program = Run(CommandLine(GetProcessId(client), 0), 0);
    EXPECT_EQ(WaitForSingleObject(program, 1000), DWORD(WAIT_TIMEOUT));
    TerminateProcess(client, 0);
    CloseHandle(client);
    ExpectEnd(program);
}

// --- Values and failures ---

TEST_F(SpreadsheetsByCom, TextsNumbersAndFlagsComeAndGo) {
    Offer();
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
    Offer();
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
