#include "app/Application.h"

#include "branding/BrandFields.h"
#include "branding/Scrambling.h"
#include "branding/cuBrand.h"
#include "launch/PathHelpers.h"
#include "text/Text.h"

namespace tarvex {

namespace {

constexpr std::uint32_t kForegroundLimit = 5000;  // milliseconds
constexpr std::uint32_t kForegroundTurn = 20;

}  // namespace

Application::Application(const ApplicationParts& parts)
    : parts_(parts),
      settings_(parts.constants, parts.appError, parts.environment),
      picture_(parts_.environment, parts.appError) {}

void Application::Init() {
    try {
        RunLaunch();
    } catch (...) {
        const RaisedError error = CurrentError();
        ErrHandler(error);
        if (writeLog_) {
            parts_.log.Append(u"Fehler Nr. " + text::Decimal(error.number) + u": " +
                              error.description);
        }
    }
    parts_.environment.ui.SetPointerBusy();
}

void Application::RunLaunch() {
    if (!settings_.Brand().OwnMarkerIsBranded()) {
        Error().RaiseMessage(Message::NotBranded,
                             CompanionPath(parts_.environment.program, u".exe"));
    }
    settings_.LoadSettings();
    ParseCmdLine();
    InitHelp();
    if (switches_.info) {
        ShowDiagnosticInformation();
        return;
    }
    picture_.StartupPictureSettings(settings_);
    ShowStartupPicture();
    writeLog_ = settings_.Flag(kFieldLog);
    LaunchAccess();
}

void Application::ParseCmdLine() {
    switches_ = ParseLaunchSwitches(parts_.environment.program.arguments);
}

void Application::InitHelp() {
    const std::optional<std::int32_t> context = text::ParseInt32(settings_.Value(kFieldHCID));
    if (!context) {
        return;
    }
    for (const std::u16string_view extension : {u".chm", u".hlp"}) {
        const std::u16string candidate = CompanionPath(parts_.environment.program, extension);
        if (parts_.environment.files.FileExists(candidate)) {
            Error().SetHelpFile(candidate);
            helpContext_ = context;
            return;
        }
    }
}

void Application::ShowDiagnosticInformation() {
    const std::u16string stored = settings_.Value(kFieldEditPwd);
    if (!stored.empty() &&
        DecodeNumberList(stored, parts_.environment.settingsCodec) != switches_.infoPassword) {
        Error().MsgShow(Message::WrongPassword, box_style::kStopIcon);
        return;
    }
    ShowDebugForm(settings_.DebugInfo(parts_.versions));
}

void Application::LaunchAccess() {
    tarvex_ = settings_.InitTarvex();
    tarvex_->Properties().testMode = switches_.test;
    if (switches_.compact) {
        tarvex_->Properties().optionCompact = true;
    }
    if (switches_.repair) {
        tarvex_->Properties().optionRepair = true;
    }
    if (!tarvex_->GetCommandLine()) {
        return;
    }
    if (switches_.test) {
        ShowTestResult();
        return;
    }
    const std::uint32_t access = parts_.process.StartMaximised(tarvex_->CommandLine());
    if (access == 0) {
        Error().RaiseMessage(Message::StartFailed, tarvex_->CommandLine());
    }
    const bool handedOn = parts_.process.AllowForeground(access);
    if (writeLog_) {
        parts_.log.Append(tarvex_->CommandLineHiddenUserPW());
    }
    if (handedOn && pictureShown_) {
        AwaitForeground();
    }
}

// After the picture the foreground is still the launcher's. If the launcher ended now, another
// program would come to the front until Access has a window, and that window might open behind it.
void Application::AwaitForeground() {
    const std::uint32_t start = parts_.clock.Milliseconds();
    while (!parts_.process.OtherInForeground() &&
           parts_.clock.Milliseconds() - start < kForegroundLimit &&
           !parts_.process.HandleMessages(kForegroundTurn)) {
    }
}

void Application::ShowTestResult() {
    const auto message = [this](Message number) { return Error().MsgLoad(number); };
    std::u16string result;
    const auto append = [&result](std::u16string_view piece) {
        text::AppendWithSeparator(result, piece, text::kLineBreak);
    };
    append(
        message(tarvex_->TestModeError() ? Message::TestHeadingWithErrors : Message::TestHeading) +
        u"\r\n");
    append(tarvex_->CommandLineHiddenUserPW());
    append(picture_.Report() + u"\r\n");
    append(message(Message::FurtherParameters) + u"\r\n");
    append(message(writeLog_ ? Message::LogYes : Message::LogNo));
    append(tarvex_->DebugLog() + u"\r\n");
    ShowDebugForm(result);
}

void Application::ShowDebugForm(std::u16string_view text) {
    const ProgramInfo& program = parts_.environment.program;
    parts_.environment.ui.SetPointerDefault();
    DebugWindow window;
    window.caption = Error().Projectname() + u" - Debug";
    window.text = text;
    window.saveFolder = program.folder;
    window.saveName = program.exeName + u".err";
    window.saveTitle = Error().MsgLoad(Message::SaveTitle);
    window.saveFilter = Error().MsgLoad(Message::SaveFilter);
    window.helpContext = helpContext_.value_or(0);
    parts_.windows.ShowDebug(window);
}

void Application::ShowStartupPicture() {
    const bool there = !picture_.Path().empty() && picture_.Delay() > 0 &&
                       parts_.environment.files.FileExists(picture_.Path());
    if (!there) {
        return;
    }
    parts_.environment.ui.SetPointerDefault();
    pictureShown_ = parts_.windows.ShowPicture(
        {Error().AppName(), picture_.Path(), picture_.Delay(), helpContext_.value_or(0)});
    parts_.environment.ui.SetPointerBusy();
}

}  // namespace tarvex
