#include "app/Application.h"

#include "branding/BrandFields.h"
#include "branding/Scrambling.h"
#include "branding/cuBrand.h"
#include "launch/PathHelpers.h"
#include "text/Text.h"

namespace tarvex {

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
    if (parts_.process.StartMaximised(tarvex_->CommandLine()) == 0) {
        Error().RaiseMessage(Message::StartFailed, tarvex_->CommandLine());
    }
    if (writeLog_) {
        parts_.log.Append(tarvex_->CommandLineHiddenUserPW());
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
    parts_.windows.ShowPicture(picture_.Path(), picture_.Delay(), helpContext_.value_or(0));
    parts_.environment.ui.SetPointerBusy();
}

}  // namespace tarvex
