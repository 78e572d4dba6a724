#include "commands/Commands.h"

#include <optional>
#include <set>
#include <utility>

#include "commands/Json.h"
#include "configurator/BrandWriter.h"
#include "configurator/Checks.h"
#include "configurator/FieldTexts.h"
#include "configurator/FileCopy.h"
#include "configurator/LauncherImage.h"
#include "configurator/SettingsFile.h"
#include "errors/RaisedError.h"
#include "text/Text.h"

namespace tarvex {
namespace {

constexpr std::u16string_view kHidden = u"<nicht angezeigt>";

std::u16string_view ShownValue(const BrandField& field, std::u16string_view value, bool reveal) {
    const bool hide = field.kind == FieldKind::Credential && !reveal && !value.empty();
    return hide ? kHidden : value;
}

std::u16string Padded(std::u16string text, std::size_t width) {
    if (text.size() < width) {
        text.resize(width, u' ');
    }
    return text;
}

bool IsProgram(std::u16string_view file, std::string_view bytes) {
    return bytes.starts_with("MZ") || text::EndsWithIgnoreCase(file, u".exe");
}

Problems ProblemsOf(Findings findings) {
    Problems problems;
    for (Finding& finding : findings) {
        problems.push_back(std::move(finding.problem));
    }
    return problems;
}

std::u16string_view BareName(std::u16string_view path) {
    const std::size_t separator = path.find_last_of(u"/\\");
    return separator == std::u16string_view::npos ? path : path.substr(separator + 1);
}

}  // namespace

int Commands::Run(const std::vector<std::u16string>& arguments) {
    const CommandLine line = ParseCommandLine(arguments);
    if (!line.usageError.empty()) {
        environment_.console.Err(line.usageError);
        return kWrongUsage;
    }
    if (!line.answer.empty()) {
        environment_.console.Out(line.answer);
        return kDone;
    }
    try {
        return Execute(line);
    } catch (...) {
        return Finish({{line.input, 0, {}, CurrentError().description}}, {});
    }
}

int Commands::Execute(const CommandLine& line) {
    switch (line.command) {
        case CommandKind::Brand:
            return Brand(line);
        case CommandKind::Set:
            return Set(line);
        case CommandKind::Show:
            return Show(line);
        case CommandKind::Export:
            return Export(line);
        case CommandKind::Check:
            return Check(line);
        case CommandKind::Fields:
            return Fields(line);
        case CommandKind::None:
            break;
    }
    return kWrongUsage;
}

int Commands::Brand(const CommandLine& line) {
    Problems problems = RefuseExisting(line);
    Settings settings;
    try {
        ParsedSettings parsed = ParseSettings(environment_.store.ReadAll(line.settings),
                                              line.settings, environment_.codec);
        settings = std::move(parsed.settings);
        Append(problems, std::move(parsed.problems));
    } catch (...) {
        problems.push_back({line.settings, 0, {}, CurrentError().description});
    }
    Append(problems, Assign(line, u"--set", settings));
    if (problems.empty()) {
        BrandWriter writer(environment_.store, environment_.codec);
        problems = writer.Brand(line.input, line.output, settings);
    }
    return Finish(problems, line.output + u" ist konfiguriert.\n");
}

int Commands::Set(const CommandLine& line) {
    Settings changes;
    Problems problems = Assign(line, line.input, changes);
    if (problems.empty()) {
        BrandWriter writer(environment_.store, environment_.codec);
        problems = writer.Change(line.input, changes);
    }
    return Finish(problems, line.input + u" ist geändert.\n");
}

int Commands::Show(const CommandLine& line) {
    Problems problems;
    bool branded = false;
    const Settings settings = Load(line.input, branded, problems);
    if (settings.Entries().empty()) {
        return Finish(problems, {});
    }
    std::u16string out;
    std::u16string members;
    for (const BrandField* field : FieldsByNumber()) {
        if (!settings.Has(field->number)) {
            continue;
        }
        const std::u16string_view value =
            ShownValue(*field, settings.Value(field->number), line.reveal);
        out += std::u16string(field->name) + u" =";
        if (!value.empty()) {
            out += u" " + text::Replace(value, text::kLineBreak, u"\n ");
        }
        out += u"\n";
        members += members.empty() ? u"\n" : u",\n";
        members += u"    " + JsonString(field->name) + u": " + JsonString(value);
    }
    if (line.json) {
        out = u"{\n  \"file\": " + JsonString(line.input) + u",\n  \"branded\": " +
              (branded ? u"true" : u"false") + u",\n  \"values\": {" + members + u"\n  }\n}\n";
    }
    environment_.console.Out(out);
    return Finish(problems, {});
}

int Commands::Export(const CommandLine& line) {
    Problems problems = RefuseExisting(line);
    bool branded = false;
    const Settings settings = Load(line.input, branded, problems);
    for (const auto& [number, entry] : settings.Entries()) {
        const BrandField& field = *FindBrandField(number);
        const AcceptedValue accepted = AcceptValue(field, entry.value, environment_.codec);
        if (!accepted.problem.empty() || accepted.value != entry.value) {
            problems.push_back(
                {line.input, 0, std::u16string(field.name),
                 u"Der Wert kann nicht in einer Einstellungsdatei stehen. " + accepted.problem});
        }
    }
    if (!problems.empty()) {
        return Finish(problems, {});
    }
    const std::u16string title = u"Einstellungen aus " + std::u16string(BareName(line.input));
    FileCopy copy(environment_.store, line.output, WriteSettings(settings, title));
    try {
        copy.Replace(line.output);
    } catch (...) {
        problems.push_back({line.output, 0, {}, CurrentError().description});
    }
    return Finish(problems, line.output + u" ist geschrieben.\n");
}

int Commands::Check(const CommandLine& line) {
    const std::string bytes = environment_.store.ReadAll(line.input);
    Problems problems;
    if (!IsProgram(line.input, bytes)) {
        ParsedSettings parsed = ParseSettings(bytes, line.input, environment_.codec);
        problems = std::move(parsed.problems);
        Append(problems, ProblemsOf(std::move(parsed.warnings)));
        Append(problems, ProblemsOf(CheckSettings(parsed.settings, line.input)));
        return Finish(problems, line.input + u": keine Beanstandungen.\n");
    }
    const LauncherImage image = LauncherImage::Read(bytes, line.input);
    problems = image.ReadProblems();
    if (image.IsBranded()) {
        const Settings settings = ReadSettings(image, line.input, environment_.codec, problems);
        Append(problems, ProblemsOf(CheckSettings(settings, line.input)));
    } else if (problems.empty()) {
        problems = image.ChangeProblems();
        problems.push_back({line.input, 0, {}, u"Das Startprogramm ist noch nicht konfiguriert."});
    }
    return Finish(problems, line.input + u": keine Beanstandungen.\n");
}

int Commands::Fields(const CommandLine& line) {
    std::u16string out = line.json ? u"[" : u"";
    std::size_t nameWidth = 0;
    for (const BrandField& field : kBrandFields) {
        nameWidth = std::max(nameWidth, field.name.size());
    }
    bool first = true;
    for (const BrandField* field : FieldsByNumber()) {
        const std::u16string width = text::Decimal(UsableWidth(*field, environment_.codec));
        if (line.json) {
            out += first ? u"\n" : u",\n";
            out += u"  {\"number\": " + text::Decimal(field->number) + u", \"name\": " +
                   JsonString(field->name) + u", \"width\": " + width + u", \"storedWidth\": " +
                   text::Decimal(field->width) + u", \"meaning\": " +
                   JsonString(FieldMeaning(*field)) + u"}";
        } else {
            out += text::Decimal(field->number, 3) + u"  " +
                   Padded(std::u16string(field->name), nameWidth) + u"  " +
                   std::u16string(width.size() < 3 ? 3 - width.size() : 0, u' ') + width + u"  " +
                   FieldMeaning(*field) + u"\n";
        }
        first = false;
    }
    out += line.json ? u"\n]\n" : u"";
    environment_.console.Out(out);
    return kDone;
}

Problems Commands::Assign(const CommandLine& line, std::u16string_view place, Settings& settings) {
    Problems problems;
    std::set<std::int32_t> given;
    for (const Assignment& assignment : line.assignments) {
        const BrandField* field = FindBrandFieldByName(assignment.name);
        if (field != nullptr && !given.insert(field->number).second) {
            problems.push_back({std::u16string(place), 0, std::u16string(field->name),
                                u"Der Name kommt doppelt vor."});
            continue;
        }
        Append(problems, AssignOne(assignment, place, settings));
    }
    return problems;
}

Problems Commands::AssignOne(const Assignment& assignment, std::u16string_view place,
                             Settings& settings) {
    const std::u16string file(place);
    const BrandField* field = FindBrandFieldByName(assignment.name);
    if (field == nullptr) {
        return {{file, 0, assignment.name, UnknownNameText(assignment.name)}};
    }
    std::optional<std::u16string> value = assignment.value;
    if (*value == u"-") {
        value = environment_.console.ReadSecretLine(std::u16string(field->name) + u": ");
    }
    if (!value) {
        return {{file, 0, std::u16string(field->name),
                 u"Die Standardeingabe enthält keine Zeile für den Wert."}};
    }
    const AcceptedValue accepted = AcceptValue(*field, *value, environment_.codec);
    if (!accepted.problem.empty()) {
        return {{file, 0, std::u16string(field->name), accepted.problem}};
    }
    settings.Set(field->number, accepted.value);
    return {};
}

Settings Commands::Load(const std::u16string& file, bool& branded, Problems& problems) {
    const LauncherImage image = LauncherImage::Read(environment_.store.ReadAll(file), file);
    branded = image.IsBranded();
    if (!image.ReadProblems().empty()) {
        Append(problems, image.ReadProblems());
        return {};
    }
    return ReadSettings(image, file, environment_.codec, problems);
}

Problems Commands::RefuseExisting(const CommandLine& line) const {
    if (line.force || !environment_.store.FileExists(line.output)) {
        return {};
    }
    return {{line.output, 0, {}, u"Die Datei ist schon vorhanden; --force ersetzt sie."}};
}

int Commands::Finish(const Problems& problems, std::u16string_view done) {
    for (const Problem& problem : problems) {
        environment_.console.Err(ProblemLine(problem) + u"\n");
    }
    if (!problems.empty()) {
        return kFailed;
    }
    if (!done.empty()) {
        environment_.console.Out(done);
    }
    return kDone;
}

}  // namespace tarvex
