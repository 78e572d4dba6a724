#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "window/form/Form.h"

namespace tarvex {

enum class BoxIcon { Information, Warning, Error, Question };

/// A question with buttons of its own.
struct BoxQuestion {
    BoxIcon icon = BoxIcon::Question;
    std::u16string text;                   ///< German; lines separated by "\n"
    std::vector<std::u16string> captions;  ///< 1 to 3, "&" before the access key
    std::int32_t cancel = -1;              ///< 0-based button that Esc stands for; -1: none
};

/// What a file dialog starts with.
struct FileQuestion {
    std::u16string title;
    std::u16string folder = {};     ///< full path; empty: where the user was last
    std::u16string filter = {};     ///< "Startprogramme|*.exe|Alle Dateien|*.*"
    std::u16string name = {};       ///< proposed file name
    std::u16string extension = {};  ///< without ".", added to a name without one
};

/// What a window with a form shows around it.
struct FormDialogTexts {
    std::u16string title;
    std::u16string ok;      ///< caption of the default button; empty: there is only one to close
    std::u16string cancel;  ///< caption of the button that Esc presses
    bool large = false;     ///< as large as the main window, and the user may resize it
};

/// The dialogs that a model asks its user with. A fake answers in tests.
class UserDialogs {
public:
    virtual ~UserDialogs() = default;

    /// The 0-based number of the button that was pressed.
    virtual std::int32_t Ask(const BoxQuestion& question) = 0;

    /// Full path of an existing file, of a file to write (an existing one was confirmed), of a
    /// folder; empty when the user cancelled.
    virtual std::u16string ChooseFile(const FileQuestion& question) = 0;
    virtual std::u16string ChooseNewFile(const FileQuestion& question) = 0;
    virtual std::u16string ChooseFolder(std::u16string_view title, std::u16string_view folder) = 0;

    /// Shows a form until one of its two buttons is pressed. True for the default one, once
    /// FormModel::Accept has agreed.
    virtual bool ShowForm(FormModel& form, const FormDialogTexts& texts) = 0;

    virtual void CopyToClipboard(std::u16string_view text) = 0;

    /// The text on the clipboard; empty when there is none.
    virtual std::u16string Clipboard() = 0;
};

}  // namespace tarvex
