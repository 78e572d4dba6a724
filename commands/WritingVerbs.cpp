#include <utility>

#include "commands/EnteredSettings.h"
#include "commands/ShownSettings.h"
#include "commands/Verbs.h"
#include "configurator/BrandWriter.h"
#include "configurator/SettingsFile.h"
#include "text/Text.h"

namespace tarvex {
namespace {

std::u16string_view BareName(std::u16string_view path) {
    const std::size_t separator = path.find_last_of(u"/\\");
    return separator == std::u16string_view::npos ? path : path.substr(separator + 1);
}

void SetAll(Settings& settings, const Settings& more) {
    for (const auto& [number, entry] : more.Entries()) {
        settings.Set(number, entry.value, entry.line);
    }
}

Problems ReadSettingsFile(CommandContext& context, const std::u16string& file, Settings& settings) {
    Problems problems;
    if (const std::optional<std::string> bytes = context.Read(file, problems)) {
        ParsedSettings parsed = ParseSettings(*bytes, file, context.Codec());
        SetAll(settings, parsed.settings);
        problems = std::move(parsed.problems);
    }
    return problems;
}

OutputRules RulesFor(const CommandLine& line) {
    OutputRules rules;
    rules.force = line.Has(Option::Force);
    rules.inputs = {line.arguments[0]};
    if (line.Has(Option::Settings)) {
        rules.inputs.emplace_back(line.Value(Option::Settings));
    }
    return rules;
}

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

/// Shows what the changes make of a file's settings.
void ShowChanges(CommandContext& context, const Settings& before, const Settings& changes) {
    Settings after = before;
    SetAll(after, changes);
    context.Out(ShownDifferences(CompareSettings(before, after), false));
}

int Change(CommandContext& context, const CommandLine& line, const Settings& changes) {
    const std::u16string& file = line.arguments[0];
    if (line.Has(Option::DryRun)) {
        LoadedSettings loaded = context.Load(file);
        if (loaded.problems.empty()) {
            loaded.problems = BrandWriter(context.Store(), context.Codec()).CheckChange(file);
        }
        if (loaded.problems.empty()) {
            ShowChanges(context, loaded.settings, changes);
        }
        return context.Finish(loaded.problems, file + u" würde geändert.");
    }
    BrandWriter writer(context.Store(), context.Codec());
    const Problems problems = writer.Change(file, changes);
    context.Tell(writer.Notes());
    return context.Finish(problems, file + u" ist geändert.");
}

}  // namespace

int Brand(CommandContext& context, const CommandLine& line) {
    const std::u16string& output = line.arguments[1];
    Settings settings;
    const OutputRules rules = RulesFor(line);
    Problems problems = CheckOutput(context.Store(), output, rules);
    if (line.Has(Option::Settings)) {
        Append(problems,
               ReadSettingsFile(context, std::u16string(line.Value(Option::Settings)), settings));
    }
    Append(problems,
           EnterSettings(context, line.assignments, u"--set", line.Has(Option::Force), settings));
    if (problems.empty() && line.Has(Option::DryRun)) {
        problems = BrandWriter(context.Store(), context.Codec()).CheckBrand(line.arguments[0]);
        if (problems.empty()) {
            ShowChanges(context, {}, settings);
        }
        return context.Finish(problems, output + u" würde konfiguriert.");
    }
    if (problems.empty()) {
        BrandWriter writer(context.Store(), context.Codec());
        problems = writer.Brand(line.arguments[0], output, settings, rules);
        context.Tell(writer.Notes());
    }
    return context.Finish(problems, output + u" ist konfiguriert.");
}

int Set(CommandContext& context, const CommandLine& line) {
    Settings changes;
    const Problems problems = EnterSettings(context, line.assignments, line.arguments[0],
                                            line.Has(Option::Force), changes);
    return problems.empty() ? Change(context, line, changes) : context.Finish(problems, {});
}

int Export(CommandContext& context, const CommandLine& line) {
    const std::u16string& file = line.arguments[0];
    const std::u16string& output = line.arguments[1];
    const bool toOutput = IsStandardOutput(output);
    OutputRules rules = RulesFor(line);
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

int Unset(CommandContext& context, const CommandLine& line) {
    Settings changes;
    Problems problems;
    for (std::size_t i = 1; i < line.arguments.size(); ++i) {
        const std::u16string& name = line.arguments[i];
        if (const BrandField* field = FindBrandFieldByName(name)) {
            changes.Set(field->number, {});
        } else {
            problems.push_back({line.arguments[0], 0, name, UnknownNameText(name)});
        }
    }
    return problems.empty() ? Change(context, line, changes) : context.Finish(problems, {});
}

}  // namespace tarvex
