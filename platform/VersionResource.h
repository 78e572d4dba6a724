#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarvex {

/// The system's functions for the version resource of a file. Failures show in the results.
class VersionResource {
public:
    virtual ~VersionResource() = default;

    /// The absolute path that the system makes of `path`; empty when it refuses.
    virtual std::u16string FullPathName(std::u16string_view path) const = 0;

    /// The file's version block, to be handed to the queries; empty when the file is missing, has
    /// no version resource or cannot be read.
    virtual std::string ReadBlock(std::u16string_view path) const = 0;

    /// The bytes of a value in the block, such as "\" or "\VarFileInfo\Translation"; nothing when
    /// there is no such value. The system may use free parts of the block for its work.
    virtual std::optional<std::string> QueryBytes(std::string& block,
                                                  std::u16string_view value) const = 0;

    /// The text of a value in the block up to its first zero; nothing when there is no such value.
    virtual std::optional<std::u16string> QueryText(std::string& block,
                                                    std::u16string_view value) const = 0;

    /// The system's name for a language identifier such as 0x0407; empty when it has none.
    virtual std::u16string LanguageName(std::uint16_t language) const = 0;
};

}  // namespace tarvex
