#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/FileSystem.h"

namespace tarvex {

/// Files and folders in memory. Paths are found without regard to case; "/", doubled separators,
/// "." and ".." are resolved as the system does it. Relative paths start at `currentFolder`.
class FakeFileSystem : public FileSystem {
public:
    /// Adds or replaces a file; the folders above it come into being.
    void AddFile(std::u16string_view path, std::string bytes = {}, bool readOnly = false);

    /// Adds a folder and the folders above it.
    void AddFolder(std::u16string_view path);

    /// Takes a file or an empty folder away; nothing happens when there is none.
    void Remove(std::u16string_view path);

    /// The content of a file; nothing when there is no such file. Not recorded in `log`.
    std::optional<std::string> Bytes(std::u16string_view path) const;

    bool FileExists(std::u16string_view path) const override;
    bool Append(std::u16string_view path, std::string_view bytes) override;
    bool Write(std::u16string_view path, std::string_view bytes, bool overwrite) override;

    /// Every call in order: "exists PATH", "append PATH", "write PATH", with the path as it was
    /// given.
    mutable std::vector<std::u16string> log;

    /// Number of the call (1: the first one in `log`) that is refused; 0: none is.
    std::size_t failCall = 0;

    std::u16string currentFolder = u"C:\\Aktuell";

private:
    struct Node {
        std::string bytes;
        bool isFolder = false;
        bool readOnly = false;
    };

    std::u16string Normalise(std::u16string_view path) const;
    const Node* FindNode(std::u16string_view path) const;
    bool ParentExists(std::u16string_view path) const;
    bool Record(std::u16string_view verb, std::u16string_view path) const;

    std::map<std::u16string, Node> nodes_;
};

}  // namespace tarvex
