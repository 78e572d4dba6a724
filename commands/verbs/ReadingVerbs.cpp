#include "commands/Json.h"
#include "commands/verbs/FindingReport.h"
#include "commands/verbs/ShownSettings.h"
#include "commands/verbs/Verbs.h"
#include "text/Text.h"

namespace tarvex {
namespace {

std::u16string JsonOf(const CommandLine& line, const LoadedSettings& loaded, bool all) {
    std::u16string members;
    for (const BrandField* field : FieldsByNumber()) {
        const std::u16string_view value = loaded.settings.Value(field->number);
        if (loaded.settings.Has(field->number) && (all || !value.empty())) {
            members += members.empty() ? u"\n" : u",\n";
            members += u"    " + JsonString(field->name) + u": " +
                       JsonString(ShownValue(*field, value, line.Has(Option::Reveal)));
        }
    }
    return u"{\n  \"file\": " + JsonString(line.arguments[0]) + u",\n  \"branded\": " +
           (loaded.branded ? u"true" : u"false") + u",\n  \"values\": {" + members + u"\n  }\n}\n";
}

}  // namespace

int Get(CommandContext& context, const CommandLine& line) {
    const std::u16string& file = line.arguments[0];
    LoadedSettings loaded = context.Load(file);
    Problems& problems = loaded.problems;
    std::u16string out;
    for (std::size_t i = 1; i < line.arguments.size(); ++i) {
        const BrandField* field = FindFieldByName(line.arguments[i]);
        if (field == nullptr) {
            problems.push_back({file, 0, line.arguments[i], UnknownNameText(line.arguments[i])});
            continue;
        }
        if (field->kind == FieldKind::Credential && !line.Has(Option::Reveal)) {
            problems.push_back({file, 0, std::u16string(field->name),
                                u"Der Wert ist geheim; --reveal gibt ihn aus."});
            continue;
        }
        out += text::Replace(loaded.settings.Value(field->number), text::kLineBreak, u"\n") + u"\n";
    }
    if (problems.empty()) {
        context.Out(out);
    }
    return context.Finish(problems, {});
}

int Show(CommandContext& context, const CommandLine& line) {
    const std::u16string& file = line.arguments[0];
    const LoadedSettings loaded = context.Load(file);
    const bool readable = !loaded.settings.Entries().empty() || loaded.problems.empty();
    if (readable && line.Has(Option::Json)) {
        context.Out(JsonOf(line, loaded, line.Has(Option::All)));
    } else if (readable) {
        std::u16string out;
        if (!loaded.branded) {
            out += u"; " + file + u" ist noch nicht konfiguriert.\n";
        }
        for (const BrandField* field : FieldsByNumber()) {
            const std::u16string_view value = loaded.settings.Value(field->number);
            if (!value.empty() || (line.Has(Option::All) && loaded.settings.Has(field->number))) {
                out += ShownLine(*field, value, line.Has(Option::Reveal));
            }
        }
        context.Out(out);
    }
    TellFindings(context, loaded.warnings, true);
    return context.Finish(loaded.problems, {});
}

int Diff(CommandContext& context, const CommandLine& line) {
    LoadedSettings before = context.Load(line.arguments[0]);
    LoadedSettings after = context.Load(line.arguments[1]);
    Append(before.problems, std::move(after.problems));
    if (!before.problems.empty()) {
        return context.Finish(before.problems, {});
    }
    const std::vector<Difference> differences = CompareSettings(before.settings, after.settings);
    if (differences.empty()) {
        return context.Finish({}, u"Kein Unterschied.");
    }
    if (!line.Has(Option::Quiet)) {
        context.Out(ShownDifferences(differences, line.Has(Option::Reveal)));
    }
    return kFailed;
}

}  // namespace tarvex
