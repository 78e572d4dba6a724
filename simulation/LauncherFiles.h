#pragma once

#include <map>
#include <string>
#include <string_view>

#include "platform/FileSystem.h"
#include "platform/ProgramInfo.h"

namespace tarvex {

/// The files of this computer as a launcher finds them that was started by a double click: relative
/// paths begin in its own folder, whatever the current folder of this program is, which may have
/// several threads and dialogs that share it. The launcher itself counts as there. Each path is
/// asked for once, since a server that does not answer takes its time every time. Nothing is
/// written.
class LauncherFiles : public FileSystem {
public:
    /// `files` must outlive this object.
    LauncherFiles(const FileSystem& files, const ProgramInfo& program);

    bool FileExists(std::u16string_view path) const override;
    bool Append(std::u16string_view, std::string_view) override { return true; }
    bool Write(std::u16string_view, std::string_view, bool) override { return true; }

private:
    const FileSystem& files_;
    std::u16string folder_;
    std::u16string program_;
    mutable std::map<std::u16string, bool, std::less<>> answers_;
};

}  // namespace tarvex
