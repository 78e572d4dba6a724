#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "platform/CommonDialogs.h"

namespace tarvex {

/// Records every dialog and answers all of them alike.
class FakeCommonDialogs : public CommonDialogs {
public:
    struct FolderCall {
        WindowHandle owner;
        std::string title;
        std::string startFolder;
        std::uint32_t flags;
    };

    std::vector<FileDialogCall> openCalls;  ///< as they came in
    std::vector<FileDialogCall> saveCalls;
    std::vector<FolderCall> folderCalls;
    FileDialogEnd end;  ///< how file dialogs end
    std::string file;   ///< put at the start of the buffers, without a zero
    std::string fileTitle;
    std::string folder;  ///< what the folder browser returns

    FileDialogEnd ShowOpen(FileDialogCall& call) override {
        openCalls.push_back(call);
        return Answer(call);
    }

    FileDialogEnd ShowSave(FileDialogCall& call) override {
        saveCalls.push_back(call);
        return Answer(call);
    }

    std::string BrowseForFolder(WindowHandle owner, const std::string& title,
                                const std::string& startFolder, std::uint32_t flags) override {
        folderCalls.push_back({owner, title, startFolder, flags});
        return folder;
    }

private:
    FileDialogEnd Answer(FileDialogCall& call) const {
        std::copy(file.begin(), file.end(), call.file.begin());
        std::copy(fileTitle.begin(), fileTitle.end(), call.fileTitle.begin());
        return end;
    }
};

}  // namespace tarvex
