#include "tests/platform/FileSystemContract.h"
#include "tests/support/FakeFileSystem.h"

namespace tarvex {

namespace {

class FakeWorld {
public:
    FakeWorld() { fake_.AddFolder(Path()); }

    std::u16string Path(std::u16string_view name = {}) const {
        const std::u16string folder = u"C:\\Welt";
        return name.empty() ? folder : folder + u"\\" + std::u16string(name);
    }
    void MakeFile(std::u16string_view name, std::string_view bytes) {
        fake_.AddFile(Path(name), std::string(bytes));
    }
    void MakeFolder(std::u16string_view name) { fake_.AddFolder(Path(name)); }
    bool MakeReadOnly(std::u16string_view name) {
        fake_.AddFile(Path(name), *fake_.Bytes(Path(name)), true);
        return true;
    }
    std::optional<std::string> Bytes(std::u16string_view name) const {
        return fake_.Bytes(Path(name));
    }
    FileSystem& files() { return fake_; }

private:
    FakeFileSystem fake_;
};

}  // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, FileSystemContract, FakeWorld);

}  // namespace tarvex
