#pragma once

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FileStore.h"
#include "tests/support/FakeBinaryFiles.h"

namespace tarvex {

/// The files of a FakeBinaryFiles, which it refers to, and their replacement. Names are of the same
/// file when they differ by case at most.
class FakeFileStore : public FileStore {
public:
    explicit FakeFileStore(FakeBinaryFiles& files) : files_(files) {}

    bool FileExists(std::u16string_view path) const override { return files_.FileExists(path); }
    std::unique_ptr<BinaryFile> Open(std::u16string_view path) override {
        return files_.Open(path);
    }
    FileEntry Describe(std::u16string_view path) const override;
    bool IsSameFile(std::u16string_view a, std::u16string_view b) const override;
    std::unique_ptr<FileLock> Lock(std::u16string_view path,
                                   std::chrono::milliseconds patience) override;
    std::string ReadAll(std::u16string_view path) override;
    std::u16string WriteNewBeside(std::u16string_view path, std::string_view bytes) override;
    bool ReplaceWith(std::u16string_view temp, std::u16string_view path,
                     const FileAccess& access) override;
    void PlaceNew(std::u16string_view temp, std::u16string_view path,
                  const FileAccess& access) override;
    void Remove(std::u16string_view path) override;

    /// Every call of its own in order: "lock PATH", "unlock PATH", "read PATH", "new PATH",
    /// "replace PATH with TEMP", "place PATH from TEMP", "remove PATH". Describe and IsSameFile are
    /// not in it.
    std::vector<std::u16string> log;

    /// Number of the call (1: the first one in `log`) that fails with `failure`; 0: none does.
    std::size_t failCall = 0;
    FileProblem failure = FileProblem::Device;

    /// What Describe says of a name in place of what is in the files, where that says too little.
    std::map<std::u16string, FileEntry> entries;

    /// The files whose lock another program has.
    std::set<std::u16string> lockedElsewhere;

    /// The answer of ReplaceWith.
    bool keepsOwner = true;

    /// What the last ReplaceWith or PlaceNew was told.
    FileAccess lastAccess;

    /// New files that were neither renamed nor removed.
    std::size_t LeftBehind() const { return open_; }

    /// Locks that were not given back.
    std::size_t HeldLocks() const { return held_.size(); }

private:
    friend class FakeFileLock;

    void RecordOrFail(std::u16string entry);
    void Rename(std::u16string_view temp, std::u16string_view path);

    FakeBinaryFiles& files_;
    std::set<std::u16string> held_;
    std::size_t open_ = 0;
    std::size_t names_ = 0;
};

}  // namespace tarvex
