#include "commands/verbs/Verbs.h"
#include "configurator/OutputFile.h"
#include "configurator/SettingsFile.h"
#include "configurator/program/ProgramFields.h"
#include "text/Text.h"

namespace tarvex {
namespace {

/// The values that a settings file cannot hold.
Problems CheckWritable(const Settings& settings, const std::u16string& file,
                       const TextCodec& codec) {
    Problems problems;
    for (const auto& [number, entry] : settings.Entries()) {
        const BrandField& field = *FindField(number);
        const AcceptedValue accepted = AcceptValue(field, entry.value, codec);
        if (!accepted.problem.empty() || accepted.value != entry.value) {
            problems.push_back(
                {file, 0, std::u16string(field.name),
                 u"Der Wert kann nicht in einer Einstellungsdatei stehen. " + accepted.problem});
        }
    }
    return problems;
}

/// The icon file beside an exported settings file: "C:\Kunden.ini" has "C:\Kunden.ico".
std::u16string IconBeside(const std::u16string& output) {
    const std::size_t nameStart = output.size() - BareName(output).size();
    const std::size_t point = output.rfind(u'.');
    const bool hasExtension = point != std::u16string::npos && point > nameStart;
    return output.substr(0, hasExtension ? point : output.size()) + u".ico";
}

/// Writes the settings, and before them the icon that they name.
Problems WriteExport(CommandContext& context, const Settings& settings,
                     const std::u16string& output, std::string_view bytes,
                     const OutputRules& rules) {
    Problems notes;
    Problems problems;
    if (!settings.Icon().empty()) {
        const OutputRules iconRules{.force = rules.force, .inputs = rules.inputs};
        problems =
            WriteOutput(context.Store(), IconBeside(output), settings.Icon(), iconRules, notes);
    }
    if (problems.empty()) {
        problems = WriteOutput(context.Store(), output, bytes, rules, notes);
    }
    context.Tell(notes);
    return problems;
}

}  // namespace

int Export(CommandContext& context, const CommandLine& line) {
    const std::u16string& file = line.arguments[0];
    const std::u16string& output = line.arguments[1];
    const bool toOutput = IsStandardOutput(output);
    OutputRules rules;
    rules.force = line.Has(Option::Force);
    rules.inputs = {file};
    LoadedSettings loaded = context.Load(file);
    Problems& problems = loaded.problems;
    Settings& settings = loaded.settings;
    const bool hasIcon = !settings.Icon().empty();
    if (!toOutput) {
        Append(problems, CheckOutput(context.Store(), output, rules));
    }
    if (!toOutput && hasIcon) {
        Append(problems, CheckOutput(context.Store(), IconBeside(output), rules));
    }
    if (problems.empty()) {
        problems = CheckWritable(settings, file, context.Codec());
    }
    if (!problems.empty()) {
        return context.Finish(problems, {});
    }
    if (hasIcon) {
        settings.Set(kFieldIconFile, toOutput ? u"" : BareName(IconBeside(output)));
    }
    for (const BrandField& field : kBrandFields) {
        if (field.kind != FieldKind::Credential || settings.Value(field.number).empty()) {
            continue;
        }
        if (line.Has(Option::NoSecrets)) {
            settings.Set(field.number, {});
        } else {
            rules.access.ownerOnly = true;
        }
    }
    const std::string bytes =
        WriteSettings(settings, u"Einstellungen aus " + std::u16string(BareName(file)));
    if (toOutput) {
        if (hasIcon) {
            context.Err(u"Das Symbol wird nur in eine Datei exportiert.");
        }
        context.Out(text::FromUtf8(bytes));
        return kDone;
    }
    if (line.Has(Option::DryRun)) {
        return context.Finish({}, output + u" würde geschrieben.");
    }
    return context.Finish(WriteExport(context, settings, output, bytes, rules),
                          output + u" ist geschrieben.");
}

}  // namespace tarvex
