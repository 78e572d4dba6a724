#include "errors/cuAppError.h"

#include <cstdlib>
#include <limits>

#include "errors/RaisedError.h"
#include "errors/RuntimeErrors.h"
#include "text/Text.h"

namespace tarvex {

namespace {

constexpr std::u16string_view kPlaceSeparator = u" | ";
constexpr std::u16string_view kMarker = u"##";
constexpr std::uint32_t kCriticalIcon = 16;

/// base + number + offset, or the number itself when that leaves 32 bits.
std::int32_t RaisedNumber(std::int32_t number, std::int32_t offset) {
    const std::int64_t raised = std::int64_t{number} + cuAppError::kNumberBase + offset;
    const bool fits = raised >= std::numeric_limits<std::int32_t>::min() &&
                      raised <= std::numeric_limits<std::int32_t>::max();
    return fits ? static_cast<std::int32_t>(raised) : number;
}

std::u16string InBrackets(std::int32_t line) {
    return u" (" + text::Decimal(line) + u")";
}

}  // namespace

cuAppError::cuAppError(Ui& ui, const StringTable& texts, const ProgramInfo& program)
    : ui_(ui), texts_(texts), program_(program), appName_(kAppTitle), projectname_(kAppTitle) {}

void cuAppError::ErrRaise(std::int32_t& number, std::u16string& source,
                          std::u16string_view procedure, std::u16string& description,
                          const MsgParam& param1, const MsgParam& param2, std::int32_t helpContext,
                          std::u16string helpFile) {
    if (number == 0 && (!pending_ || pending_->number == 0)) {
        ClearPending();
        return;
    }
    Raise(number, source, procedure, description, param1, param2, helpContext, std::move(helpFile));
}

void cuAppError::RaiseMessage(std::int32_t messageNumber, const MsgParam& param1,
                              const MsgParam& param2) {
    std::int32_t number = -messageNumber;
    std::u16string source;
    std::u16string description;
    Raise(number, source, {}, description, param1, param2, 0, {});
}

void cuAppError::Raise(std::int32_t& number, std::u16string& source, std::u16string_view procedure,
                       std::u16string& description, const MsgParam& param1, const MsgParam& param2,
                       std::int32_t helpContext, std::u16string helpFile) {
    const std::u16string pendingSource(PendingSource());
    const RaisedError pending = pending_.value_or(RaisedError());
    ClearPending();

    if (number < 0) {
        try {
            description = MessageText(number);
        } catch (const RaisedError&) {
            // The error on its way matters more than a text that is missing: the description stays.
        }
        number = RaisedNumber(number, errOffset_);
    } else if (number == 0) {
        number = pending.number;
    }

    // A pending description is final: markers in it are part of an inserted path.
    description = description.empty() ? pending.description : MsgParse(description, param1, param2);
    if (description.empty()) {
        description = u"Keine Fehlerbeschreibung verfügbar.";
    }

    if (source.empty()) {
        source = pendingSource;
    } else if (!pendingSource.empty()) {
        source.insert(0, pendingSource + std::u16string(kPlaceSeparator));
    }
    if (!procedure.empty()) {
        text::AppendWithSeparator(source, procedure, u": ");
        if (pending.line != 0) {
            source += InBrackets(pending.line);
        }
    }
    if (helpContext >= 1 && helpFile.empty()) {
        helpFile = HelpFileInProgramFolder();
    }

    ui_.SetPointerDefault();
    throw RaisedError{number, source, description, std::move(helpFile), helpContext, 0};
}

void cuAppError::ErrStore() {
    stored_ = pending_.value_or(RaisedError());
}

void cuAppError::ErrRaiseStored(std::u16string& source, std::u16string_view procedure) {
    // The separator stands even behind an empty stored source.
    source =
        source.empty() ? stored_.source : stored_.source + std::u16string(kPlaceSeparator) + source;
    if (!procedure.empty()) {
        source.append(u": ").append(procedure);
    }
    if (stored_.line > 0) {
        source +=
            source.empty() ? u"Zeile " + text::Decimal(stored_.line) : InBrackets(stored_.line);
    }
    ui_.SetPointerDefault();
    throw RaisedError{stored_.number, source, stored_.description, {}, 0, 0};
}

std::u16string cuAppError::MsgLoad(std::int32_t number, const MsgParam& param1,
                                   const MsgParam& param2) const {
    return MsgParse(MessageText(number), param1, param2);
}

std::u16string cuAppError::MsgParse(std::u16string_view text, const MsgParam& param1,
                                    const MsgParam& param2) {
    std::u16string result = text::Replace(text, u"@@", text::kLineBreak);
    if (!param1.IsNull()) {
        result = text::Replace(result, kMarker, param1.Text(), 1);
        if (!param2.IsNull()) {
            result = text::Replace(result, kMarker, param2.Text(), 1);
        }
    }
    return result;
}

int cuAppError::MsgShow(std::int32_t number, std::uint32_t& buttons, const MsgParam& param1,
                        const MsgParam& param2, std::u16string& text, std::u16string& title,
                        std::u16string& helpFile, std::int32_t& helpContext) {
    text = text.empty() ? MsgLoad(number, param1, param2) : MsgParse(text, param1, param2);
    const bool wasDefault = ui_.PointerIsDefault();
    ui_.SetPointerDefault();
    if (title.empty()) {
        title = appName_;
    }
    if (helpContext > -1) {
        if (helpFile.empty() && !helpFile_.empty()) {
            helpFile = HelpFileInProgramFolder();
        }
        if (!helpFile.empty()) {
            buttons |= kHelpButton;
        }
    }
    const int button = ui_.ShowMessageBox({text, title, buttons, helpFile, helpContext});
    if (!wasDefault) {
        ui_.SetPointerBusy();
    }
    return button;
}

int cuAppError::MsgShow(std::int32_t number, std::uint32_t buttons, const MsgParam& param1,
                        const MsgParam& param2) {
    std::u16string text;
    std::u16string title;
    std::u16string helpFile;
    std::int32_t helpContext = -1;
    return MsgShow(number, buttons, param1, param2, text, title, helpFile, helpContext);
}

void cuAppError::ErrMsg(std::u16string_view module, std::u16string_view procedure,
                        std::u16string& helpFile, std::int32_t& helpContext) {
    if (errLevel_ <= 0) {
        return;
    }
    const RaisedError pending = pending_.value_or(RaisedError());
    std::u16string message = errLevel_ == 2 ? PendingPlace(module, procedure) : std::u16string();
    if (!message.empty()) {
        if (pending.line != 0) {
            message = u"Zeile: " + text::Decimal(pending.line) + std::u16string(text::kLineBreak) +
                      message;
        }
        message.append(text::kLineBreak).append(text::kLineBreak);
    }
    message += pending.description;

    std::uint32_t style = kCriticalIcon;
    if (helpContext > -1) {
        style |= kHelpButton;
        if (helpFile.empty()) {
            helpFile = HelpFileInProgramFolder();
        }
    }
    ui_.SetPointerDefault();
    ui_.ShowMessageBox({message, appName_ + u" <Fehler Nr. " + text::Decimal(pending.number) + u">",
                        style, helpFile, helpContext});
}

void cuAppError::ErrMsg(std::u16string_view module, std::u16string_view procedure) {
    std::u16string helpFile;
    std::int32_t helpContext = -1;
    ErrMsg(module, procedure, helpFile, helpContext);
}

std::u16string cuAppError::PendingPlace(std::u16string_view module,
                                        std::u16string_view procedure) const {
    std::u16string place(PendingSource());
    text::AppendWithSeparator(place, module, kPlaceSeparator, true);
    text::AppendWithSeparator(place, procedure, u": ", true);
    return place;
}

std::u16string cuAppError::MessageText(std::int32_t number) const {
    // In 64 bits, since the lowest number has no positive counterpart.
    const std::int64_t key = std::abs(std::int64_t{number});
    if (msgArray_) {
        if (static_cast<std::uint64_t>(key) >= msgArray_->size()) {
            throw RuntimeError(runtime_error::kIndexOutOfRange);
        }
        return (*msgArray_)[static_cast<std::size_t>(key)];
    }
    return key > std::numeric_limits<std::int32_t>::max()
               ? std::u16string()
               : texts_.Load(static_cast<std::int32_t>(key));
}

std::u16string_view cuAppError::PendingSource() const {
    if (!pending_ || text::EqualsIgnoreCase(pending_->source, projectname_)) {
        return {};
    }
    return pending_->source;
}

std::u16string cuAppError::HelpFileInProgramFolder() const {
    const std::u16string_view path = helpFile_;
    const std::size_t separator = path.rfind(u'\\');
    const std::size_t nameStart = separator == std::u16string_view::npos ? 0 : separator + 1;
    return program_.folder + u"\\" + std::u16string(path.substr(nameStart));
}

}  // namespace tarvex
