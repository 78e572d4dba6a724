#include "app/Application.h"
#include "branding/BrandFields.h"
#include "errors/cuAppErrorFormatter.h"
#include "text/Text.h"

namespace tarvex {

namespace {

constexpr std::size_t kDetailsWidth = 90;
constexpr std::u16string_view kEmptyLine = u"\r\n\r\n";

void RemoveTrailingLineBreaks(std::u16string& text) {
    while (!text.empty() && (text.back() == u'\n' || text.back() == u'\r')) {
        text.pop_back();
    }
}

}  // namespace

void Application::ErrHandler(const RaisedError& error) {
    try {
        const std::u16string report = ErrorReport(error);
        if (switches_.test) {
            std::u16string text = Error().MsgLoad(Message::DetailsHeading, Error().Projectname());
            text::AppendWithSeparator(text, report, kEmptyLine);
            ShowDebugForm(text);
        } else {
            ShowErrorBox(report);
        }
    } catch (...) {
        // The user must learn of the failure even when its report cannot be made.
        parts_.environment.ui.ShowMessageBox(
            {error.description, Error().Projectname(), box_style::kStopIcon, {}, -1});
    }
}

std::u16string Application::ErrorReport(const RaisedError& error) const {
    parts_.appError.SetPending(error);
    std::u16string report =
        cuAppErrorFormatter::GetFormattedError(parts_.appError, u"Application", u"Init");
    if (tarvex_ && !tarvex_->DebugLog().empty()) {
        report.append(kEmptyLine).append(50, u'-').append(kEmptyLine).append(tarvex_->DebugLog());
    }
    return report;
}

void Application::ShowErrorBox(const std::u16string& report) {
    const std::u16string& project = Error().Projectname();

    CaptionBox box;
    box.text =
        Error().MsgLoad(Message::ErrorBoxText, Error().MsgLoad(Message::UnexpectedError, project),
                        FieldOrEmpty(kFieldErrBoxText));
    RemoveTrailingLineBreaks(box.text);
    box.title = project;
    box.style = box_style::kStopIcon;
    box.captions[0] = Error().MsgLoad(Message::EndButton);
    box.captions[1] = Error().MsgLoad(Message::DetailsButton);
    if (HasHelp()) {
        box.captions[2] = Error().MsgLoad(Message::HelpButton);
    }

    std::u16string details = Error().MsgLoad(Message::DetailsHeading, project);
    text::AppendWithSeparator(
        details, cuAppErrorFormatter::WordWrap(FieldOrEmpty(kFieldErrDebugText), kDetailsWidth),
        kEmptyLine, true);
    text::AppendWithSeparator(details, report, kEmptyLine);

    for (;;) {
        parts_.environment.ui.SetPointerDefault();
        const int answer = parts_.windows.ShowCaptionBox(box);
        if (answer == 2) {
            ShowDebugForm(details);
            return;
        }
        // Without a help button the third answer means that the box was closed otherwise.
        if (answer != 3 || !HasHelp()) {
            return;
        }
        parts_.windows.ShowHelp(Error().HelpFile(), *helpContext_);
    }
}

std::u16string Application::FieldOrEmpty(int field) const noexcept {
    try {
        return settings_.Value(field);
    } catch (...) {
        return {};
    }
}

}  // namespace tarvex
