#include "tests/platform/BinaryFilesContract.h"
#include "tests/support/FakeBinaryFiles.h"

namespace tarvex {

namespace {

class FakeWorld {
public:
    std::u16string Path(std::u16string_view name) const {
        return u"C:\\Welt\\" + std::u16string(name);
    }
    void MakeFile(std::u16string_view name, std::string_view bytes) {
        fake_.AddFile(Path(name), std::string(bytes));
    }
    void MakeFolder(std::u16string_view name) { fake_.AddFolder(Path(name)); }
    std::optional<std::string> Bytes(std::u16string_view name) const {
        return fake_.Bytes(Path(name));
    }
    BinaryFiles& files() { return fake_; }

private:
    FakeBinaryFiles fake_;
};

}  // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, BinaryFilesContract, FakeWorld);

}  // namespace tarvex
