#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "configurator/OutputFile.h"
#include "simulation/Collector.h"

namespace tarvex {

/// Entries of all places where Access is known to stand, for CollectPc: what a vendor can take over
/// into his key list when the answers are known.
std::vector<std::u16string> KnownAccessEntries();

/// Full path of a collected file in a folder.
std::u16string CollectedPath(const CollectedFile& file, std::u16string_view folder);

/// Why the files must not be written to the folder by the rules; empty when they may.
Problems CheckCollected(const FileStore& store, const std::vector<CollectedFile>& files,
                        std::u16string_view folder, const OutputRules& rules);

/// Writes them by the rules, the description last: it is there only when those are that it names.
/// None is written when one of them must not be. As for WriteOutput, `notes` is what the user
/// should know although all is done.
Problems WriteCollected(FileStore& store, const std::vector<CollectedFile>& files,
                        std::u16string_view folder, const OutputRules& rules, Problems& notes);

}  // namespace tarvex
