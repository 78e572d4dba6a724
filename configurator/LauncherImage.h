#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "configurator/Model.h"

namespace tarvex {

/// The marks and the marker of a launcher file, found by their bytes and positions. It shares no
/// code with cuBrand, so that it can judge what cuBrand would do to the file and did to it.
class LauncherImage {
public:
    /// A mark of a known field. Positions are 0-based byte offsets in the file.
    struct Mark {
        std::size_t start = 0;       ///< of the prefix
        std::size_t valueStart = 0;  ///< of the value area, 2 bytes a character
        std::u16string area;         ///< the whole value area, padding included
    };

    /// A mark of a field that this version does not know.
    struct UnknownMark {
        std::int32_t number = 0;
        std::size_t width = 0;
        std::u16string name;
        bool isEmpty = true;  ///< its value area holds blanks only
    };

    /// Reads a file's bytes; never fails. `name` names the file in the problems.
    static LauncherImage Read(std::string_view bytes, std::u16string_view name);

    /// Why the file cannot be used at all: it is not a 32-bit program or no launcher, a mark is
    /// damaged (each one is named), or the marker and the one it is compared with are not both
    /// whole.
    const Problems& ReadProblems() const { return readProblems_; }

    /// Known fields that the file has no mark of, because its version is older or newer, in the
    /// order of their numbers. It can be read and shown all the same.
    const std::vector<const BrandField*>& MissingMarks() const { return missingMarks_; }

    /// Marks that stay as they are whatever is written, in the order of the file.
    const std::vector<UnknownMark>& UnknownMarks() const { return unknownMarks_; }

    /// Why these settings cannot be written into the file: a field has a value here and no mark
    /// there. Says nothing about ReadProblems and ChangeProblems.
    Problems ProblemsOfSetting(const Settings& settings) const;

    /// Why it must not be changed although it can be read: it is signed, or a mark or the marker
    /// lies where cuBrand would not find it or would write to a wrong place.
    const Problems& ChangeProblems() const { return changeProblems_; }

    bool IsBranded() const { return branded_; }

    /// The character of the marker that tells "0" from "1"; only in a file that is not branded.
    std::size_t MarkerDigit() const { return markerDigit_; }

    /// The mark of a field; null when it is missing or damaged.
    const Mark* Find(std::int32_t number) const;

    /// What the mark's value area holds without blanks at its ends; empty when there is no mark.
    std::u16string StoredText(std::int32_t number) const;

private:
    class Reader;

    std::u16string name_;
    Problems readProblems_;
    Problems changeProblems_;
    bool branded_ = false;
    std::size_t markerDigit_ = 0;
    std::map<std::int32_t, Mark> marks_;
    std::vector<const BrandField*> missingMarks_;
    std::vector<UnknownMark> unknownMarks_;
};

}  // namespace tarvex
