#include <utility>

#include "commands/EnteredSettings.h"
#include "commands/ShownSettings.h"
#include "commands/Verbs.h"
#include "configurator/BrandWriter.h"
#include "configurator/FileCopy.h"
#include "configurator/SettingsFile.h"
#include "configurator/SettingsSource.h"
#include "errors/RaisedError.h"
#include "text/Text.h"

namespace tarvex {
namespace {

Problems RefuseExisting(const CommandContext& context, const CommandLine& line) {
    const std::u16string& output = line.arguments[1];
    if (line.Has(Option::Force) || !context.Store().FileExists(output)) {
        return {};
    }
    return {{output, 0, {}, u"Die Datei ist schon vorhanden; --force ersetzt sie."}};
}

std::u16string_view BareName(std::u16string_view path) {
    const std::size_t separator = path.find_last_of(u"/\\");
    return separator == std::u16string_view::npos ? path : path.substr(separator + 1);
}

void SetAll(Settings& settings, const Settings& more) {
    for (const auto& [number, entry] : more.Entries()) {
        settings.Set(number, entry.value, entry.line);
    }
}

/// Reads what `read` reads; what the system refuses is a problem of the file.
template <typename Read>
Problems ProblemsOf(const std::u16string& file, Read read) {
    try {
        return read();
    } catch (...) {
        return {{file, 0, {}, CurrentError().description}};
    }
}

Problems ReadSettingsFile(const CommandContext& context, const std::u16string& file,
                          Settings& settings) {
    return ProblemsOf(file, [&] {
        ParsedSettings parsed = ParseSettings(context.ReadInput(file), file, context.Codec());
        SetAll(settings, parsed.settings);
        return std::move(parsed.problems);
    });
}

/// Shows what the changes make of a file's settings.
void ShowChanges(const CommandContext& context, const Settings& before, const Settings& changes) {
    Settings after = before;
    SetAll(after, changes);
    context.Out(ShownDifferences(CompareSettings(before, after), false));
}

int Change(const CommandContext& context, const CommandLine& line, const Settings& changes) {
    const std::u16string& file = line.arguments[0];
    if (line.Has(Option::DryRun)) {
        const LoadedSettings loaded = LoadSettings(context.ReadInput(file), file, context.Codec());
        if (loaded.problems.empty()) {
            ShowChanges(context, loaded.settings, changes);
        }
        return context.Finish(loaded.problems, file + u" würde geändert.");
    }
    BrandWriter writer(context.Store(), context.Codec());
    return context.Finish(writer.Change(file, changes), file + u" ist geändert.");
}

}  // namespace

int Brand(const CommandContext& context, const CommandLine& line) {
    const std::u16string& output = line.arguments[1];
    Settings settings;
    Problems problems = RefuseExisting(context, line);
    if (line.Has(Option::Settings)) {
        Append(problems,
               ReadSettingsFile(context, std::u16string(line.Value(Option::Settings)), settings));
    }
    Append(problems,
           EnterSettings(context, line.assignments, u"--set", line.Has(Option::Force), settings));
    if (problems.empty()) {
        BrandWriter writer(context.Store(), context.Codec());
        problems = writer.Brand(line.arguments[0], output, settings);
    }
    return context.Finish(problems, output + u" ist konfiguriert.");
}

int Set(const CommandContext& context, const CommandLine& line) {
    Settings changes;
    const Problems problems = EnterSettings(context, line.assignments, line.arguments[0],
                                            line.Has(Option::Force), changes);
    return problems.empty() ? Change(context, line, changes) : context.Finish(problems, {});
}

int Export(const CommandContext& context, const CommandLine& line) {
    const std::u16string& file = line.arguments[0];
    const std::u16string& output = line.arguments[1];
    LoadedSettings loaded = LoadSettings(context.ReadInput(file), file, context.Codec());
    Problems& problems = loaded.problems;
    Append(problems, RefuseExisting(context, line));
    for (const auto& [number, entry] : loaded.settings.Entries()) {
        const BrandField& field = *FindBrandField(number);
        const AcceptedValue accepted = AcceptValue(field, entry.value, context.Codec());
        if (!accepted.problem.empty() || accepted.value != entry.value) {
            problems.push_back(
                {file, 0, std::u16string(field.name),
                 u"Der Wert kann nicht in einer Einstellungsdatei stehen. " + accepted.problem});
        }
    }
    if (!problems.empty()) {
        return context.Finish(problems, {});
    }
    const std::u16string title = u"Einstellungen aus " + std::u16string(BareName(file));
    FileCopy copy(context.Store(), output, WriteSettings(loaded.settings, title));
    copy.Replace(output);
    return context.Finish({}, output + u" ist geschrieben.");
}

int Unset(const CommandContext& context, const CommandLine& line) {
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
