#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FileStore.h"
#include "tests/support/FakeBinaryFiles.h"

namespace tarvex {

/// The files of a FakeBinaryFiles, which it refers to, and their replacement.
class FakeFileStore : public FileStore {
public:
    explicit FakeFileStore(FakeBinaryFiles& files) : files_(files) {}

    bool FileExists(std::u16string_view path) const override { return files_.FileExists(path); }
    std::unique_ptr<BinaryFile> Open(std::u16string_view path) override {
        return files_.Open(path);
    }
    std::string ReadAll(std::u16string_view path) override;
    std::u16string WriteNewBeside(std::u16string_view path, std::string_view bytes) override;
    void ReplaceWith(std::u16string_view temp, std::u16string_view path) override;
    void Remove(std::u16string_view path) override;

    /// Every call of its own in order: "read PATH", "new PATH", "replace PATH with TEMP", "remove
    /// PATH".
    std::vector<std::u16string> log;

    /// Number of the call (1: the first one in `log`) that fails with `failure`; 0: none does.
    std::size_t failCall = 0;
    FileProblem failure = FileProblem::Device;

    /// New files that were neither renamed nor removed.
    std::size_t LeftBehind() const { return open_; }

private:
    void RecordOrFail(std::u16string entry);

    FakeBinaryFiles& files_;
    std::size_t open_ = 0;
    std::size_t names_ = 0;
};

}  // namespace tarvex
