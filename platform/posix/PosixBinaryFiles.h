#pragma once

#include "platform/BinaryFile.h"

namespace tarvex {

/// Files of a POSIX system; their names are UTF-8. Two programs that open a file through this class
/// exclude each other (InUse).
class PosixBinaryFiles : public BinaryFiles {
public:
    bool FileExists(std::u16string_view path) const override;
    std::unique_ptr<BinaryFile> Open(std::u16string_view path) override;
};

}  // namespace tarvex
