#include "tests/support/FakeFileStore.h"

#include <utility>

#include "text/Text.h"

namespace tarvex {

class FakeFileLock : public FileLock {
public:
    FakeFileLock(FakeFileStore& store, std::u16string path)
        : store_(store), path_(std::move(path)) {}
    ~FakeFileLock() override {
        store_.held_.erase(path_);
        store_.log.push_back(u"unlock " + path_);
    }

private:
    FakeFileStore& store_;
    std::u16string path_;
};

FileEntry FakeFileStore::Describe(std::u16string_view path) const {
    const auto found = entries.find(std::u16string(path));
    if (found != entries.end()) {
        return found->second;
    }
    if (files_.IsFolder(path)) {
        return {FileKind::Folder};
    }
    return {files_.FileExists(path) ? FileKind::Regular : FileKind::None};
}

bool FakeFileStore::IsSameFile(std::u16string_view a, std::u16string_view b) const {
    return Describe(a).kind != FileKind::None && text::EqualsIgnoreCase(a, b);
}

std::unique_ptr<FileLock> FakeFileStore::Lock(std::u16string_view path,
                                              std::chrono::milliseconds /*patience*/) {
    const std::u16string name(path);
    RecordOrFail(u"lock " + name);
    if (Describe(path).kind == FileKind::None) {
        throw FileFailure{FileProblem::NotFound};
    }
    if (lockedElsewhere.contains(name) || !held_.insert(name).second) {
        throw FileFailure{FileProblem::Locked};
    }
    return std::make_unique<FakeFileLock>(*this, name);
}

std::string FakeFileStore::ReadAll(std::u16string_view path) {
    RecordOrFail(u"read " + std::u16string(path));
    if (files_.IsFolder(path)) {
        throw FileFailure{FileProblem::IsFolder};
    }
    if (!files_.FileExists(path)) {
        throw FileFailure{FileProblem::NotFound};
    }
    return files_.Bytes(path);
}

std::u16string FakeFileStore::WriteNewBeside(std::u16string_view path, std::string_view bytes) {
    RecordOrFail(u"new " + std::u16string(path));
    std::u16string temp =
        std::u16string(path) + u".new" + text::Decimal(static_cast<std::int64_t>(++names_));
    files_.AddFile(temp, std::string(bytes));
    ++open_;
    return temp;
}

bool FakeFileStore::ReplaceWith(std::u16string_view temp, std::u16string_view path,
                                const FileAccess& access) {
    lastAccess = access;
    RecordOrFail(u"replace " + std::u16string(path) + u" with " + std::u16string(temp));
    Rename(temp, path);
    return keepsOwner;
}

void FakeFileStore::PlaceNew(std::u16string_view temp, std::u16string_view path,
                             const FileAccess& access) {
    lastAccess = access;
    RecordOrFail(u"place " + std::u16string(path) + u" from " + std::u16string(temp));
    const FileEntry there = Describe(path);
    if (there.kind != FileKind::None || there.isLink) {
        throw FileFailure{FileProblem::Exists};
    }
    Rename(temp, path);
}

void FakeFileStore::Remove(std::u16string_view path) {
    RecordOrFail(u"remove " + std::u16string(path));
    files_.RemoveFile(path);
    --open_;
}

void FakeFileStore::RecordOrFail(std::u16string entry) {
    log.push_back(std::move(entry));
    if (log.size() == failCall) {
        throw FileFailure{failure};
    }
}

void FakeFileStore::Rename(std::u16string_view temp, std::u16string_view path) {
    files_.AddFile(path, files_.Bytes(temp));
    files_.RemoveFile(temp);
    --open_;
}

}  // namespace tarvex
