#include "tests/support/FakeFileSystem.h"

#include <algorithm>
#include <iterator>

#include "text/Text.h"

namespace tarvex {

namespace {

std::u16string Parent(const std::u16string& normalised) {
    const std::size_t separator = normalised.rfind(u'\\');
    return separator == std::u16string::npos ? std::u16string() : normalised.substr(0, separator);
}

bool HasWildcardOrOpenEnd(std::u16string_view path) {
    return path.empty() || path.find_first_of(u"*?\"<>|") != std::u16string_view::npos ||
           path.back() == u'\\' || path.back() == u'/';
}

}  // namespace

void FakeFileSystem::AddFile(std::u16string_view path, std::string bytes, bool readOnly) {
    AddFolder(Parent(Normalise(path)));
    nodes_[Normalise(path)] = {std::move(bytes), false, readOnly};
}

void FakeFileSystem::AddFolder(std::u16string_view path) {
    for (std::u16string folder = Normalise(path); !folder.empty(); folder = Parent(folder)) {
        nodes_[folder].isFolder = true;
    }
}

void FakeFileSystem::Remove(std::u16string_view path) {
    nodes_.erase(Normalise(path));
}

std::optional<std::string> FakeFileSystem::Bytes(std::u16string_view path) const {
    const Node* node = FindNode(path);
    return node != nullptr && !node->isFolder ? std::optional(node->bytes) : std::nullopt;
}

bool FakeFileSystem::FileExists(std::u16string_view path) const {
    const Node* node = FindNode(path);
    return Record(u"exists ", path) && node != nullptr && !node->isFolder;
}

bool FakeFileSystem::Append(std::u16string_view path, std::string_view bytes) {
    const Node* node = FindNode(path);
    if (!Record(u"append ", path) || !ParentExists(path) ||
        (node != nullptr && (node->isFolder || node->readOnly))) {
        return false;
    }
    nodes_[Normalise(path)].bytes.append(bytes);
    return true;
}

bool FakeFileSystem::Write(std::u16string_view path, std::string_view bytes, bool overwrite) {
    const Node* node = FindNode(path);
    if (!Record(u"write ", path) || !ParentExists(path) ||
        (node != nullptr && (node->isFolder || !overwrite))) {
        return false;
    }
    nodes_[Normalise(path)] = {std::string(bytes), false, false};
    return true;
}

std::u16string FakeFileSystem::Normalise(std::u16string_view path) const {
    std::u16string folded;
    std::transform(path.begin(), path.end(), std::back_inserter(folded),
                   [](char16_t unit) { return unit == u'/' ? u'\\' : text::Fold(unit); });
    const bool network = folded.starts_with(u"\\\\");
    const bool drive = folded.size() > 1 && folded[1] == u':';
    if (!network && !drive && !folded.empty()) {
        folded = Normalise(currentFolder) + u'\\' + folded;
    }
    std::vector<std::u16string_view> levels;
    for (const std::u16string_view level : text::Split(folded, u'\\')) {
        if (level == u".." && levels.size() > 1) {
            levels.pop_back();
        } else if (!level.empty() && level != u"." && level != u"..") {
            levels.push_back(level);
        }
    }
    std::u16string result = network ? u"\\\\" : u"";
    for (std::size_t i = 0; i < levels.size(); ++i) {
        result.append(i == 0 ? u"" : u"\\").append(levels[i]);
    }
    return result;
}

const FakeFileSystem::Node* FakeFileSystem::FindNode(std::u16string_view path) const {
    const auto found = HasWildcardOrOpenEnd(path) ? nodes_.end() : nodes_.find(Normalise(path));
    return found == nodes_.end() ? nullptr : &found->second;
}

bool FakeFileSystem::ParentExists(std::u16string_view path) const {
    const auto found = nodes_.find(Parent(Normalise(path)));
    return !HasWildcardOrOpenEnd(path) && found != nodes_.end() && found->second.isFolder;
}

bool FakeFileSystem::Record(std::u16string_view verb, std::u16string_view path) const {
    log.push_back(std::u16string(verb).append(path));
    return log.size() != failCall;
}

}  // namespace tarvex
