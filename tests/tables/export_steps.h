// What the export of a bill of materials asks of the spreadsheet application, step by step: the
// same through COM as of the simulated application.
#pragma once

#include <string>

#include "tests/support/observed.h"

namespace workbench {

// For the table of the assembly EMPTY with the one column 模型名称, in the words of the journal,
// without the releases.
inline Names StepsOfEmptyBom(const std::string& path) {
    const auto get = [](const std::string& object, const std::string& member,
                        const std::string& arguments, const std::string& result) {
        return "ExcelGet(object=" + object + ", member=" + member + ", arguments=(" + arguments +
               "), result=" + result + ") = pointer";
    };
    const auto put = [](const std::string& object, const std::string& member,
                        const std::string& value) {
        return "ExcelPut(object=" + object + ", member=" + member + ", value=(" + value + ")) = 0";
    };
    const auto call = [](const std::string& object, const std::string& member,
                         const std::string& arguments, const std::string& result = "null") {
        return "ExcelCall(object=" + object + ", member=" + member + ", arguments=(" + arguments +
               "), result=" + result + ") = " + (result == "null" ? "null" : "pointer");
    };
    const auto cell = [&](const std::string& name) {
        return get("Worksheet", "Range", "\"" + name + "\", \"" + name + "\"", "Range " + name);
    };
    const auto label = [&](const std::string& name, const std::string& text) {
        const std::string column = name.substr(0, 1);
        return Names{cell(name),
                     put("Range " + name, "Value2", "\"" + text + "\""),
                     get("Range " + name, "EntireColumn", "", "Range " + column + ":" + column),
                     put("Range " + column + ":" + column, "HorizontalAlignment", "-4108"),
                     get("Range " + name, "Font", "", "Font " + name),
                     put("Font " + name, "Bold", "1")};
    };
    const auto marked = [&](const std::string& name, const std::string& text) {
        return Names{cell(name), put("Range " + name, "NumberFormat", "\"@\""),
                     put("Range " + name, "Value2", "\"" + text + "\""),
                     get("Range " + name, "Interior", "", "Interior " + name),
                     put("Interior " + name, "ColorIndex", "35")};
    };
    return Joined(
        {{"ExcelCreate(programId=\"Excel.Application\", result=Application 1) = pointer",
          get("Application 1", "Workbooks", "", "Workbooks"),
          call("Workbooks", "Add", "missing", "Workbook"), get("Workbook", "Sheets", "", "Sheets"),
          get("Sheets", "Item", "1", "Worksheet"), cell("A1"),
          put("Range A1", "Value2", "\"EMPTY BOM\""),
          get("Worksheet", "Range", "\"B1\", \"A1\"", "Range A1:B1"),
          call("Range A1:B1", "Merge", "0"), get("Range A1", "Interior", "", "Interior A1"),
          put("Interior A1", "Color", "65535"), get("Range A1:B1", "EntireColumn", "", "Range A:B"),
          put("Range A:B", "HorizontalAlignment", "-4108"),
          get("Range A1:B1", "Font", "", "Font A1:B1"), put("Font A1:B1", "Bold", "1"),
          put("Font A1:B1", "Size", "16")},
         label("A2", "序号"),
         label("B2", "模型名称"),
         marked("A3", "1"),
         marked("B3", "EMPTY"),
         {get("Worksheet", "Columns", "", "Range of all cells"),
          call("Range of all cells", "AutoFit", ""),
          get("Worksheet", "Rows", "", "Range of all cells"),
          call("Range of all cells", "AutoFit", ""), put("Application 1", "Visible", "false"),
          put("Application 1", "UserControl", "false"),
          call("Workbook", "SaveCopyAs", "\"" + path + "\""), put("Workbook", "Saved", "true"),
          call("Application 1", "Quit", "")}});
}

}  // namespace workbench
