#pragma once

#include <set>
#include <string>
#include <vector>

#include "platform/FileSystem.h"
#include "simulation/pc/DescribedPc.h"
#include "simulation/pc/PcDescription.h"

namespace tarvex {

/// The files of a described computer, as the launcher, a 32-bit program, finds them there.
///
/// The launcher itself is there. A path that is another's parent, or ends in "\", is a folder. What
/// the description calls missing is not there, nor is anything below it, whatever else it says. A
/// name of the short form ("KUNDEN~1.MDB") may stand for any other one: unless it is listed, nobody
/// knows whether it is there, in a folder that is described completely too.
class DescribedFiles : public FileSystem {
public:
    explicit DescribedFiles(const PcDescription& description);

    bool FileExists(std::u16string_view path) const override;

    /// Nothing is written: no simulation knows who may write where.
    bool Append(std::u16string_view path, std::string_view bytes) override;
    bool Write(std::u16string_view path, std::string_view bytes, bool overwrite) override;

    /// Null: nobody is told.
    PcListener* listener = nullptr;

private:
    void AddFile(std::u16string_view path);
    void AddFolder(std::u16string path);
    Presence PresenceOf(std::u16string_view fullPath) const;

    bool is64Bit_;
    WindowsVersion windows_;
    std::u16string currentFolder_;
    // Full paths in lower case, without a "\" at their ends.
    std::set<std::u16string> files_;
    std::set<std::u16string> folders_;
    std::set<std::u16string> missing_;
    std::set<std::u16string> complete_;
    bool isAllComplete_ = false;
};

}  // namespace tarvex
