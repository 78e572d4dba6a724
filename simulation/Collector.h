#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "branding/BrandConstants.h"
#include "simulation/ThisPc.h"

namespace tarvex {

/// A file of a description.
struct CollectedFile {
    std::u16string name;  ///< without a folder
    std::string bytes;
};

/// Describes a computer as far as a launcher asks for it there: the launcher's engine runs, as for
/// a dry run and a real start, and what it was answered is written down, with nothing else.
/// - `constants` are the launcher's marks, `program` is its full path; it need not exist yet.
/// - `settingsCodec` is that of the settings on this computer.
/// - `accessEntries` are key list entries of places where Access may be; they are asked for as the
///   launcher would with such a key list.
/// The first file is the description, named after the launcher; the others are those that it names.
std::vector<CollectedFile> CollectPc(const ThisPc& pc, const BrandConstants& constants,
                                     std::u16string_view program, const TextCodec& settingsCodec,
                                     const std::vector<std::u16string>& accessEntries);

}  // namespace tarvex
