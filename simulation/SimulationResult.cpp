#include "simulation/SimulationResult.h"

#include <algorithm>
#include <utility>

#include "text/Text.h"

namespace tarvex {

namespace {

/// Writes down what matters of what the launcher asks.
class Questions : public PcListener {
public:
    Questions(const LauncherRun& run, SimulationResult& result) : run_(run), result_(result) {}

    void OnAsked(Asked kind, std::u16string_view what, Presence answer) override {
        if (answer != Presence::NotDescribed) {
            return;
        }
        unknown_.emplace_back(what);
        // Without its picture and its help the launcher starts Access all the same.
        if (!run_.InLaunchSteps()) {
            return;
        }
        std::vector<Undescribed>& list = result_.undescribed;
        const bool known = std::any_of(list.begin(), list.end(), [&](const Undescribed& other) {
            return other.kind == kind && text::EqualsIgnoreCase(other.what, what);
        });
        if (!known) {
            list.push_back({kind, std::u16string(what)});
        }
    }

    void OnOnlyInOtherView(std::u16string_view asked, std::u16string_view found,
                           bool used) override {
        if (std::find(unknown_.begin(), unknown_.end(), asked) != unknown_.end()) {
            return;  // perhaps both views hold it
        }
        std::u16string note(found);
        note.append(u" steht nur in der 64-Bit-Ansicht der Registrierung, ")
            .append(asked)
            .append(used ? u" gibt es nicht; das Startprogramm sieht auch dort nach."
                         : u" gibt es nicht; das Startprogramm sieht dort nicht nach.");
        if (std::find(result_.notes.begin(), result_.notes.end(), note) == result_.notes.end()) {
            result_.notes.push_back(std::move(note));
        }
    }

private:
    const LauncherRun& run_;
    SimulationResult& result_;
    std::vector<std::u16string> unknown_;
};

/// Tells the listener to the computer for the time of a block.
class Listening {
public:
    Listening(DescribedPc& pc, PcListener& listener) : pc_(pc) { pc_.SetListener(&listener); }
    Listening(const Listening&) = delete;
    Listening& operator=(const Listening&) = delete;
    ~Listening() { pc_.SetListener(nullptr); }

private:
    DescribedPc& pc_;
};

/// With "\n" for every line end and none after the last line.
std::u16string PlainLines(std::u16string_view text) {
    std::u16string lines = text::Replace(text, text::kLineBreak, u"\n");
    std::replace(lines.begin(), lines.end(), u'\r', u'\n');
    lines.resize(lines.find_last_not_of(u'\n') + 1);
    return lines;
}

/// The first line that differs. A text that ends there counts as an empty line.
void CompareLines(std::u16string_view name, std::u16string_view expected,
                  std::u16string_view actual, std::vector<Deviation>& deviations) {
    const std::u16string expectedText = PlainLines(expected);
    const std::u16string actualText = PlainLines(actual);
    const auto expectedLines = text::Split(expectedText, u'\n');
    const auto actualLines = text::Split(actualText, u'\n');
    const std::size_t count = std::max(expectedLines.size(), actualLines.size());
    for (std::size_t i = 0; i < count; ++i) {
        const auto line = [i](const std::vector<std::u16string_view>& lines) {
            return std::u16string(i < lines.size() ? lines[i] : std::u16string_view());
        };
        if (line(expectedLines) != line(actualLines)) {
            deviations.push_back(
                {std::u16string(name) +
                     (count == 1 ? u"" : u", Zeile " + text::Decimal(static_cast<int>(i) + 1)),
                 line(expectedLines), line(actualLines)});
            return;
        }
    }
}

}  // namespace

std::u16string SimulationResult::Result() const {
    return undescribed.empty() ? ResultText(outcome) : std::u16string(kUndetermined);
}

bool SimulationResult::Passed() const {
    return hasExpectation ? deviations.empty() : outcome.started && undescribed.empty();
}

SimulationResult SimulateStart(const BrandConstants& constants, PcFile& file,
                               std::u16string_view name) {
    SimulationResult result;
    result.name = name;
    const DescribedPc& pc = file.pc;
    LauncherRun run(constants,
                    {pc.RegistryView(), pc.Files(), pc.Codec(), pc.Codec(), pc.Program()});
    Questions questions(run, result);
    {
        const Listening listening(file.pc, questions);
        result.outcome = run.Run();
    }
    result.hasExpectation = file.expectation.given;
    result.deviations = Compare(file.expectation, result);
    return result;
}

std::vector<Deviation> Compare(const Expectation& expected, const SimulationResult& actual) {
    std::vector<Deviation> deviations;
    if (!expected.given) {
        return deviations;
    }
    const LaunchOutcome& outcome = actual.outcome;
    const std::u16string result = actual.Result();
    if (expected.result) {
        CompareLines(u"Ergebnis", *expected.result, result, deviations);
    } else if (result == kUndetermined) {
        deviations.push_back({u"Ergebnis", u"", result});
    }
    const auto comparePath = [&](std::u16string_view name,
                                 const std::optional<std::u16string>& path,
                                 const std::u16string& found) {
        if (path && !text::EqualsIgnoreCase(*path, found)) {
            deviations.push_back({std::u16string(name), *path, found});
        }
    };
    comparePath(u"Access", expected.access, outcome.access);
    comparePath(u"Datenbank", expected.database, outcome.database);
    if (expected.commandLine) {
        CompareLines(u"Befehlszeile", *expected.commandLine, outcome.commandLine, deviations);
    }
    if (expected.protocol) {
        CompareLines(u"Protokoll", *expected.protocol, outcome.text, deviations);
    }
    for (Deviation& deviation : deviations) {
        deviation.expected = WithoutCredentials(outcome, deviation.expected);
        if (deviation.expected == deviation.actual) {
            deviation.expected += u" (nicht maskiert)";
        }
    }
    return deviations;
}

}  // namespace tarvex
