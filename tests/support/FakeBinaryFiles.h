#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FileStore.h"

namespace tarvex {

/// Files in memory. Paths are found without regard to case, as they are written.
class FakeBinaryFiles : public BinaryFiles {
public:
    /// Adds or replaces a file.
    void AddFile(std::u16string_view path, std::string bytes, bool readOnly = false);
    void AddFolder(std::u16string_view path);
    void RemoveFile(std::u16string_view path);

    /// The content of a file, which must exist; not recorded in `log`.
    const std::string& Bytes(std::u16string_view path) const;

    /// Not recorded in `log`.
    bool IsFolder(std::u16string_view path) const;

    bool FileExists(std::u16string_view path) const override;
    std::unique_ptr<BinaryFile> Open(std::u16string_view path) override;

    /// Every call in order, with 0-based positions and numbers of bytes: "exists PATH",
    /// "open PATH", "size", "seek POSITION", "read COUNT", "write COUNT at POSITION", "close".
    mutable std::vector<std::u16string> log;

    /// Number of the call (1: the first one in `log`) that fails with `failure`; 0: none does.
    /// Closing and asking whether a file exists cannot fail.
    std::size_t failCall = 0;
    FileProblem failure = FileProblem::Device;

private:
    friend class FakeBinaryFile;

    struct Node {
        std::string bytes;
        bool isFolder = false;
        bool readOnly = false;
    };

    Node* Find(std::u16string_view path) const;
    void Record(std::u16string entry) const;
    void RecordOrFail(std::u16string entry) const;

    std::map<std::u16string, std::shared_ptr<Node>> nodes_;
};

}  // namespace tarvex
