#include "commands/verbs/EnteredSettings.h"

#include <optional>
#include <set>
#include <string>

namespace tarvex {
namespace {

/// The value that is typed or piped in for a field; the reason in `problem` when there is none.
std::u16string AskFor(CommandContext& context, const BrandField& field, bool allowEmpty,
                      std::u16string& problem) {
    Console& console = context.GetConsole();
    const std::u16string name(field.name);
    const std::optional<std::u16string> value = console.ReadSecretLine(name + u": ");
    if (!value) {
        problem = u"Die Standardeingabe enthält keine Zeile für den Wert.";
        return {};
    }
    if (field.kind == FieldKind::Credential && value->empty() && !allowEmpty) {
        problem = u"Die Eingabe ist leer; mit --force wird der Wert geleert.";
        return {};
    }
    if (console.IsInteractive() && console.ReadSecretLine(name + u" (noch einmal): ") != value) {
        problem = u"Die beiden Eingaben sind verschieden.";
        return {};
    }
    return *value;
}

}  // namespace

Problems EnterSettings(CommandContext& context, const std::vector<Assignment>& assignments,
                       std::u16string_view place, bool allowEmpty, Settings& settings) {
    Problems problems;
    Settings entered;
    std::set<std::int32_t> given;
    for (const Assignment& assignment : assignments) {
        const BrandField* field = FindFieldByName(assignment.name);
        const auto report = [&](std::u16string_view problem) {
            problems.push_back({std::u16string(place), 0,
                                field != nullptr ? std::u16string(field->name) : assignment.name,
                                std::u16string(problem)});
        };
        if (field == nullptr) {
            report(UnknownNameText(assignment.name));
            continue;
        }
        if (!given.insert(field->number).second) {
            report(u"Der Name kommt doppelt vor.");
            continue;
        }
        std::u16string problem;
        const std::u16string value = assignment.value == u"-"
                                         ? AskFor(context, *field, allowEmpty, problem)
                                         : assignment.value;
        AcceptedValue accepted;
        if (problem.empty()) {
            accepted = AcceptValue(*field, value, context.Codec());
            problem = accepted.problem;
        }
        if (problem.empty()) {
            entered.Set(field->number, accepted.value);
        } else {
            report(problem);
        }
    }
    Append(problems, LoadIconFile(context.Store(), {}, place, entered));
    settings.SetAll(entered);
    return problems;
}

}  // namespace tarvex
