#include "simulation/LauncherRun.h"

#include <utility>

#include "app/Application.h"
#include "errors/MessageTable.h"
#include "launch/LaunchErrors.h"
#include "launch/LaunchRun.h"
#include "launch/Quoting.h"
#include "launch/Resolution.h"
#include "simulation/NoUi.h"
#include "text/Text.h"

namespace tarvex {

namespace {

constexpr std::int32_t kLastLaunchError =
    static_cast<std::int32_t>(LaunchError::AccVersionNotAllowed);

/// Keeps the text of the last log window. The error box is answered with its "Details".
class TextOfWindows : public AppWindows {
public:
    void ShowDebug(const DebugWindow& window) override { text = window.text; }
    bool ShowPicture(const PictureWindow&) override { return false; }
    int ShowCaptionBox(const CaptionBox&) override { return 2; }
    void ShowHelp(std::u16string_view, std::int32_t) override {}

    std::u16string text;
};

class NoProcess : public Process {
public:
    std::uint32_t StartMaximised(std::u16string_view) override {
        started = true;
        return 1;
    }
    bool AllowForeground(std::uint32_t) override { return false; }
    bool OtherInForeground() const override { return true; }
    bool HandleMessages(std::uint32_t) override { return true; }

    bool started = false;
};

class NoClock : public Clock {
public:
    std::u16string GeneralDateTime() const override { return {}; }
    std::uint32_t Milliseconds() const override { return 0; }
};

/// For the log file, which a run that nobody sees must not leave.
class NoFiles : public FileSystem {
public:
    bool FileExists(std::u16string_view) const override { return false; }
    bool Append(std::u16string_view, std::string_view) override { return true; }
    bool Write(std::u16string_view, std::string_view, bool) override { return true; }
};

class NoVersions : public VersionResource {
public:
    std::u16string FullPathName(std::u16string_view) const override { return {}; }
    std::string ReadBlock(std::u16string_view) const override { return {}; }
    std::optional<std::string> QueryBytes(std::string&, std::u16string_view) const override {
        return std::nullopt;
    }
    std::optional<std::u16string> QueryText(std::string&, std::u16string_view) const override {
        return std::nullopt;
    }
    std::u16string LanguageName(std::uint16_t) const override { return {}; }
};

/// One Application with a system that does nothing.
struct QuietLauncher {
    QuietLauncher(const BrandConstants& constants, const LaunchPlace& place,
                  std::u16string arguments)
        : program{place.program.folder, place.program.exeName, std::move(arguments)},
          environment{place.registry, place.files, place.codec, place.settingsCodec, ui, program},
          application({environment, appError, constants, windows, process, clock, log, versions}) {}

