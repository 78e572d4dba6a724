#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "configurator/Model.h"
#include "platform/FileStore.h"

namespace tarvex {

/// How long a run waits for another one that changes the same file.
inline constexpr std::chrono::milliseconds kLockPatience{10'000};

/// What a command may do to the file that it makes.
struct OutputRules {
    /// An existing file may be replaced, and what a link leads to; never a folder, pipe or device.
    bool force = false;

    /// Files that the output must not be, however they are named, with `force` too.
    std::vector<std::u16string> inputs = {};

    /// A file that was read too and may be replaced with `force` all the same; empty: none.
    std::u16string mayReplace = {};

    /// Who may read and write the finished file.
    FileAccess access = {};

    /// The lock of the output, when the caller has it already (LockForChange): the content that was
    /// read from the file is then still the one that is replaced. Not owned; null: it is got and
    /// given back while the file is put in its place.
    const FileLock* held = nullptr;
};

/// Why the file must not be written by the rules; empty when it may. The problems name it.
Problems CheckOutput(const FileStore& store, std::u16string_view path, const OutputRules& rules);

/// The right to read and then change an existing file, for as long as the result lives. When it is
/// null the problems say why.
std::unique_ptr<FileLock> LockForChange(FileStore& store, std::u16string_view path,
                                        Problems& problems);

/// Puts the new file `temp` (FileStore::WriteNewBeside of `path`) in its place by the rules, which
/// are checked again; without `force` of two runs one fails. Throws what the store throws. What
/// the user should know although all is done is added to the notes: an owner or hard links that
/// could not be kept.
Problems PlaceOutput(FileStore& store, std::u16string_view temp, std::u16string_view path,
                     const OutputRules& rules, Problems& notes);

/// Writes a whole file by the rules. Nothing is changed and nothing is left when it fails; the
/// problems name the file.
Problems WriteOutput(FileStore& store, std::u16string_view path, std::string_view bytes,
                     const OutputRules& rules, Problems& notes);

}  // namespace tarvex
