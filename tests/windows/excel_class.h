// The spreadsheet application as a class of COM, served by this very process: its objects are those
// of the simulated application. It tells what it is asked, and can be told to refuse.
#pragma once

#include <functional>
#include <string>

#include "hostapi/wide.h"
#include "hostapi/windows.h"

namespace workbench {

// {7B1C2D10-52A4-4F0E-9A11-3C5D77206401}
extern const CLSID kExcelClass;
extern const WideChar* const kExcelClassText;

// Calls are numbered from 1, one that is refused for being busy and asked again only once.
struct ExcelTrouble {
    int step = 0;  // this call is refused; 0: none
    HRESULT status = E_FAIL;
    int times = 1;  // and so often
};

// From now on: `note` gets each call in the words of the journal, refused ones as "refused (…)".
void WatchExcel(const ExcelTrouble& trouble, std::function<void(const std::string&)> note);

// How often anything was asked since then, whether it was answered or refused.
int ExcelAttempts();

// Objects that nobody has released yet, the application among them.
int ExcelObjects();

// Offers the class to whom `context` says (CLSCTX_…); for CoRevokeClassObject.
DWORD OfferExcel(DWORD context);

}  // namespace workbench
