// The spreadsheet application's objects and the members that the tables use, by its own names.
#pragma once

#include <initializer_list>

#include "hostapi/excel.h"

namespace excel {

// Members by their dispatch ids.
enum Member {
    kBold = 96,
    kColorIndex = 97,
    kColor = 99,
    kSize = 104,
    kCount = 118,
    kInterior = 129,
    kHorizontalAlignment = 136,
    kFont = 146,
    kItem = 170,
    kSaveCopyAs = 175,
    kAdd = 181,
    kNumberFormat = 193,
    kRange = 197,
    kAutoFit = 237,
    kCells = 238,
    kColumns = 241,
    kEntireColumn = 246,
    kRows = 258,
    kClose = 277,
    kSaved = 298,
    kQuit = 302,
    kActiveSheet = 307,
    kUsedRange = 412,
    kSheets = 485,
    kWorksheets = 494,
    kVisible = 558,
    kMerge = 564,
    kWorkbooks = 572,
    kUserControl = 1210,
    kValue2 = 1388,
    kOpen = 1923,
};

// Values of the application's own enumerations.
inline constexpr int kCentred = -4108;
inline constexpr int kYellow = 65535;
inline constexpr int kLightGreen = 35;  // an entry of the workbook's palette

inline ExcelArgument Text(const WideChar* text) {
    return {EXCEL_TEXT, text, 0};
}
inline ExcelArgument Whole(int number) {
    return {EXCEL_WHOLE, nullptr, number};
}
inline ExcelArgument Flag(bool flag) {
    return {EXCEL_FLAG, nullptr, flag ? 1 : 0};
}
inline ExcelArgument Missing() {
    return {EXCEL_MISSING, nullptr, 0};
}

// An object that is given up when its owner is done with it. A failed step leaves a null object, on
// which every further step does nothing.
class Object {
public:
    Object() = default;
    explicit Object(ExcelObject object) : object_(object) {}
    Object(Object&& other) noexcept : object_(other.object_) { other.object_ = nullptr; }
    Object& operator=(Object&& other) noexcept {
        if (this == &other) return *this;
        Release();
        object_ = other.object_;
        other.object_ = nullptr;
        return *this;
    }
    ~Object() { Release(); }

    static Object Create(const WideChar* programId) { return Object(ExcelCreate(programId)); }
    explicit operator bool() const { return object_ != nullptr; }

    Object Get(Member member, std::initializer_list<ExcelArgument> arguments = {}) const {
        return Object(ExcelGet(object_, member, arguments.begin(), int(arguments.size())));
    }
    Object Call(Member member, std::initializer_list<ExcelArgument> arguments = {}) const {
        return Object(ExcelCall(object_, member, arguments.begin(), int(arguments.size())));
    }
    // A property that is a value; of no kind if it cannot be read.
    ExcelResult Read(Member member) const {
        ExcelResult value{EXCEL_OTHER, {}, 0, 0};
        ExcelRead(object_, member, nullptr, 0, &value);
        return value;
    }
    void Put(Member member, ExcelArgument value) const { ExcelPut(object_, member, &value); }

    // Gives it up now instead of at the end.
    void Release() {
        if (object_) ExcelRelease(object_);
        object_ = nullptr;
    }

private:
    ExcelObject object_ = nullptr;
};

}  // namespace excel
