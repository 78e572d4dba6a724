#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "branding/BrandConstants.h"
#include "branding/BrandFields.h"
#include "branding/cuBrand.h"
#include "launch/LaunchEnvironment.h"

namespace tarvex {

class cuAppError;
class cuTarvex;
class VersionResource;

/// The launcher's view of its own configuration, read from the marks in its image.
class pSettings {
public:
    /// The arguments outlive this object.
    pSettings(const BrandConstants& constants, cuAppError& appError,
              const LaunchEnvironment& environment);
    ~pSettings();

    /// The parsed marks; their values are plain after LoadSettings, but for the number lists of the
    /// credentials.
    const cuBrand& Brand() const { return *brand_; }

    /// Reads all marks. Raises message 117 when the program is not branded.
    void LoadSettings();

    /// The plain value of a field without blanks at its ends, or the default when that is empty.
    /// User names and passwords are still number lists. Before LoadSettings every value is empty.
    /// Raises runtime error 5 for a number that is not among the marks.
    std::u16string Value(std::int32_t field, std::u16string_view defaultValue = {}) const;

    /// True exactly when the field holds "1".
    bool Flag(std::int32_t field) const;

    /// A launch object with all launch settings; the caller owns it. Raises runtime errors when
    /// user name or password cannot be read.
    std::unique_ptr<cuTarvex> InitTarvex() const;

    /// The entries of a key list that are not empty, in their order. Before LoadSettings there are
    /// none.
    std::vector<std::u16string> KeyList(const KeyListFields& list) const;

    /// Hands the key lists that are not empty to the launch object.
    void BuildRegLists(cuTarvex& tarvex) const;

    /// The diagnostic report: every setting but user name and passwords, the version and the texts
    /// of the launcher's version resource. Lines are joined by CR LF.
    std::u16string DebugInfo(const VersionResource& versions) const;

private:
    const BrandConstants& constants_;
    cuAppError& appError_;
    LaunchEnvironment environment_;
    std::unique_ptr<cuBrand> brand_;
};

}  // namespace tarvex
