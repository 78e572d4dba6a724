#include "tests/support/FakeRegistry.h"

#include <algorithm>
#include <utility>

#include "text/Text.h"

namespace tarvex {

namespace {

std::u16string RootName(std::int32_t root) {
    switch (root) {
        case kHKeyClassesRoot:
            return u"HKCR";
        case kHKeyCurrentUser:
            return u"HKCU";
        case kHKeyLocalMachine:
            return u"HKLM";
        case kHKeyUsers:
            return u"HKU";
        default:
            return text::Decimal(root);
    }
}

template <class Values>
auto FindValue(Values& values, std::u16string_view name) {
    return std::find_if(values.begin(), values.end(), [name](const auto& value) {
        return text::EqualsIgnoreCase(value.name, name);
    });
}

}  // namespace

void FakeRegistry::SetText(std::int32_t root, std::u16string_view key,
                           std::u16string_view valueName, std::string bytes) {
    SetValue(root, key, {std::u16string(valueName), std::move(bytes), true});
}

void FakeRegistry::SetTextZ(std::int32_t root, std::u16string_view key,
                            std::u16string_view valueName, std::string text) {
    text.push_back('\0');
    SetText(root, key, valueName, std::move(text));
}

void FakeRegistry::SetOther(std::int32_t root, std::u16string_view key,
                            std::u16string_view valueName, std::size_t size) {
    SetValue(root, key, {std::u16string(valueName), std::string(size, '\1'), false});
}

void FakeRegistry::AddKey(std::int32_t root, std::u16string_view key) {
    EnsureKey(root, key);
}

std::optional<std::string> FakeRegistry::ReadTextInView(View view, std::int32_t root,
                                                        std::u16string_view key,
                                                        std::u16string_view valueName) const {
    if (view == View::k64Bit) {
        return view64->ReadTextInView(View::kOwn, root, key, valueName);
    }
    const Key* found = FindKey(root, key);
    if (!Record(u"read ", root, std::u16string(key).append(u"\\").append(valueName)) ||
        found == nullptr) {
        return std::nullopt;
    }
    const auto value = FindValue(found->values, valueName);
    if (value == found->values.end() || !value->isText) {
        return std::nullopt;
    }
    return value->bytes;
}

std::vector<std::u16string> FakeRegistry::ListValueNames(std::int32_t root, std::u16string_view key,
                                                         std::size_t maxNameChars,
                                                         std::size_t maxDataBytes) const {
    const Key* found = FindKey(root, key);
    std::vector<std::u16string> names;
    if (!Record(u"list ", root, key) || found == nullptr) {
        return names;
    }
    for (const Value& value : found->values) {
        if (value.name.size() > maxNameChars || value.bytes.size() > maxDataBytes) {
            break;
        }
        names.push_back(value.name);
    }
    return names;
}

bool FakeRegistry::Has64BitView() const {
    ++timesAsked;
    return view64 != nullptr;
}

const FakeRegistry::Key* FakeRegistry::FindKey(std::int32_t root, std::u16string_view path) const {
    const auto found = std::find_if(keys_.begin(), keys_.end(), [root, path](const Key& key) {
        return key.root == root && text::EqualsIgnoreCase(key.path, path);
    });
    return found == keys_.end() ? nullptr : &*found;
}

FakeRegistry::Key& FakeRegistry::EnsureKey(std::int32_t root, std::u16string_view path) {
    if (const Key* found = FindKey(root, path)) {
        return keys_[static_cast<std::size_t>(found - keys_.data())];
    }
    return keys_.emplace_back(Key{root, std::u16string(path), {}});
}

void FakeRegistry::SetValue(std::int32_t root, std::u16string_view key, Value value) {
    auto& values = EnsureKey(root, key).values;
    const auto existing = FindValue(values, value.name);
    if (existing == values.end()) {
        values.push_back(std::move(value));
    } else {
        *existing = std::move(value);
    }
}

bool FakeRegistry::Record(std::u16string_view verb, std::int32_t root,
                          std::u16string_view rest) const {
    log.push_back(std::u16string(verb).append(RootName(root)).append(u"\\").append(rest));
    return log.size() != failCall;
}

}  // namespace tarvex
