#include "simulation/pc/DescribedRegistry.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "branding/BrandMark.h"
#include "launch/RegistryKeyList.h"
#include "simulation/pc/Names.h"
#include "text/Text.h"

namespace tarvex {
namespace {

std::u16string ValueName(std::u16string_view key, std::u16string_view value) {
    return std::u16string(key).append(u"\\").append(value);
}

/// The person whose keys of HKEY_USERS were exported; empty when there is none or more than one.
std::u16string TheUser(const PcDescription& description) {
    std::u16string_view user;
    for (const RegistryExport& exported : description.registry) {
        for (const RegFileKey& key : exported.keys) {
            const std::u16string_view other = UserOfKey(key.path);
            if (!user.empty() && !other.empty() && !text::EqualsIgnoreCase(user, other)) {
                return {};
            }
            if (!other.empty()) {
                user = other;
            }
        }
    }
    return std::u16string(user);
}

}  // namespace

DescribedRegistry::DescribedRegistry(const PcDescription& description, const TextCodec& ansi)
    : ansi_(ansi),
      is64Bit_(description.is64Bit),
      names_(description.is64Bit, description.windows, TheUser(description)) {
    for (const RegistryExport& exported : description.registry) {
        AddExport(exported);
    }
    for (const std::u16string& name : description.complete) {
        if (name == u"*") {
            isAllComplete_ = true;
        } else if (const auto key = names_.Normalise(name)) {
            tops_.push_back({names_.In64BitView(*key), false});
        }
    }
    for (const std::u16string& name : description.missing) {
        AddMissing(name);
    }
}

void DescribedRegistry::AddExport(const RegistryExport& exported) {
    std::vector<Top> tops;
    for (const RegFileKey& key : exported.keys) {
        const auto name = names_.Normalise(key.path);
        if (!name) {
            continue;  // hardware profiles
        }
        const std::u16string place =
            exported.of32BitView ? names_.In32BitView(*name) : names_.In64BitView(*name);
        const Top top{exported.of32BitView ? *name : place, exported.of32BitView};
        AddTop(tops, top);
        if (key.deleted) {
            DeleteKey(top);
            continue;
        }
        for (const RegFileValue& value : key.values) {
            SetValue(place, value);
        }
    }
    std::move(tops.begin(), tops.end(), std::back_inserter(tops_));
}

/// Keeps the topmost keys only.
void DescribedRegistry::AddTop(std::vector<Top>& tops, Top top) const {
    // A file goes from a key to those below it.
    if (std::any_of(tops.rbegin(), tops.rend(),
                    [&top](const Top& other) { return IsAtOrBelow(top.name, other.name); })) {
        return;
    }
    std::erase_if(tops, [&top](const Top& other) { return IsAtOrBelow(other.name, top.name); });
    tops.push_back(std::move(top));
}

void DescribedRegistry::DeleteKey(const Top& top) {
    std::erase_if(keys_, [this, &top](const auto& entry) {
        const auto names = names_.NamesOf(entry.first, top.of32BitView);
        return std::any_of(names.begin(), names.end(), [&top](const std::u16string& name) {
            return IsAtOrBelow(name, top.name);
        });
    });
}

void DescribedRegistry::SetValue(const std::u16string& key, const RegFileValue& value) {
    Values& values = keys_[FoldedName(key)];
    const auto found = std::find_if(values.begin(), values.end(), [&value](const Value& other) {
        return text::EqualsIgnoreCase(other.name, value.name);
    });
    if (!value.data) {
        if (found != values.end()) {
            values.erase(found);
        }
    } else if (found != values.end()) {
        found->type = value.type;
        found->data = *value.data;
    } else {
        values.push_back({value.name, value.type, *value.data});
    }
}

void DescribedRegistry::AddMissing(std::u16string_view name) {
    const std::size_t separator = name.rfind(u'\\');
    if (!IsRegistryName(name) || separator == std::u16string_view::npos) {
        return;
    }
    if (const auto key = names_.Normalise(name.substr(0, separator))) {
        missing_.insert(
            FoldedName(ValueName(names_.In64BitView(*key), name.substr(separator + 1))));
    }
}

std::optional<std::string> DescribedRegistry::ReadTextInView(View view, std::int32_t root,
                                                             std::u16string_view key,
                                                             std::u16string_view valueName) const {
    const std::u16string name = AsAnsi(valueName);
    for (const Place& place : PlacesOfValue(PlacesOf(root, key), view, name)) {
        const std::u16string& in = place.In(view);
        const std::u16string what = ValueName(in, name);
        const Value* value = FindValue(in, name);
        if (value == nullptr) {
            Tell(Asked::Value, what, Absence(in, name));
            continue;
        }
        if (value->type != kRegTypeText) {
            Tell(Asked::Value, what, Presence::NotThere);
            return std::nullopt;
        }
        Tell(Asked::Value, what, Presence::There);
        std::string bytes = AnsiData(*value);
        if (listener != nullptr && view == View::k64Bit && !CountingBytes(bytes).empty() &&
            !text::EqualsIgnoreCase(place.inOwnView, in)) {
            listener->OnOnlyInOtherView(ValueName(place.inOwnView, name), what, true);
        }
        return bytes;
    }
    return std::nullopt;
}

std::vector<std::u16string> DescribedRegistry::ListValueNames(std::int32_t root,
                                                              std::u16string_view key,
                                                              std::size_t maxNameChars,
                                                              std::size_t maxDataBytes) const {
    const std::vector<Place> places = PlacesOf(root, key);
    const std::vector<const Value*> values = PresentValues(places, View::kOwn);
    const bool isClassesExported = places.size() > 1 && IsComplete(places.front().inOwnView);
    for (auto place = places.begin(); place != places.end(); ++place) {
        if (places.size() > 1 && (place == places.begin()) != isClassesExported) {
            continue;
        }
        Tell(Asked::ValueNames, place->inOwnView, PresenceOfNames(place->inOwnView));
        if (listener != nullptr && is64Bit_ && values.empty() &&
            PresenceOfNames(place->in64BitView) == Presence::There) {
            listener->OnOnlyInOtherView(place->inOwnView, place->in64BitView, false);
        }
    }
    std::vector<std::u16string> names;
    for (const Value* value : values) {
        const std::string name = ansi_.ToAnsi(value->name);
        if (name.size() > maxNameChars || AnsiData(*value).size() > maxDataBytes) {
            break;
        }
        names.push_back(ansi_.FromAnsi(name));
    }
    return names;
}

/// None when the root is none or Windows refuses the key's name. For HKCR three: what was exported
/// of it, the user's classes and the computer's; the first one that holds a value counts.
std::vector<DescribedRegistry::Place> DescribedRegistry::PlacesOf(std::int32_t root,
                                                                  std::u16string_view key) const {
    std::u16string name(HKeyName(root));
    const std::u16string path = AsAnsi(key);
    // Only HKEY_CLASSES_ROOT suffers a separator at the start.
    if (name.empty() || (path.starts_with(u'\\') && root != kHKeyClassesRoot)) {
        return {};
    }
    std::vector<Place> places;
    const auto add = [&](std::u16string_view top) {
        const auto full = names_.Normalise(ValueName(top, path));
        places.push_back({names_.In32BitView(*full), names_.In64BitView(*full)});
    };
    add(name);
    if (root == kHKeyClassesRoot) {
        add(u"HKCU\\Software\\Classes");
        add(u"HKLM\\SOFTWARE\\Classes");
    }
    return places;
}

/// Of the places for a value those that are asked, in their order. What the user's and the
/// computer's classes make up nobody needs to export as HKCR too.
std::vector<DescribedRegistry::Place> DescribedRegistry::PlacesOfValue(
    std::vector<Place> places, View view, std::u16string_view name) const {
    if (places.size() > 1) {
        const auto holds = [&](const Place& place) {
            return FindValue(place.In(view), name) != nullptr;
        };
        const std::u16string& exported = places.front().In(view);
        const bool isExported =
            holds(places.front()) || (Absence(exported, name) == Presence::NotThere &&
                                      std::none_of(places.begin() + 1, places.end(), holds));
        if (isExported) {
            places.resize(1);
        } else {
            places.erase(places.begin());
        }
    }
    return places;
}

const DescribedRegistry::Values* DescribedRegistry::ValuesOf(std::u16string_view key) const {
    const auto found = keys_.find(FoldedName(key));
    return found == keys_.end() ? nullptr : &found->second;
}

/// Null when it is not known to be there.
const DescribedRegistry::Value* DescribedRegistry::FindValue(std::u16string_view key,
                                                             std::u16string_view name) const {
    const Values* values = ValuesOf(key);
    if (values == nullptr || IsMissing(key, name)) {
        return nullptr;
    }
    const auto found = std::find_if(values->begin(), values->end(), [name](const Value& value) {
        return text::EqualsIgnoreCase(value.name, name);
    });
    return found == values->end() ? nullptr : &*found;
}

bool DescribedRegistry::IsMissing(std::u16string_view key, std::u16string_view name) const {
    return missing_.contains(FoldedName(ValueName(key, name)));
}

bool DescribedRegistry::IsComplete(std::u16string_view key) const {
    if (isAllComplete_) {
        return true;
    }
    for (const bool of32BitView : {false, true}) {
        for (const std::u16string& name : names_.NamesOf(key, of32BitView)) {
            for (const Top& top : tops_) {
                if (top.of32BitView == of32BitView && IsAtOrBelow(name, top.name)) {
                    return true;
                }
            }
        }
    }
    return false;
}

/// What is known of a value that FindValue does not find.
Presence DescribedRegistry::Absence(std::u16string_view key, std::u16string_view name) const {
    return IsMissing(key, name) || IsComplete(key) ? Presence::NotThere : Presence::NotDescribed;
}

Presence DescribedRegistry::PresenceOfNames(std::u16string_view key) const {
    if (const Values* values = ValuesOf(key); values != nullptr && !values->empty()) {
        return Presence::There;
    }
    return IsComplete(key) ? Presence::NotThere : Presence::NotDescribed;
}

/// All values of a key, those of the first place in front; one name comes once.
std::vector<const DescribedRegistry::Value*> DescribedRegistry::PresentValues(
    const std::vector<Place>& places, View view) const {
    std::vector<const Value*> present;
    for (const Place& place : places) {
        const Values* values = ValuesOf(place.In(view));
        for (std::size_t i = 0; values != nullptr && i < values->size(); ++i) {
            const Value& value = (*values)[i];
            const bool isHidden =
                IsMissing(place.In(view), value.name) ||
                std::any_of(present.begin(), present.end(), [&value](const Value* other) {
                    return text::EqualsIgnoreCase(other->name, value.name);
                });
            if (!isHidden) {
                present.push_back(&value);
            }
        }
    }
    return present;
}

/// As the functions of the ANSI interface hand the data over.
std::string DescribedRegistry::AnsiData(const Value& value) const {
    const bool isText = value.type == kRegTypeText || value.type == kRegTypeExpandableText ||
                        value.type == kRegTypeTexts;
    return isText ? ansi_.ToAnsi(FromUtf16Bytes(value.data)) : value.data;
}

/// A name as it reaches the registry through the ANSI interface.
std::u16string DescribedRegistry::AsAnsi(std::u16string_view name) const {
    const std::string bytes = ansi_.ToAnsi(name);
    return ansi_.FromAnsi(std::string_view(bytes).substr(0, bytes.find('\0')));
}

void DescribedRegistry::Tell(Asked kind, std::u16string_view what, Presence answer) const {
    if (listener != nullptr) {
        listener->OnAsked(kind, what, answer);
    }
}

}  // namespace tarvex
