#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "configurator/Model.h"
#include "configurator/program/ByteNumbers.h"
#include "configurator/program/IconFile.h"
#include "configurator/program/ProgramRoom.h"
#include "configurator/program/VersionBlock.h"

namespace tarvex {

/// Icon and version texts of a launcher, as they stand in its file.
class ProgramResources {
public:
    /// Reads a file's bytes; never fails.
    static ProgramResources Read(std::string_view bytes);

    /// German, why icon and texts of this file can be neither read nor changed; empty when they
    /// can. What follows is empty otherwise.
    const std::u16string& Problem() const { return room_.problem; }

    /// Whether a vendor has given this field of kProgramFields; else it is the template's.
    bool IsVendors(std::int32_t number) const;

    const VersionBlock& Version() const { return version_; }
    const IconImages& Images() const { return images_; }

    const ProgramRoom& Room() const { return room_; }

    /// The parts of the file that PutProgramResources may change.
    std::vector<FileRange> ChangeableRanges() const;

private:
    ProgramRoom room_;
    VersionBlock version_;
    IconImages images_;
};

/// As ReadIconFile, but only the images that have room in a program; the others are left out.
ReadIcon ReadIconForProgram(std::string_view bytes);

/// What became of fields that were to be put into a program.
struct PutResult {
    Problems problems;  ///< why nothing was changed; empty when it was
    std::vector<std::u16string>
        leftOut;  ///< German, images of the icon that are not in the program
};

/// Puts those of kProgramFields that are set into the bytes of a launcher; the others stay. The
/// icon is that of Settings::Icon(). The length stays, and what stood there before does not matter:
/// the same fields and the same unset ones give the same bytes. `name` names the file in the
/// problems.
PutResult PutProgramResources(std::string& bytes, const Settings& settings,
                              std::u16string_view name);

/// The fields that are the vendor's, as settings: IconFile is the sizes of the images, and
/// Settings::Icon() an .ico file of them. Nothing is set when there is a Problem().
void AddProgramSettings(const ProgramResources& resources, Settings& settings);

}  // namespace tarvex
