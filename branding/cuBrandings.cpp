#include "branding/cuBrandings.h"

#include <algorithm>
#include <utility>

#include "errors/RaisedError.h"
#include "errors/RuntimeErrors.h"
#include "text/Text.h"

namespace tarvex {

bool cuBrandings::Dirty() const {
    return std::any_of(items_.begin(), items_.end(),
                       [](const cuBranding& item) { return item.Dirty(); });
}

cuBranding& cuBrandings::Item(std::int32_t number) {
    return const_cast<cuBranding&>(std::as_const(*this).Item(number));
}

const cuBranding& cuBrandings::Item(std::int32_t number) const {
    return AtPlace(u"cuBrandings: Item", [&]() -> const cuBranding& { return *Find(number); });
}

cuBranding* cuBrandings::ItemByName(std::u16string_view name) {
    for (cuBranding& item : items_) {
        if (text::EqualsIgnoreCase(item.Name(), name)) {
            return &item;
        }
    }
    return nullptr;
}

cuBranding& cuBrandings::Add(std::u16string_view name, std::u16string_view value,
                             std::int32_t number, std::int32_t numChars) {
    return AtPlace(u"cuBrandings: Add", [&]() -> cuBranding& {
        if (Position(number) != items_.end()) {
            throw MakeError(RuntimeError::DuplicateKey);
        }
        cuBranding& item = items_.emplace_back();
        item.SetName(name);
        item.SetValue(value);
        item.SetNumChars(numChars);
        item.SetIndex(number);
        item.key_ = number;
        return item;
    });
}

void cuBrandings::Remove(std::int32_t number) {
    AtPlace(u"cuBrandings: Remove", [&] { items_.erase(Find(number)); });
}

void cuBrandings::UnDirtyAll() {
    for (cuBranding& item : items_) {
        item.ClearDirty();
    }
}

cuBrandings::const_iterator cuBrandings::Position(std::int32_t number) const {
    return std::find_if(items_.begin(), items_.end(),
                        [number](const cuBranding& item) { return item.key_ == number; });
}

cuBrandings::const_iterator cuBrandings::Find(std::int32_t number) const {
    const const_iterator found = Position(number);
    if (found == items_.end()) {
        throw MakeError(RuntimeError::InvalidCall);
    }
    return found;
}

}  // namespace tarvex
