#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/Registry.h"
#include "simulation/pc/DescribedPc.h"
#include "simulation/pc/PcDescription.h"
#include "simulation/pc/RegistryNames.h"

namespace tarvex {

/// The registry of a described computer, as the launcher, a 32-bit program, reads it there.
///
/// A registry file describes the topmost keys that it names, with everything below them, and the
/// keys and values that it deletes. What the description calls missing is not there, whatever
/// the files say. HKEY_CLASSES_ROOT is what was exported of it, otherwise the user's classes over
/// the computer's. Keys of HKEY_USERS are the user's when the files name one person only.
class DescribedRegistry : public Registry {
public:
    /// `ansi` is the computer's code page and outlives this object.
    DescribedRegistry(const PcDescription& description, const TextCodec& ansi);

    std::vector<std::u16string> ListValueNames(std::int32_t root, std::u16string_view key,
                                               std::size_t maxNameChars,
                                               std::size_t maxDataBytes) const override;

    /// Null: nobody is told.
    PcListener* listener = nullptr;

protected:
    std::optional<std::string> ReadTextInView(View view, std::int32_t root, std::u16string_view key,
                                              std::u16string_view valueName) const override;
    bool Has64BitView() const override { return is64Bit_; }

private:
    struct Value {
        std::u16string name;
        std::uint32_t type = kRegTypeText;
        std::string data;
    };
    using Values = std::vector<Value>;

    /// A key that is described with everything below it, as programs of one kind name it.
    struct Top {
        std::u16string name;
        bool of32BitView = false;
    };

    /// One key where the launcher's question leads, named for itself.
    struct Place {
        std::u16string inOwnView;
        std::u16string in64BitView;
        const std::u16string& In(View view) const {
            return view == View::kOwn ? inOwnView : in64BitView;
        }
    };

    void AddExport(const RegistryExport& exported);
    void DeleteKey(const Top& top);
    void SetValue(const std::u16string& key, const RegFileValue& value);
    void AddMissing(std::u16string_view name);
    void AddTop(std::vector<Top>& tops, Top top) const;

    std::vector<Place> PlacesOf(std::int32_t root, std::u16string_view key) const;
    std::vector<Place> PlacesOfValue(std::vector<Place> places, View view,
                                     std::u16string_view name) const;
    const Values* ValuesOf(std::u16string_view key) const;
    const Value* FindValue(std::u16string_view key, std::u16string_view name) const;
    bool IsMissing(std::u16string_view key, std::u16string_view name) const;
    bool IsComplete(std::u16string_view key) const;
    Presence Absence(std::u16string_view key, std::u16string_view name) const;
    Presence PresenceOfNames(std::u16string_view key) const;
    std::vector<const Value*> PresentValues(const std::vector<Place>& places, View view) const;
    std::string AnsiData(const Value& value) const;
    std::u16string AsAnsi(std::u16string_view name) const;
    void Tell(Asked kind, std::u16string_view what, Presence answer) const;

    const TextCodec& ansi_;
    bool is64Bit_;
    RegistryNames names_;
    std::map<std::u16string, Values> keys_;  // under their names in lower case
    std::set<std::u16string> missing_;       // values, in lower case
    std::vector<Top> tops_;
    bool isAllComplete_ = false;
};

}  // namespace tarvex
