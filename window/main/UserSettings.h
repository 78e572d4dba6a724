#pragma once

#include <string>
#include <string_view>

namespace tarvex {

/// What the window remembers of its user from one time to the next: short texts under names. Of the
/// settings of a launcher nothing is kept here.
class UserSettings {
public:
    virtual ~UserSettings() = default;

    /// The text of that name, empty when there is none.
    virtual std::u16string Read(std::u16string_view name) const = 0;

    /// Keeps a text; an empty one removes the name. When the system refuses, nothing is kept: the
    /// window works without it.
    virtual void Write(std::u16string_view name, std::u16string_view text) = 0;
};

}  // namespace tarvex
