#include "tests/launch/RandomSettings.h"

#include "branding/BrandFields.h"

namespace tarvex {
namespace {

class Drawer {
public:
    explicit Drawer(const RandomLaunch& launch)
        : properties_(launch.Settings().Properties()), random_(launch.Seed() + 0x5EED) {}

    DrawnSettings Draw() {
        SetList(kAccRegList, properties_.accRegListString);
        Set(kFieldAccPath, properties_.accPath);
        SetList(kDBRegList, properties_.dbRegListString);
        Set(kFieldDBPath, properties_.dbPath);
        Set(kFieldDBFilename, properties_.dbFilename);
        SetList(kSysDBRegList, properties_.systemDBRegListString);
        Set(kFieldSysDBPath, properties_.systemDBPath);
        Set(kFieldSysDBFilename, properties_.systemDBFilename);
        Set(kFieldUser, properties_.systemDBUser);
        Set(kFieldPwd, properties_.systemDBPwd);
        Set(kFieldProfile, properties_.profile);
        Set(kFieldMacro, properties_.macro);
        Set(kFieldCmd, properties_.cmd);
        SetFlag(kFieldCompact, properties_.optionCompact);
        SetFlag(kFieldDecompile, properties_.optionDecompile);
        SetFlag(kFieldExclusive, properties_.optionExclusive);
        SetFlag(kFieldNoStartup, properties_.optionNoStartup);
        SetFlag(kFieldReadOnly, properties_.optionReadOnly);
        SetFlag(kFieldRepair, properties_.optionRepair);
        SetFlag(kFieldRuntime, properties_.optionRuntime);
        SetFlag(kFieldLog, Chance(30));
        Set(kFieldPicDelay, Chance(80) ? u"1" : u"0");
        Set(kFieldPicPath, properties_.dbPath);
        Set(kFieldPicFilename, Chance(70) ? u"Bild.bmp" : u"");
        if (Chance(40)) {
            SetList(kPicRegList, text::Replace(properties_.dbRegListString, u".mdb", u".bmp"));
        }
        return std::move(settings_);
    }

private:
    bool Chance(std::uint32_t percent) { return random_() % 100 < percent; }

    void Set(std::int32_t field, std::u16string_view value) {
        const auto width = static_cast<std::size_t>(FindBrandField(field)->width);
        if (!value.empty()) {
            settings_[field] = text::Left(value, width);
        }
    }

    void SetFlag(std::int32_t field, bool value) { Set(field, value ? u"1" : u""); }

    /// A whole list in one field is a list all the same; otherwise each entry has its own, and
    /// fields before them stay empty.
    void SetList(const KeyListFields& fields, const std::u16string& list) {
        const std::vector<std::u16string> entries = text::SplitList(list, properties_.markers.list);
        const auto count = static_cast<std::int32_t>(entries.size());
        if (count > KeyListFields::kCount || Chance(20)) {
            Set(fields.Field(1), list);
            return;
        }
        const auto unused = static_cast<std::uint32_t>(KeyListFields::kCount - count);
        auto position = static_cast<std::int32_t>(1 + random_() % (unused + 1));
        for (const std::u16string& entry : entries) {
            Set(fields.Field(position++), entry);
        }
    }

    const LaunchProperties& properties_;
    std::mt19937 random_;
    DrawnSettings settings_;
};

}  // namespace

DrawnSettings SettingsOf(const RandomLaunch& launch) {
    return Drawer(launch).Draw();
}

}  // namespace tarvex
