#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>

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

    /// Reads a file's bytes; never fails. `name` names the file in the problems.
    static LauncherImage Read(std::string_view bytes, std::u16string_view name);

    /// Why the file cannot be used at all: it is not a 32-bit program, its marks are not the
    /// complete set (each missing or damaged one is named), it has no marker.
    const Problems& ReadProblems() const { return readProblems_; }

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

    Problems readProblems_;
    Problems changeProblems_;
    bool branded_ = false;
    std::size_t markerDigit_ = 0;
    std::map<std::int32_t, Mark> marks_;
};

}  // namespace tarvex
