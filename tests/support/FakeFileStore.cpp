#include "tests/support/FakeFileStore.h"

#include <utility>

#include "text/Text.h"

namespace tarvex {

std::string FakeFileStore::ReadAll(std::u16string_view path) {
    RecordOrFail(u"read " + std::u16string(path));
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

void FakeFileStore::ReplaceWith(std::u16string_view temp, std::u16string_view path) {
    RecordOrFail(u"replace " + std::u16string(path) + u" with " + std::u16string(temp));
    files_.AddFile(path, files_.Bytes(temp));
    files_.RemoveFile(temp);
    --open_;
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

}  // namespace tarvex
