#pragma once

#include <string>
#include <string_view>

#include "configurator/LauncherImage.h"
#include "configurator/Model.h"
#include "configurator/OutputFile.h"
#include "platform/FileStore.h"

namespace tarvex {

/// Writes settings into launcher files. It works on a copy beside the target, reads the copy back,
/// compares every field and byte, and only then gives it the target's name in one step. After a
/// failure the target is as it was and the copy is gone.
class BrandWriter {
public:
    /// Neither is owned; both outlive this object. `codec` is that of the settings (one byte per
    /// character).
    BrandWriter(FileStore& store, const TextCodec& codec) : store_(store), codec_(codec) {}

    /// Makes `output` from the not yet branded program `source` with these settings; fields that
    /// are not set stay empty. `source` is always among the inputs of the rules, and gives a new
    /// output its permissions. Returns what went wrong, nothing when it is done.
    Problems Brand(std::u16string_view source, std::u16string_view output, const Settings& settings,
                   const OutputRules& rules);

    /// Changes the fields that are set in `changes`, and no other, in a branded or unbranded file.
    /// From reading it to replacing it no other run changes the file.
    Problems Change(std::u16string_view file, const Settings& changes);

    /// The same for a caller that has the file's lock already (LockForChange).
    Problems Change(std::u16string_view file, const Settings& changes, const FileLock& held);

    /// Makes `output` as a copy of the launcher `source` with these changes; `source` stays as it
    /// is, is always among the inputs of the rules, and gives a new output its permissions.
    Problems Copy(std::u16string_view source, std::u16string_view output, const Settings& changes,
                  const OutputRules& rules);

    /// What Brand or Change would refuse the program for, without writing anything.
    Problems CheckBrand(std::u16string_view source, const Settings& settings);
    Problems CheckChange(std::u16string_view file, const Settings& changes);

    /// What the user should know of files that were written all the same: an owner or hard links
    /// that could not be kept, images of the icon that have no place in the program.
    const Problems& Notes() const { return notes_; }

private:
    enum class Purpose { Brand, Change };

    Problems CheckSource(Purpose purpose, std::u16string_view source, const Settings& settings);
    static Problems Refusals(Purpose purpose, const LauncherImage& image,
                             std::u16string_view source, const Settings& settings);
    Problems Write(Purpose purpose, std::u16string_view source, std::u16string_view output,
                   const Settings& settings, const OutputRules& rules);
    Problems WriteCopy(Purpose purpose, const std::string& bytes, const LauncherImage& image,
                       std::u16string_view output, const Settings& settings,
                       const OutputRules& rules);
    void SaveWithCuBrand(Purpose purpose, std::u16string_view file, const LauncherImage& image,
                         const Settings& settings);

    FileStore& store_;
    const TextCodec& codec_;
    Problems notes_;
};

/// The plain values of all fields of a launcher; a value that cannot be read is a problem and is
/// left out. `name` names the file in the problems.
Settings ReadSettings(const LauncherImage& image, std::u16string_view name, const TextCodec& codec,
                      Problems& problems);

/// Whether a file that was branded is what it should be: same length as before, the given values
/// in the fields that are set, all other value areas as before, marked as branded, icon and version
/// texts as PutProgramResources makes them, and no other byte changed. Returns what is not so.
Problems CompareBranded(std::string_view before, std::string_view after, const Settings& settings,
                        std::u16string_view name, const TextCodec& codec);

}  // namespace tarvex
