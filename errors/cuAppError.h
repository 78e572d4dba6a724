#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "errors/MsgParam.h"
#include "errors/RaisedError.h"
#include "platform/ProgramInfo.h"
#include "platform/StringTable.h"
#include "platform/Ui.h"
#include "resources/Messages.h"

namespace tarvex {

/// The application error object: raises numbered errors whose source names the places they passed,
/// keeps an error for later, fills message texts, and shows messages and errors. One instance lives
/// for the whole run. The objects handed to the constructor must outlive it.
///
/// A handler makes the error it caught the pending error (SetPending); ErrRaise, ErrStore and
/// ErrMsg work on it.
class cuAppError {
public:
    /// Added to every (negative) message number that is raised: the base of application errors.
    static constexpr std::int32_t kNumberBase = -2147221504;  // 0x80040000

    using MessageList = std::optional<std::vector<std::u16string>>;

    cuAppError(Ui& ui, const StringTable& texts, const ProgramInfo& program);

    /// Default caption of message boxes; the application's title at first.
    const std::u16string& AppName() const { return appName_; }
    void SetAppName(std::u16string name) { appName_ = std::move(name); }

    /// 2 (the default): errors are shown with their place; 1: with their description only; 0 and
    /// below: not at all.
    std::int32_t ErrLevel() const { return errLevel_; }
    void SetErrLevel(std::int32_t level) { errLevel_ = level; }

    /// Added to the number of every error raised from a message number; 0 at first.
    std::int32_t ErrOffset() const { return errOffset_; }
    void SetErrOffset(std::int32_t offset) { errOffset_ = offset; }

    /// Texts that take the place of the string table, the index being the message number; null (the
    /// default): the string table is used.
    const MessageList& MsgArray() const { return msgArray_; }
    void SetMsgArray(MessageList messages) { msgArray_ = std::move(messages); }

    /// Name of the program in error texts. As the source of an error it counts as no source,
    /// without regard to case.
    const std::u16string& Projectname() const { return projectname_; }
    void SetProjectname(std::u16string name) { projectname_ = std::move(name); }

    /// Full path of the program's help file; empty: the program has none.
    const std::u16string& HelpFile() const { return helpFile_; }
    void SetHelpFile(std::u16string path) { helpFile_ = std::move(path); }

    /// The pending error, null when there is none. The pointer is valid until the next call that
    /// changes the pending error.
    const RaisedError* Pending() const { return pending_ ? &*pending_ : nullptr; }
    void SetPending(const RaisedError& error) { pending_ = error; }
    void ClearPending() { pending_.reset(); }

    /// Raises a message as an error with no place of its own: its number is kNumberBase - message
    /// number + ErrOffset(), its source that of the pending error, which is cleared.
    [[noreturn]] void RaiseMessage(Message message, const MsgParam& param1 = {},
                                   const MsgParam& param2 = {});

    /// Raises an error as RaisedError and clears the pending one.
    /// - number: negative: a message number, as for RaiseMessage. Positive: raised as it is. 0:
    ///   passes the pending error on; without one nothing is raised.
    /// - source: class name or empty; becomes the pending source, " | ", source, ": ", procedure
    ///   and, with a procedure, the pending line in brackets.
    /// - description: filled with the parameters when not empty, otherwise the pending one.
    /// - helpFile: empty: the program's help file when helpContext is at least 1.
    /// number, source and description receive what is raised.
    void ErrRaise(std::int32_t& number, std::u16string& source, std::u16string_view procedure,
                  std::u16string& description, const MsgParam& param1 = {},
                  const MsgParam& param2 = {}, std::int32_t helpContext = 0,
                  std::u16string helpFile = {});

    /// Keeps the pending error for ErrRaiseStored.
    void ErrStore();

    /// Raises the stored error with " | ", source, ": ", procedure and the stored line added to its
    /// source. source receives what is raised.
    [[noreturn]] void ErrRaiseStored(std::u16string& source, std::u16string_view procedure);

    /// The message's text, filled; empty when there is none.
    std::u16string MsgLoad(Message message, const MsgParam& param1 = {},
                           const MsgParam& param2 = {}) const;

    /// The same for a number, whose sign does not matter. Raises runtime error 9 for a number
    /// outside MsgArray().
    std::u16string MsgLoad(std::int32_t number, const MsgParam& param1 = {},
                           const MsgParam& param2 = {}) const;

    /// "@@" becomes a line break, the first "##" the first parameter, the next "##" the second; the
    /// second is used only with a first.
    static std::u16string MsgParse(std::u16string_view text, const MsgParam& param1 = {},
                                   const MsgParam& param2 = {});

    /// Shows a message under the title AppName(), without help. `buttons` are flags of box_style.
    /// Returns the button pressed (IDOK 1, ...).
    int MsgShow(Message message, std::uint32_t buttons, const MsgParam& param1 = {},
                const MsgParam& param2 = {});

    /// The same with everything left to the caller.
    /// - buttons: receives the help button's flag when there is a help file to show.
    /// - text: shown, filled, instead of the numbered message when not empty; receives what is
    ///   shown.
    /// - title: empty becomes AppName().
    /// - helpContext: -1 and below: no help. Otherwise an empty helpFile becomes the program's.
    int MsgShow(std::int32_t number, std::uint32_t& buttons, const MsgParam& param1,
                const MsgParam& param2, std::u16string& text, std::u16string& title,
                std::u16string& helpFile, std::int32_t& helpContext);

    /// Shows the pending error with the place module, ": ", procedure, without help.
    void ErrMsg(std::u16string_view module, std::u16string_view procedure);

    /// The same; with a helpContext above -1 the box has a help button, and an empty helpFile
    /// becomes the program's.
    void ErrMsg(std::u16string_view module, std::u16string_view procedure, std::u16string& helpFile,
                std::int32_t& helpContext);

    /// The pending error's source extended by " | ", module and ": ", procedure, each part only
    /// when it is not empty.
    std::u16string PendingPlace(std::u16string_view module, std::u16string_view procedure) const;

private:
    std::u16string MessageText(std::int32_t number) const;
    std::u16string_view PendingSource() const;
    std::u16string HelpFileInProgramFolder() const;

    /// The error that `raised` (number, source, description, helpFile and helpContext as for
    /// ErrRaise) becomes at `procedure`. Takes the pending error.
    RaisedError Compose(RaisedError raised, std::u16string_view procedure, const MsgParam& param1,
                        const MsgParam& param2);
    [[noreturn]] void Throw(RaisedError error);

    /// Shows the box with the default pointer and restores the busy one.
    int Show(const MessageBoxRequest& box);

    Ui& ui_;
    const StringTable& texts_;
    const ProgramInfo& program_;
    std::u16string appName_;
    std::int32_t errLevel_ = 2;
    std::int32_t errOffset_ = 0;
    MessageList msgArray_;
    std::u16string projectname_;
    std::u16string helpFile_;
    std::optional<RaisedError> pending_;
    RaisedError stored_;
};

}  // namespace tarvex
