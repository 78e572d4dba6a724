#pragma once

#include <string>

#include "platform/win32/WindowsApi.h"

namespace tarvex {

/// The access rights of a new file that only the user has who runs the program, for CreateFileW.
class OwnerOnlyRights {
public:
    OwnerOnlyRights();
    OwnerOnlyRights(const OwnerOnlyRights&) = delete;
    OwnerOnlyRights& operator=(const OwnerOnlyRights&) = delete;

    /// Valid as long as the object; null when the system does not tell who the user is.
    SECURITY_ATTRIBUTES* Get() { return valid_ ? &attributes_ : nullptr; }

private:
    SECURITY_ATTRIBUTES attributes_{};
    SECURITY_DESCRIPTOR descriptor_{};
    std::string list_;
    bool valid_;
};

/// Gives the file `path` the access rights of the file `model`; they lie in the same folder. Throws
/// FileFailure; a medium that knows no rights is none.
void CopyRights(const std::u16string& model, const std::u16string& path);

/// Gives a file the access rights that its folder has for new ones. As CopyRights.
void InheritRights(const std::u16string& path);

}  // namespace tarvex
