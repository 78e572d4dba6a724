#include "configurator/CarriedSettings.h"

#include <algorithm>
#include <utility>

#include "configurator/LauncherImage.h"
#include "configurator/SettingsSource.h"
#include "configurator/program/ProgramFields.h"
#include "configurator/program/ProgramResources.h"
#include "text/Text.h"

namespace tarvex {
namespace {

class Carrier {
public:
    Carrier(std::u16string_view oldName, const std::vector<std::u16string>& drop)
        : oldName_(oldName), drop_(drop), dropped_(drop.size()) {}

    CarriedSettings Carry(std::string_view old, std::string_view target,
                          std::u16string_view targetName, const TextCodec& codec) {
        const LoadedSettings loaded = LoadSettings(old, oldName_, codec);
        result_.problems = loaded.problems;
        if (!loaded.isProgram || (result_.problems.empty() && !loaded.branded)) {
            result_.problems.push_back(
                {oldName_,
                 0,
                 {},
                 u"Die Datei ist kein konfiguriertes Startprogramm; es gibt nichts zu "
                 u"übernehmen."});
        }
        if (!result_.problems.empty()) {
            return std::move(result_);
        }
        TakeSettings(loaded.settings, codec);
        HoldAgainst(LauncherImage::Read(target, targetName), ProgramResources::Read(target));
        LookAtUnknown(LauncherImage::Read(old, oldName_));
        CheckDropped();
        return std::move(result_);
    }

private:
    void TakeSettings(const Settings& settings, const TextCodec& codec) {
        for (const auto& [number, entry] : settings.Entries()) {
            const BrandField& field = *FindField(number);
            // An empty text of the program file is the vendor's too.
            if (IsDropped(field.name) || (entry.value.empty() && !IsProgramField(number))) {
                continue;
            }
            const AcceptedValue accepted = AcceptValue(field, entry.value, codec);
            if (accepted.problem.empty()) {
                result_.settings.Set(number, accepted.value);
            } else {
                Report(field.name, accepted.problem);
            }
        }
        if (result_.settings.Has(kFieldIconFile)) {
            result_.settings.SetIcon(settings.Icon());
        }
    }

    /// What the template has no mark or no room for.
    void HoldAgainst(const LauncherImage& target, const ProgramResources& resources) {
        for (const Problem& problem : target.ProblemsOfSetting(result_.settings)) {
            Report(problem.field, u"Die Vorlage hat dieses Feld nicht.");
        }
        for (const BrandField& field : kProgramFields) {
            if (result_.settings.Has(field.number) && !resources.Problem().empty()) {
                Report(field.name, resources.Problem());
            }
        }
    }

    /// Settings of a version that this program does not know: it can neither read nor write them.
    void LookAtUnknown(const LauncherImage& old) {
        for (const LauncherImage::UnknownMark& mark : old.UnknownMarks()) {
            if (!IsDropped(mark.name) && !mark.isEmpty) {
                Report(mark.name, u"Diese Version von tarvexcf kennt das Feld nicht.");
            }
        }
    }

    void CheckDropped() {
        for (std::size_t i = 0; i < drop_.size(); ++i) {
            if (!dropped_[i] && FindFieldByName(drop_[i]) == nullptr) {
                result_.problems.push_back({u"--drop", 0, drop_[i], UnknownNameText(drop_[i])});
            }
        }
    }

    bool IsDropped(std::u16string_view name) {
        bool dropped = false;
        for (std::size_t i = 0; i < drop_.size(); ++i) {
            if (text::EqualsIgnoreCase(drop_[i], name)) {
                dropped_[i] = true;
                dropped = true;
            }
        }
        return dropped;
    }

    void Report(std::u16string_view field, std::u16string text) {
        result_.misfits.push_back({oldName_, 0, std::u16string(field), std::move(text)});
    }

    std::u16string oldName_;
    const std::vector<std::u16string>& drop_;
    std::vector<bool> dropped_;
    CarriedSettings result_;
};

}  // namespace

CarriedSettings CarrySettings(std::string_view old, std::u16string_view oldName,
                              std::string_view target, std::u16string_view targetName,
                              const std::vector<std::u16string>& drop, const TextCodec& codec) {
    return Carrier(oldName, drop).Carry(old, target, targetName, codec);
}

}  // namespace tarvex
