#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvex {

/// An empty folder of the real file system that goes with everything in it at the object's end.
/// Implemented for each system without the code under test.
class TestFolder {
public:
    TestFolder();
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;
    ~TestFolder();

    /// The folder's path, or that of an entry in it.
    std::u16string Path(std::u16string_view name = {}) const;

    void MakeFile(std::u16string_view name, std::string_view bytes) const;
    void MakeFolder(std::u16string_view name) const;

    /// Protects a file against writing, as its owner would. False when the system lets this user
    /// write to it all the same, as it does the superuser, also below Wine.
    bool MakeReadOnly(std::u16string_view name) const;

    /// The content of a file; nothing when there is none.
    std::optional<std::string> Bytes(std::u16string_view name) const;

    /// The names of files and folders in it, sorted.
    std::vector<std::u16string> Names() const;

private:
    std::u16string path_;
};

}  // namespace tarvex