    NoUi ui;
    NoFiles noFiles;
    TextOfWindows windows;
    NoProcess process;
    NoClock clock;
    NoVersions versions;
    MessageTable texts;
    ProgramInfo program;
    LaunchEnvironment environment;
    cuAppError appError{ui, texts, program};
    LogFile log{noFiles, clock, environment.codec, program};
    Application application;
};

/// What a step of the engine finds for a real start; empty when it raises its error.
std::u16string Found(std::u16string (*step)(LaunchRun&), const LaunchEnvironment& environment,
                     const cuTarvex& tarvex) {
    LaunchProperties properties = tarvex.Properties();
    properties.testMode = false;
    DiagnosticLog log;
    bool noted = false;
    LaunchRun run{environment, properties, tarvex.AccVersion(), log, noted};
    try {
        return step(run);
    } catch (const RaisedError&) {
        return {};
    }
}

std::u16string WithoutQuotes(const std::u16string& path) {
    return path.size() < 2 ? path : path.substr(1, path.size() - 2);
}

/// Replaces what stands after the switch in a command line, quoted or not.
std::u16string MaskArgument(std::u16string_view line, std::u16string_view lead,
                            std::u16string_view mask) {
    const std::size_t at = text::FindIgnoreCase(line, lead);
    if (at == std::u16string_view::npos) {
        return std::u16string(line);
    }
    const std::size_t start = at + lead.size();
    const bool quoted = text::Drop(line, start).starts_with(u'"');
    const std::size_t last = line.find(quoted ? u'"' : u' ', start + 1);
    std::u16string masked(text::Left(line, start));
    masked.append(Quote(mask));
    return last == std::u16string_view::npos
               ? masked
               : masked.append(text::Drop(line, last + (quoted ? 1U : 0U)));
}

}  // namespace

LauncherRun::LauncherRun(const BrandConstants& constants, LaunchPlace place)
    : constants_(constants), place_(std::move(place)) {}

LaunchOutcome LauncherRun::Run() {
    LaunchOutcome outcome;
    DryRun(outcome);
    RealStart(outcome);
    return outcome;
}

bool LauncherRun::InLaunchSteps() const {
    return running_ != nullptr && running_->Tarvex() != nullptr;
}

void LauncherRun::DryRun(LaunchOutcome& outcome) {
    std::u16string arguments = place_.program.arguments;
    text::AppendWithSeparator(arguments, u"/T", u" ");
    QuietLauncher launcher(constants_, place_, std::move(arguments));
    running_ = &launcher.application;
    launcher.application.Init();
    running_ = nullptr;
    outcome.text = launcher.windows.text;
    const cuTarvex* const tarvex = launcher.application.Tarvex();
    // A line comes about when the search for Access has given a path, there or not. Otherwise the
    // launcher does not look for anything else.
    if (tarvex != nullptr && !tarvex->CommandLine().empty()) {
        outcome.access = WithoutQuotes(Found(ResolveAccess, launcher.environment, *tarvex));
        outcome.database = Found(ResolveDatabase, launcher.environment, *tarvex);
    }
}

void LauncherRun::RealStart(LaunchOutcome& outcome) {
    QuietLauncher launcher(constants_, place_, WithoutTestSwitch(place_.program.arguments));
    running_ = &launcher.application;
    launcher.application.Init();
    running_ = nullptr;
    outcome.started = launcher.process.started;
    if (const RaisedError* error = launcher.appError.Pending()) {
        outcome.errorNumber = error->number;
        outcome.errorText = error->description;
    }
    const cuTarvex* const tarvex = launcher.application.Tarvex();
    if (tarvex == nullptr) {
        return;
    }
    outcome.user = tarvex->Properties().systemDBUser;
    outcome.password = tarvex->Properties().systemDBPwd;
    outcome.commandLine = tarvex->CommandLineHiddenUserPW();
}

std::u16string WithoutTestSwitch(std::u16string_view arguments) {
    const std::vector<std::u16string_view> pieces = text::Split(arguments, u'/');
    std::u16string rest(pieces.front());
    for (std::size_t i = 1; i < pieces.size(); ++i) {
        const std::u16string piece = u"/" + std::u16string(pieces[i]);
        if (!ParseLaunchSwitches(piece).test) {
            rest += piece;
        }
    }
    return rest;
}

std::u16string ResultText(const LaunchOutcome& outcome) {
    if (outcome.started) {
        return u"Start";
    }
    const std::int32_t number = outcome.errorNumber;
    if (number >= 0) {
        return u"Laufzeitfehler " + text::Decimal(number);
    }
    const std::int32_t code = number - NumberOf(LaunchError{});
    const bool isLaunchError = code >= 1 && code <= kLastLaunchError;
    return u"Fehler " + text::Decimal(isLaunchError ? code : cuAppError::kNumberBase - number);
}

std::u16string ErrorLine(const LaunchOutcome& outcome) {
    return outcome.errorText.substr(0, outcome.errorText.find(text::kLineBreak));
}

std::u16string WithoutCredentials(const LaunchOutcome& outcome, std::u16string_view text) {
    struct Credential {
        std::u16string_view lead;
        std::u16string_view mask;
        const std::u16string& value;
    };
    const Credential credentials[] = {{u" /user ", u"XXXX", outcome.user},
                                      {u" /pwd ", u"YYYY", outcome.password}};
    std::u16string masked(text);
    for (const auto& [lead, mask, value] : credentials) {
        // The argument as Access gets it may hold quotes and blanks of its own.
        const std::u16string real = Quote(EscapeCredential(value));
        if (!value.empty()) {
            masked = text::Replace(masked, std::u16string(lead).append(real),
                                   std::u16string(lead).append(Quote(mask)));
        }
        masked = MaskArgument(masked, lead, mask);
    }
    return masked;
}

}  // namespace tarvex
