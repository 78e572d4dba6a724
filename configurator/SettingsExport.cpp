#include "configurator/SettingsExport.h"

#include "configurator/SettingsFile.h"
#include "configurator/program/ProgramFields.h"
#include "launch/PathHelpers.h"

namespace tarvex {
namespace {

/// The file's name without its folder, whichever separator is before it.
std::u16string_view BareName(std::u16string_view file) {
    return FileNamePart(FileNamePart(file), true);
}

Problems CheckWritable(const Settings& settings, std::u16string_view file, const TextCodec& codec) {
    Problems problems;
    for (const auto& [number, entry] : settings.Entries()) {
        const BrandField& field = *FindField(number);
        const AcceptedValue accepted = AcceptValue(field, entry.value, codec);
        if (!accepted.problem.empty() || accepted.value != entry.value) {
            problems.push_back(
                {std::u16string(file), 0, std::u16string(field.name),
                 u"Der Wert kann nicht in einer Einstellungsdatei stehen. " + accepted.problem});
        }
    }
    return problems;
}

void RemoveSecrets(Settings& settings) {
    for (const BrandField& field : kBrandFields) {
        if (field.kind == FieldKind::Credential && !settings.Value(field.number).empty()) {
            settings.Set(field.number, {});
        }
    }
}

}  // namespace

bool HasSecrets(const Settings& settings) {
    for (const BrandField& field : kBrandFields) {
        if (field.kind == FieldKind::Credential && !settings.Value(field.number).empty()) {
            return true;
        }
    }
    return false;
}

ExportedSettings ExportSettings(Settings settings, std::u16string_view source,
                                std::u16string_view output, bool withSecrets,
                                const TextCodec& codec) {
    ExportedSettings exported;
    exported.problems = CheckWritable(settings, source, codec);
    if (!exported.problems.empty()) {
        return exported;
    }
    if (!settings.Icon().empty()) {
        settings.Set(kFieldIconFile,
                     output.empty() ? std::u16string_view() : BareName(IconBeside(output)));
        exported.icon = output.empty() ? std::string() : settings.Icon();
    }
    if (!withSecrets) {
        RemoveSecrets(settings);
    }
    exported.isSecret = HasSecrets(settings);
    exported.bytes =
        WriteSettings(settings, u"Einstellungen aus " + std::u16string(BareName(source)));
    return exported;
}

std::u16string IconBeside(std::u16string_view output) {
    const std::size_t nameStart = output.size() - BareName(output).size();
    const std::size_t point = output.rfind(u'.');
    const bool hasExtension = point != std::u16string_view::npos && point > nameStart;
    return std::u16string(output.substr(0, hasExtension ? point : output.size())) + u".ico";
}

Problems CheckExport(const FileStore& store, std::u16string_view output, bool hasIcon,
                     const OutputRules& rules) {
    Problems problems = CheckOutput(store, output, rules);
    if (hasIcon) {
        Append(problems, CheckOutput(store, IconBeside(output), rules));
    }
    return problems;
}

Problems WriteExport(FileStore& store, const ExportedSettings& exported, std::u16string_view output,
                     const OutputRules& rules, Problems& notes) {
    Problems problems;
    if (!exported.icon.empty()) {
        problems = WriteOutput(store, IconBeside(output), exported.icon, rules, notes);
    }
    if (problems.empty()) {
        OutputRules ofSettings = rules;
        ofSettings.access.ownerOnly = exported.isSecret;
        problems = WriteOutput(store, output, exported.bytes, ofSettings, notes);
    }
    return problems;
}

}  // namespace tarvex
