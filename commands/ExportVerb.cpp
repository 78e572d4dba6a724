#include "commands/Verbs.h"
#include "configurator/OutputFile.h"
#include "configurator/SettingsFile.h"
#include "text/Text.h"

namespace tarvex {
namespace {

/// The values that a settings file cannot hold.
Problems CheckWritable(const Settings& settings, const std::u16string& file,
                       const TextCodec& codec) {
    Problems problems;
    for (const auto& [number, entry] : settings.Entries()) {
        const BrandField& field = *FindBrandField(number);
        const AcceptedValue accepted = AcceptValue(field, entry.value, codec);
        if (!accepted.problem.empty() || accepted.value != entry.value) {
            problems.push_back(
                {file, 0, std::u16string(field.name),
                 u"Der Wert kann nicht in einer Einstellungsdatei stehen. " + accepted.problem});
        }
    }
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
    if (!toOutput) {
        Append(problems, CheckOutput(context.Store(), output, rules));
    }
    if (problems.empty()) {
        problems = CheckWritable(loaded.settings, file, context.Codec());
    }
    if (!problems.empty()) {
        return context.Finish(problems, {});
    }
    Settings& settings = loaded.settings;
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
        context.Out(text::FromUtf8(bytes));
        return kDone;
    }
    if (line.Has(Option::DryRun)) {
        return context.Finish({}, output + u" würde geschrieben.");
    }
    Problems notes;
    problems = WriteOutput(context.Store(), output, bytes, rules, notes);
    context.Tell(notes);
    return context.Finish(problems, output + u" ist geschrieben.");
}

}  // namespace tarvex
