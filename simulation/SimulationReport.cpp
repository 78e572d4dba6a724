#include "simulation/SimulationReport.h"

#include <algorithm>

#include "launch/PathHelpers.h"
#include "text/Text.h"

namespace tarvex {

namespace {

bool HasExpectations(const std::vector<SimulationResult>& results) {
    return std::any_of(results.begin(), results.end(),
                       [](const SimulationResult& result) { return result.hasExpectation; });
}

/// What was found, or the first line of the error.
std::u16string Details(const LaunchOutcome& outcome) {
    if (outcome.started) {
        return u"; Access " + outcome.access +
               (outcome.database.empty() ? u"; keine Datenbank"
                                         : u"; Datenbank " + outcome.database);
    }
    return u": " + ErrorLine(outcome);
}

/// "kasse1.pc: Start; Access C:\...; Datenbank C:\...", with "ok" or "FEHLER" before it where
/// something is expected.
std::u16string ResultLine(const SimulationResult& result, bool withVerdict) {
    std::u16string line;
    if (withVerdict) {
        line = result.Passed() ? u"ok      " : u"FEHLER  ";
    }
    line += result.name + u": " + result.Result();
    if (!result.undescribed.empty()) {
        line += u"; nach dem, was beschrieben ist: " + ResultText(result.outcome);
    }
    return line + Details(result.outcome) + u"\n";
}

std::u16string OrEmpty(const std::u16string& text) {
    return text.empty() ? u"<leer>" : text;
}

void AddList(std::u16string& lines, std::u16string_view heading,
             const std::vector<std::u16string>& entries) {
    if (entries.empty()) {
        return;
    }
    lines.append(u"    ").append(heading).append(u"\n");
    for (const std::u16string& entry : entries) {
        lines.append(u"      ").append(entry).append(u"\n");
    }
}

std::u16string DeviationLines(const SimulationResult& result) {
    std::u16string lines;
    for (const Deviation& deviation : result.deviations) {
        lines += u"    " + DeviationText(deviation) + u"\n";
    }
    return lines;
}

std::u16string RemarkLines(const SimulationResult& result) {
    std::u16string lines;
    std::vector<std::u16string> names;
    for (const Undescribed& undescribed : result.undescribed) {
        names.push_back(undescribed.what);
    }
    AddList(lines, u"Nicht beschrieben und darum als nicht vorhanden behandelt:", names);
    AddList(lines, u"So wird es auf dem PC exportiert; was es dort nicht gibt, gehört zu Fehlt:",
            ExportCommands(result.undescribed));
    for (const std::u16string& note : result.notes) {
        lines += u"    " + note + u"\n";
    }
    return lines;
}

std::u16string WindowText(const SimulationResult& result) {
    std::u16string text = text::Replace(result.outcome.text, text::kLineBreak, u"\n");
    return text.ends_with(u'\n') ? text : text + u"\n";
}

/// "1 startet" or "2 starten".
std::u16string Counted(std::ptrdiff_t count, std::u16string_view one, std::u16string_view several) {
    return text::Decimal(count) + u" " + std::u16string(count == 1 ? one : several);
}

std::u16string SumLine(const std::vector<SimulationResult>& results) {
    const auto count = [&results](auto holds) {
        return std::count_if(results.begin(), results.end(), holds);
    };
    const auto all = static_cast<std::ptrdiff_t>(results.size());
    const std::u16string start = Counted(all, u"PC", u"PCs") + u": ";
    if (HasExpectations(results)) {
        const auto passed = count([](const SimulationResult& result) { return result.Passed(); });
        return start + text::Decimal(passed) + u" ok, " + text::Decimal(all - passed) +
               u" FEHLER.\n";
    }
    const auto undetermined =
        count([](const SimulationResult& result) { return !result.undescribed.empty(); });
    const auto started = count([](const SimulationResult& result) { return result.Passed(); });
    return start + Counted(started, u"startet", u"starten") + u", " +
           Counted(all - started - undetermined, u"startet nicht", u"starten nicht") + u", " +
           text::Decimal(undetermined) + u" unbestimmt.\n";
}

/// The topmost of the places, each once, in their order.
std::vector<std::u16string> Topmost(const std::vector<std::u16string>& places) {
    std::vector<std::u16string> topmost;
    for (const std::u16string& place : places) {
        const bool below =
            std::any_of(places.begin(), places.end(), [&place](const std::u16string& other) {
                return text::StartsWithIgnoreCase(place, AddSep(other));
            });
        const bool again = std::any_of(
            topmost.begin(), topmost.end(),
            [&place](const std::u16string& other) { return text::EqualsIgnoreCase(place, other); });
        if (!below && !again) {
            topmost.push_back(place);
        }
    }
    return topmost;
}

void AddCommands(std::vector<std::u16string>& commands, const std::vector<std::u16string>& places,
                 std::u16string_view start, std::u16string_view output,
                 std::u16string_view extension) {
    std::int64_t number = 0;
    for (const std::u16string& place : places) {
        std::u16string command(start);
        command.append(u" \"").append(place).append(u"\" ").append(output);
        if (places.size() > 1) {
            command += text::Decimal(++number);
        }
        commands.push_back(command.append(extension));
    }
}

}  // namespace

SimulationReport ReportSimulation(const std::vector<SimulationResult>& results, bool texts) {
    SimulationReport report;
    const bool withVerdict = HasExpectations(results);
    if (results.size() == 1) {
        const SimulationResult& result = results.front();
        report.result = WindowText(result);
        if (withVerdict) {
            report.result += u"\n" + ResultLine(result, true) + DeviationLines(result);
        } else {
            report.remarks = ResultLine(result, false);
        }
        report.remarks += RemarkLines(result);
    } else {
        for (const SimulationResult& result : results) {
            report.result +=
                ResultLine(result, withVerdict) + DeviationLines(result) + RemarkLines(result);
            if (texts) {
                report.result += u"\n" + WindowText(result) + u"\n";
            }
        }
        report.result += SumLine(results);
    }
    report.remarks.append(kUnseen).append(u"\n");
    return report;
}

std::u16string DeviationText(const Deviation& deviation) {
    return deviation.name + u": erwartet " + OrEmpty(deviation.expected) + u", tatsächlich " +
           OrEmpty(deviation.actual);
}

std::vector<std::u16string> ExportCommands(const std::vector<Undescribed>& undescribed) {
    std::vector<std::u16string> keys;
    std::vector<std::u16string> folders;
    for (const Undescribed& one : undescribed) {
        if (one.kind == Asked::File) {
            // The root of a drive would be listed with everything on the drive.
            const std::u16string_view folder = FolderPart(one.what);
            folders.emplace_back(folder.ends_with(u':') ? std::u16string_view(one.what) : folder);
        } else {
            keys.emplace_back(one.kind == Asked::Value ? FolderPart(one.what)
                                                       : std::u16string_view(one.what));
        }
    }
    std::vector<std::u16string> commands;
    AddCommands(commands, Topmost(keys), u"reg export", u"registrierung", u".reg");
    AddCommands(commands, Topmost(folders), u"dir /s /b /a-d", u"> dateien", u".txt");
    return commands;
}

}  // namespace tarvex
