// The ground of the tests of VxRename: a small assembly on disk, and what its folder holds.
#pragma once

#include <map>
#include <string>

#include "simhost/ui/dialogs.h"
#include "tests/support/observed.h"

namespace workbench {

// TOP holds PLATE twice, SUB, and BOLT; SUB holds BOLT and the skeleton SKEL. All are on disk.
class RenameBench : public ObservedBench {
protected:
    void SetUp() override;

    // The filter of the settings file.
    void Filter(const std::string& value);

    // Opens the dialog, plays these lines, and closes it by its window.
    void Check(const std::string& lines);
    // The same with a press on StartRename and this box after the lines; empty: the end of all.
    void Start(const std::string& lines, const std::string& box = {});
    using Workbench::Start;

    // Every file of the working folder with its bytes.
    std::map<std::string, std::string> Folder();
    Names Files();  // their names
    bool Exists(const WideText& path);
    std::string Option();  // override_store_back; "none" where it is not set

    simhost::Model *top_ = nullptr, *plate_ = nullptr, *sub_ = nullptr, *bolt_ = nullptr;
};

inline constexpr const char* kRenamed =
    "\t批量重命名操作已完成|岚枢QQ②群:100200301，①群:10020030\t";

}  // namespace workbench
