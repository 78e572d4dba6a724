#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "tests/support/TestFolder.h"
#include "text/Text.h"

namespace tarvex {

namespace fs = std::filesystem;

TestFolder::TestFolder() {
    std::string name = (fs::temp_directory_path() / "tarvexXXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) {
        throw std::runtime_error("no temporary folder");
    }
    path_ = text::FromUtf8(name);
}

TestFolder::~TestFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

std::u16string TestFolder::Path(std::u16string_view name) const {
    return name.empty() ? path_ : path_ + u"/" + std::u16string(name);
}

void TestFolder::MakeFile(std::u16string_view name, std::string_view bytes) const {
    std::ofstream(fs::path(Path(name)), std::ios::binary) << bytes;
}

void TestFolder::MakeFolder(std::u16string_view name) const {
    fs::create_directory(Path(name));
}

bool TestFolder::MakeReadOnly(std::u16string_view name) const {
    fs::permissions(Path(name), fs::perms(0444));
    return access(text::ToUtf8(Path(name)).c_str(), W_OK) != 0;
}

std::optional<std::string> TestFolder::Bytes(std::u16string_view name) const {
    std::ifstream file(fs::path(Path(name)), std::ios::binary);
    if (!file) {
        return std::nullopt;
    }
    return std::string(std::istreambuf_iterator<char>(file), {});
}

std::vector<std::u16string> TestFolder::Names() const {
    std::vector<std::u16string> names;
    for (const auto& entry : fs::directory_iterator(fs::path(path_))) {
        names.push_back(entry.path().filename().u16string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

}  // namespace tarvex
