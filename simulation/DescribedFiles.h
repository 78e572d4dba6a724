#pragma once

#include "platform/FileSystem.h"
#include "simulation/DescribedPc.h"
#include "simulation/PcDescription.h"

namespace tarvex {

/// The files of a described computer, as the launcher, a 32-bit program, finds them there.
class DescribedFiles : public FileSystem {
public:
    explicit DescribedFiles(const PcDescription& description);

    bool FileExists(std::u16string_view path) const override;
    bool Append(std::u16string_view path, std::string_view bytes) override;
    bool Write(std::u16string_view path, std::string_view bytes, bool overwrite) override;

    /// Null: nobody is told.
    PcListener* listener = nullptr;

private:
    std::u16string program_;
};

}  // namespace tarvex
