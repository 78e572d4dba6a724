#include "branding/BrandMark.h"
#include "simulation/pc/DescribedRegistry.h"
#include "tests/platform/RegistryContract.h"
#include "text/TextCodec1252.h"

namespace tarvex {

namespace {

/// Keys and values by way of a description.
class DescribedWorld {
public:
    DescribedWorld() { description_.is64Bit = false; }

    void SetText(std::int32_t root, std::u16string_view key, std::u16string_view valueName,
                 std::string_view bytes) {
        Add(root, key,
            {std::u16string(valueName), kRegTypeText, ToUtf16Bytes(codec_.FromAnsi(bytes))});
    }
    void SetOther(std::int32_t root, std::u16string_view key, std::u16string_view valueName,
                  std::size_t size) {
        Add(root, key, {std::u16string(valueName), kRegTypeBinary, std::string(size, '\1')});
    }
    void AddKey(std::int32_t root, std::u16string_view key) {
        description_.registry.push_back({false, {{Name(root, key), false, {}}}});
    }
    const Registry& registry() const {
        registry_.emplace(description_, codec_);
        return *registry_;
    }

private:
    static std::u16string Name(std::int32_t root, std::u16string_view key) {
        std::u16string name = root == kHKeyLocalMachine ? u"HKLM\\" : u"HKCU\\";
        return name.append(key);
    }
    void Add(std::int32_t root, std::u16string_view key, RegFileValue value) {
        description_.registry.push_back({false, {{Name(root, key), false, {std::move(value)}}}});
    }

    TextCodec1252 codec_;
    PcDescription description_;
    mutable std::optional<DescribedRegistry> registry_;
};

}  // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Described, RegistryContract, DescribedWorld);

}  // namespace tarvex
