#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarvex {

/// What a row of a form is.
enum class RowKind {
    Heading,  ///< title of a page
    Text,     ///< a paragraph
    Line,     ///< edit control of one line
    Secret,   ///< the same with its text masked, and a button that shows it
    Lines,    ///< edit control of several lines, takes Enter
    Check,    ///< check box; the label stands beside the box
    Radio,    ///< one option; neighbours of the same group exclude each other
    Choice,   ///< drop-down list
    List,     ///< list with columns; exactly one line is chosen, or none
    Output,   ///< text that can be read and copied only, in a fixed font, with scroll bars
    Buttons   ///< a row of buttons
};

/// A key that presses a button while the list that it belongs to has the focus.
enum class ButtonKey { None, Enter, Insert, Delete, Up, Down, Paste };

struct FormButton {
    std::int32_t id = 0;              ///< unique in the form, also among the rows
    std::u16string caption;           ///< "&" before the access key
    std::u16string name = {};         ///< for screen readers when the caption alone says too little
    ButtonKey key = ButtonKey::None;  ///< Enter: a double click too; Up, Down: with Alt
};

/// One row of a form as it is described; what it holds at the moment is its RowState.
struct FormRow {
    RowKind kind = RowKind::Text;
    std::int32_t id = 0;        ///< unique in the form; 0 for rows that never change
    std::u16string label = {};  ///< "&" before the access key; of Heading and Text the text itself
    std::u16string name = {};   ///< name of the setting, shown small with the label; empty: none
    std::u16string hint = {};   ///< one line of explanation below the control; empty: none
    std::int32_t indent = 0;    ///< steps to the right
    std::int32_t group = 0;     ///< of Radio
    std::int32_t chars = 0;     ///< width of the control in characters; 0: all there is
    std::int32_t lines = 0;     ///< height of Lines, List and Output in lines of text; 0: usual
    bool grows = false;         ///< takes the height that is left over
    bool wraps = false;         ///< Output: long lines are broken and not scrolled
    std::vector<FormButton> buttons = {};      ///< after a Line or Choice, below a List, of Buttons
    std::vector<std::u16string> columns = {};  ///< headers of a List
};

/// What a row holds at the moment.
struct RowState {
    bool visible = true;
    bool enabled = true;
    bool readOnly = false;     ///< of Line, Secret and Lines
    std::u16string text = {};  ///< lines separated by CR LF; of Text: in place of its label
    bool checked = false;      ///< of Check and Radio
    std::vector<std::u16string> choices = {};             ///< of Choice
    std::vector<std::vector<std::u16string>> items = {};  ///< of List: lines of columns
    std::int32_t selected = -1;                           ///< of Choice and List, 0-based; -1: none
    std::u16string message = {};  ///< what is wrong, stands in place of the hint; empty: nothing
    std::u16string note = {};     ///< stands at the right below the control: the room left
    std::vector<std::int32_t> disabledButtons = {};  ///< ids
};

/// What a form shows, and what becomes of what the user does there. A view asks for the rows once,
/// and for the state of every row at the beginning and after each call of a member that is not
/// const.
class FormModel {
public:
    virtual ~FormModel() = default;

    virtual const std::vector<FormRow>& Rows() const = 0;

    /// State of a row with an id other than 0.
    virtual RowState State(std::int32_t id) const = 0;

    /// Id of the row in which the user of a dialog begins; 0: the first one.
    virtual std::int32_t FirstRow() const { return 0; }

    // A form that has no such control need not care.

    virtual void SetText(std::int32_t /*id*/, std::u16string_view /*text*/) {}
    virtual void SetChecked(std::int32_t /*id*/, bool /*checked*/) {}

    /// A line of a Choice or List was chosen; -1: none.
    virtual void Select(std::int32_t /*id*/, std::int32_t /*index*/) {}

    /// A button was pressed, here or by its key.
    virtual void Press(std::int32_t /*buttonId*/) {}

    /// Takes back the last change of that row. False when there is none: the control does what it
    /// does by itself then.
    virtual bool Undo(std::int32_t /*id*/) { return false; }

    /// The default button of the dialog that shows the form was pressed. False keeps it open; what
    /// is wrong shows in the messages of the rows.
    virtual bool Accept() { return true; }
};

}  // namespace tarvex
