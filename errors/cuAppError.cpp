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

void cuAppError::RaiseMessage(Message message, const MsgParam& param1, const MsgParam& param2) {
    RaisedError error;
    error.number = -static_cast<std::int32_t>(message);
    Throw(Compose(std::move(error), {}, param1, param2));
}

void cuAppError::ErrRaise(std::int32_t& number, std::u16string& source,
                          std::u16string_view procedure, std::u16string& description,
                          const MsgParam& param1, const MsgParam& param2, std::int32_t helpContext,
                          std::u16string helpFile) {
    if (number == 0 && (!pending_ || pending_->number == 0)) {
        ClearPending();
        return;
    }
    RaisedError error = Compose({number, source, description, std::move(helpFile), helpContext, 0},
                                procedure, param1, param2);
    number = error.number;
    source = error.source;
    description = error.description;
    Throw(std::move(error));
}

RaisedError cuAppError::Compose(RaisedError raised, std::u16string_view procedure,
                                const MsgParam& param1, const MsgParam& param2) {
    const std::u16string pendingSource(PendingSource());
    const RaisedError pending = pending_.value_or(RaisedError());
    ClearPending();

    std::u16string& description = raised.description;
    if (raised.number < 0) {
        try {
            description = MessageText(raised.number);
        } catch (const RaisedError&) {
            // The error on its way matters more than a text that is missing: the description stays.
        }
        raised.number = RaisedNumber(raised.number, errOffset_);
    } else if (raised.number == 0) {
        raised.number = pending.number;
    }

    // A pending description is final: markers in it are part of an inserted path.
    description = description.empty() ? pending.description : MsgParse(description, param1, param2);
    if (description.empty()) {
        description = u"Keine Fehlerbeschreibung verfügbar.";
    }

    std::u16string source = pendingSource;
    text::AppendWithSeparator(source, raised.source, kPlaceSeparator, true);
    if (!procedure.empty()) {
        text::AppendWithSeparator(source, procedure, u": ");
        if (pending.line != 0) {
            source += InBrackets(pending.line);
        }
    }
    raised.source = std::move(source);
    if (raised.helpContext >= 1 && raised.helpFile.empty()) {
        raised.helpFile = HelpFileInProgramFolder();
    }
    return raised;
}

void cuAppError::Throw(RaisedError error) {
    ui_.SetPointerDefault();
    throw RaisedError(std::move(error));
}

void cuAppError::ErrStore() {
    stored_ = pending_.value_or(RaisedError());
}

void cuAppError::ErrRaiseStored(std::u16string& source, std::u16string_view procedure) {
    // Kept: the separator stands even after an empty stored source, and reports are known by it.
    source =
        source.empty() ? stored_.source : stored_.source + std::u16string(kPlaceSeparator) + source;
    if (!procedure.empty()) {
        source.append(u": ").append(procedure);
    }
    if (stored_.line > 0) {
        source +=
            source.empty() ? u"Zeile " + text::Decimal(stored_.line) : InBrackets(stored_.line);
    }
    Throw({stored_.number, source, stored_.description, {}, 0, 0});
}

std::u16string cuAppError::MsgLoad(Message message, const MsgParam& param1,
                                   const MsgParam& param2) const {
    return MsgLoad(static_cast<std::int32_t>(message), param1, param2);
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

int cuAppError::MsgShow(Message message, std::uint32_t buttons, const MsgParam& param1,
                        const MsgParam& param2) {
    return Show({MsgLoad(message, param1, param2), appName_, buttons, {}, -1});
}

int cuAppError::MsgShow(std::int32_t number, std::uint32_t& buttons, const MsgParam& param1,
                        const MsgParam& param2, std::u16string& text, std::u16string& title,
                        std::u16string& helpFile, std::int32_t& helpContext) {
    text = text.empty() ? MsgLoad(number, param1, param2) : MsgParse(text, param1, param2);
    if (title.empty()) {
        title = appName_;
    }
    if (helpContext > -1) {
        if (helpFile.empty() && !helpFile_.empty()) {
            helpFile = HelpFileInProgramFolder();
        }
        if (!helpFile.empty()) {
            buttons |= box_style::kHelpButton;
        }
    }
    return Show({text, title, buttons, helpFile, helpContext});
}

int cuAppError::Show(const MessageBoxRequest& box) {
    const bool wasDefault = ui_.PointerIsDefault();
    ui_.SetPointerDefault();
    const int button = ui_.ShowMessageBox(box);
    if (!wasDefault) {
        ui_.SetPointerBusy();
    }
    return button;
}

void cuAppError::ErrMsg(std::u16string_view module, std::u16string_view procedure) {
    std::u16string helpFile;
    std::int32_t helpContext = -1;
    ErrMsg(module, procedure, helpFile, helpContext);
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

    std::uint32_t style = box_style::kStopIcon;
    if (helpContext > -1) {
        style |= box_style::kHelpButton;
        if (helpFile.empty()) {
            helpFile = HelpFileInProgramFolder();
        }
    }
    ui_.SetPointerDefault();
    ui_.ShowMessageBox({message, appName_ + u" <Fehler Nr. " + text::Decimal(pending.number) + u">",
                        style, helpFile, helpContext});
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
            throw MakeError(RuntimeError::IndexOutOfRange);
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
