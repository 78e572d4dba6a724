#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "branding/BrandMark.h"
#include "branding/cuBrand.h"
#include "errors/RaisedError.h"

namespace tarvex {
namespace {

void Require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

/// A file over bytes that outlive it.
class MemoryFile : public BinaryFile {
public:
    explicit MemoryFile(std::string& bytes) : bytes_(bytes) {}

    std::int64_t Size() const override { return static_cast<std::int64_t>(bytes_.size()); }
    void Seek(std::int64_t position) override { position_ = static_cast<std::size_t>(position); }
    std::string Read(std::size_t count) override {
        if (position_ >= bytes_.size()) {
            return {};
        }
        std::string read = bytes_.substr(position_, count);
        position_ += read.size();
        return read;
    }
    void Write(std::string_view bytes) override {
        if (bytes_.size() < position_ + bytes.size()) {
            bytes_.resize(position_ + bytes.size());
        }
        bytes_.replace(position_, bytes.size(), bytes);
        position_ += bytes.size();
    }

private:
    std::string& bytes_;
    std::size_t position_ = 0;
};

class MemoryFiles : public BinaryFiles {
public:
    explicit MemoryFiles(std::string& bytes) : bytes_(bytes) {}

    bool FileExists(std::u16string_view) const override { return true; }
    std::unique_ptr<BinaryFile> Open(std::u16string_view) override {
        return std::make_unique<MemoryFile>(bytes_);
    }

private:
    std::string& bytes_;
};

/// The input after so much filler that it can lie across the end of a block: two bytes say how
/// much.
std::string MakeFile(const std::uint8_t* data, std::size_t size) {
    std::string bytes = ToUtf16Bytes(MarkerText(size % 2 == 0));
    std::size_t filler = 0;
    if (size >= 2) {
        filler = (std::size_t{data[0]} << 8 | data[1]) % 40000;
    }
    bytes.append(filler, 'Z');
    bytes += ToUtf16Bytes(MarkStart());
    if (size > 2) {
        bytes.append(data + 2, data + size);
    }
    return bytes;
}

void LoadAndSave(std::string& bytes) {
    MemoryFiles files(bytes);
    cuBrand brand(&files, nullptr);
    brand.SetFileName(u"x");
    const std::int64_t size = static_cast<std::int64_t>(bytes.size());
    brand.LoadFromFile();
    Require(!brand.Brandings().Dirty());
    for (const cuBranding& item : brand.Brandings()) {
        Require(item.StartPosition() > 0 && item.StartPosition() <= size + 1);
        const std::u16string area = brand.ReadBranding(item);
        Require(item.Value().empty() || area.find(item.Value()) != std::u16string::npos);
    }
    if (bytes.size() % cuBrand::kBlockSize == 0 && brand.Brandings().Count() > 0) {
        brand.Save(false);
    }
}

}  // namespace
}  // namespace tarvex

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarvex;
    std::string bytes = MakeFile(data, size);
    // Whole blocks can be saved as well.
    if (size > 2 && data[2] % 2 == 0) {
        const std::size_t blocks = bytes.size() / cuBrand::kBlockSize + 1;
        bytes.resize(blocks * cuBrand::kBlockSize, 'Z');
    }
    try {
        LoadAndSave(bytes);
    } catch (const RaisedError& error) {
        Require(error.number != 0 && !error.description.empty());
    }
    return 0;
}
