#include "tests/support/FakeBinaryFiles.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "text/Text.h"

namespace tarvex {

namespace {

std::u16string Key(std::u16string_view path) {
    std::u16string key(path);
    std::transform(key.begin(), key.end(), key.begin(), text::Fold);
    return key;
}

std::u16string Count(std::size_t count) {
    return text::Decimal(static_cast<std::int64_t>(count));
}

}  // namespace

/// An open file; it writes to the node's bytes at once.
class FakeBinaryFile : public BinaryFile {
public:
    FakeBinaryFile(FakeBinaryFiles& files, std::shared_ptr<FakeBinaryFiles::Node> node)
        : files_(files), node_(std::move(node)) {}
    ~FakeBinaryFile() override { files_.Record(u"close"); }

    std::int64_t Size() const override {
        files_.RecordOrFail(u"size");
        return static_cast<std::int64_t>(node_->bytes.size());
    }

    void Seek(std::int64_t position) override {
        files_.RecordOrFail(u"seek " + text::Decimal(position));
        position_ = static_cast<std::size_t>(position);
    }

    std::string Read(std::size_t count) override {
        files_.RecordOrFail(u"read " + Count(count));
        std::string bytes = node_->bytes.substr(std::min(position_, node_->bytes.size()), count);
        position_ += bytes.size();
        return bytes;
    }

    void Write(std::string_view bytes) override {
        files_.RecordOrFail(u"write " + Count(bytes.size()) + u" at " + Count(position_));
        if (node_->bytes.size() < position_ + bytes.size()) {
            node_->bytes.resize(position_ + bytes.size());
        }
        node_->bytes.replace(position_, bytes.size(), bytes);
        position_ += bytes.size();
    }

private:
    FakeBinaryFiles& files_;
    std::shared_ptr<FakeBinaryFiles::Node> node_;
    std::size_t position_ = 0;
};

void FakeBinaryFiles::AddFile(std::u16string_view path, std::string bytes, bool readOnly) {
    nodes_[Key(path)] = std::make_shared<Node>(Node{std::move(bytes), false, readOnly});
}

void FakeBinaryFiles::AddFolder(std::u16string_view path) {
    nodes_[Key(path)] = std::make_shared<Node>(Node{{}, true, false});
}

void FakeBinaryFiles::RemoveFile(std::u16string_view path) {
    nodes_.erase(Key(path));
}

const std::string& FakeBinaryFiles::Bytes(std::u16string_view path) const {
    const Node* const node = Find(path);
    if (node == nullptr || node->isFolder) {
        throw std::out_of_range("no such file");
    }
    return node->bytes;
}

bool FakeBinaryFiles::IsFolder(std::u16string_view path) const {
    const Node* const node = Find(path);
    return node != nullptr && node->isFolder;
}

bool FakeBinaryFiles::FileExists(std::u16string_view path) const {
    Record(u"exists " + std::u16string(path));
    const Node* const node = Find(path);
    return node != nullptr && !node->isFolder;
}

std::unique_ptr<BinaryFile> FakeBinaryFiles::Open(std::u16string_view path) {
    RecordOrFail(u"open " + std::u16string(path));
    const Node* const node = Find(path);
    if (node == nullptr) {
        throw FileFailure{FileProblem::NotFound};
    }
    if (node->isFolder) {
        throw FileFailure{FileProblem::IsFolder};
    }
    if (node->readOnly) {
        throw FileFailure{FileProblem::AccessDenied};
    }
    return std::make_unique<FakeBinaryFile>(*this, nodes_.at(Key(path)));
}

FakeBinaryFiles::Node* FakeBinaryFiles::Find(std::u16string_view path) const {
    const auto found = nodes_.find(Key(path));
    return found == nodes_.end() ? nullptr : found->second.get();
}

void FakeBinaryFiles::Record(std::u16string entry) const {
    log.push_back(std::move(entry));
}

void FakeBinaryFiles::RecordOrFail(std::u16string entry) const {
    Record(std::move(entry));
    if (log.size() == failCall) {
        throw FileFailure{failure};
    }
}

}  // namespace tarvex
