#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/FileSystem.h"
#include "platform/ProgramInfo.h"
#include "platform/Registry.h"
#include "text/TextCodec.h"

namespace tarvex {

struct PcDescription;

/// Whether something is on a described computer.
enum class Presence { There, NotThere, NotDescribed };

/// What the launcher asks for.
enum class Asked {
    File,       ///< a file by its path
    Value,      ///< a text value of the registry
    ValueNames  ///< the names of all values of a key
};

/// Told of each thing that the launcher asks for on the described computer, in the order in which
/// it asks, repetitions included.
class PcListener {
public:
    virtual ~PcListener() = default;

    /// `what` is named as a description names it, a value or key as a 64-bit program sees it:
    /// "C:\x\y.mdb" (a full path), "HKLM\SOFTWARE\WOW6432Node\X\Pfad", "HKLM\SOFTWARE\X\" (the
    /// default value), for ValueNames the key "HKCU\Software\X". One read of the launcher may ask
    /// for several: in both views, or for HKCR in the user's classes and in the computer's. For a
    /// value of a type that the launcher does not read the answer is NotThere.
    ///
    /// The launcher goes on as if what is not described were not there.
    virtual void OnAsked(Asked kind, std::u16string_view what, Presence answer) = 0;

    /// The 64-bit view alone holds it: `found` is where, `asked` what the launcher's own view would
    /// have had to hold. With `used` the launcher looks there and has found it; otherwise (the
    /// names of values) it does not look there.
    virtual void OnOnlyInOtherView(std::u16string_view asked, std::u16string_view found,
                                   bool used) = 0;
};

/// The registry and the files of a computer that is only described, as a 32-bit program there sees
/// them. Nothing of this computer is asked.
class DescribedPc {
public:
    explicit DescribedPc(PcDescription description);
    DescribedPc(DescribedPc&& other) noexcept;
    DescribedPc& operator=(DescribedPc&& other) noexcept;
    ~DescribedPc();

    /// The objects live as long as this one, wherever it is moved to. Appending to a file and
    /// writing one succeed and leave nothing.
    const Registry& RegistryView() const;
    FileSystem& Files() const;

    /// The computer's ANSI code page.
    const TextCodec& Codec() const;

    /// The program as the description starts it; its arguments are those of the description.
    ProgramInfo Program() const;

    /// What the description says, as it was read.
    const PcDescription& Description() const;

    /// From now on the listener is told; null: nobody is. It must outlive the calls.
    void SetListener(PcListener* listener);

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

}  // namespace tarvex
