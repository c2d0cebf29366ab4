// What lies in a folder, at the door.
#include "hostapi/host/files_list.h"

#include <filesystem>

#include "simhost/core/file_names.h"
#include "simhost/core/text.h"
#include "simhost/door/door.h"
#include "simhost/door/name_record.h"

using namespace simhost;

namespace {

namespace fs = std::filesystem;

WideText NameOf(const fs::path& path) {
    const auto utf8 = path.filename().u8string();
    return Wide(std::string(utf8.begin(), utf8.end()));
}

std::vector<WideText> NewestFilesIn(const fs::path& folder, WideView filter) {
    std::vector<WideText> names;
    for (const NamedFile& file : FilesIn(folder)) {
        if (FitsFilter(file.name, filter)) names.push_back(NameOf(file.path));
    }
    return names;
}

std::vector<PathRecord> Paths(const WideText& folder, const std::vector<WideText>& names) {
    std::vector<PathRecord> records(names.size());
    for (std::size_t i = 0; i < names.size(); ++i) {
        CopyCut(folder + WIDE("\\") + names[i], records[i].text, PRO_PATH_SIZE);
    }
    return records;
}

}  // namespace

ProError ProFilesList(WideChar* folder, WideChar* filter, ProFileListOpt versions, ProPath** files,
                      ProPath** folders) {
    Operation& op = Op<"ProFilesList">;
    return op.Call(
        [&] {
            Host& host = TheHost();
            const WideText where =
                folder && *folder ? WideText(folder) : host.session.workingDirectory;
            // All versions of a file are never asked for.
            if (versions != PRO_FILE_LIST_LATEST) Refuse(PRO_TK_NOT_IMPLEMENTED);
            const fs::path real = host.disk.Real(where);
            const auto found = Paths(where, NewestFilesIn(real, filter));
            if (found.empty()) Refuse(PRO_TK_E_NOT_FOUND);
            *files = &host.arrays.Make(found, op.name())->text;
            *folders = &host.arrays.Make(Paths(where, FoldersIn(real)), op.name())->text;
        },
        ARG(folder), GIVEN(filter), ARG(versions), OUT_ARRAY(files), OUT_ARRAY(folders));
}
