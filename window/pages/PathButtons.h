#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/FileStore.h"
#include "window/document/Document.h"
#include "window/form/UserDialogs.h"

namespace tarvex {

/// The "..." buttons: let the user choose a file or folder, and enter it into the fields of the
/// document. What lies in the launcher's folder or below may become a relative path; the user is
/// asked.
class PathButtons {
public:
    /// All of them outlive this object.
    PathButtons(Document& document, UserDialogs& dialogs, FileStore& files)
        : document_(document), dialogs_(dialogs), files_(files) {}

    /// The button after that row was pressed; of a row without one nothing happens.
    void Press(std::int32_t row);

private:
    struct Target;

    static const Target* FindTarget(std::int32_t row);

    void ChooseAccess();
    void ChooseIcon();
    void ChooseFolder(const Target& target);
    void ChooseFileBeside(const Target& target);
    void ChooseFileAtPlace(const Target& target);
    void EnterPlace(const Target& target, std::u16string_view file);
    void Enter(std::int32_t number, std::u16string_view text);
    std::optional<std::u16string> FolderText(std::u16string_view folder);
    std::u16string StartFolder(std::u16string_view entered) const;

    Document& document_;
    UserDialogs& dialogs_;
    FileStore& files_;
};

}  // namespace tarvex
