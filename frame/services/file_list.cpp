// Listing the files of the working directory.
#include "frame/services/file_list.h"

#include "frame/services/text.h"

FileList ListFiles(const WideText& filter) {
    ProPath* files = nullptr;
    ProPath* folders = nullptr;
    ProFilesList(nullptr, HostText(filter), PRO_FILE_LIST_LATEST, &files, &folders);
    FileList list;
    list.files.Adopt(files);
    list.folders.Adopt(folders);
    list.count = list.files.Size();
    return list;
}
