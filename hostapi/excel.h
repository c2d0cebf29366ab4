// The spreadsheet application through its automation interface: objects with members that are
// known by numbers. On Windows it is COM (excel_com.cpp); elsewhere a simulated application
// answers.
//
// An application that is busy with its user is asked again until it is free, for at most half a
// minute from one ExcelCreate to the next; then the step has failed.
//
// An object that is received is the caller's, who releases it with ExcelRelease. A failed step
// gives a null object; whatever is asked of a null object does nothing and fails. Nothing throws.
#pragma once

#include "hostapi/export.h"
#include "hostapi/wide.h"

typedef struct VxExcelObject* ExcelObject;

typedef enum {
    EXCEL_MISSING = 0,  // an argument that is left out
    EXCEL_TEXT = 1,
    EXCEL_WHOLE = 2,
    EXCEL_FLAG = 3,
    EXCEL_REAL = 4,
    EXCEL_OTHER = 5  // as a result: nothing, or what none of these can hold
} ExcelKind;

// An argument; `text` is only read during the call. `whole` holds whole numbers and flags (0, 1).
struct ExcelArgument {
    ExcelKind kind;
    const WideChar* text;
    int whole;
};

// The value of a cell or of another property.
struct ExcelResult {
    ExcelKind kind;
    WideText text;
    double real;
    int whole;
};

// A new instance of the application with this program id ("Excel.Application"), invisible. Null if
// there is none.
HOST_API ExcelObject ExcelCreate(const WideChar* programId);

// A property that is an object, such as a range of a sheet.
HOST_API ExcelObject ExcelGet(ExcelObject object, int member, const ExcelArgument* arguments,
                              int count);

// A property that is a value. 0 on success; otherwise the result is of no kind.
HOST_API int ExcelRead(ExcelObject object, int member, const ExcelArgument* arguments, int count,
                       ExcelResult* result);

// Gives a property another value. 0 on success.
HOST_API int ExcelPut(ExcelObject object, int member, const ExcelArgument* value);

// Does something; the result if it is an object, else null.
HOST_API ExcelObject ExcelCall(ExcelObject object, int member, const ExcelArgument* arguments,
                               int count);

// Gives an object up; null is none. An application that was not told to quit goes on without us.
HOST_API void ExcelRelease(ExcelObject object);
