#pragma once

#include <string_view>

namespace tarvex {

/// A DLL that comes with Windows, loaded from the system folder when the object is made: a file of
/// the same name beside the program is never taken, and the program's start does not pay for
/// libraries that it may not need. It stays loaded until the program ends, since windows and
/// objects made with it may outlive this object. Nothing here raises.
class SystemLibrary {
public:
    /// `name` is the file name, for example "version.dll".
    explicit SystemLibrary(std::u16string_view name);

    bool Loaded() const { return module_ != nullptr; }

    /// The exported function, null when the library or the function is missing. The type is the
    /// caller's to know: `library.Function<decltype(VerQueryValueW)>("VerQueryValueW")`.
    template <class Signature>
    Signature* Function(const char* name) const {
        return reinterpret_cast<Signature*>(Address(name));
    }

private:
    void* Address(const char* name) const;

    void* module_;
};

/// From now on, DLLs that are asked for by name alone, as the system's own DLLs ask for others on
/// the program's behalf, come from the system folder only. Windows that cannot do that (7 without
/// its updates, and before) leaves out the current folder only. Never raises.
void RestrictDllSearch();

/// Takes back what a program started from now on would inherit of that. Never raises.
void RestoreDllSearchForChild();

/// Makes the common controls ready that the program's manifest asks for. On Windows XP a program
/// with such a manifest shows neither message boxes nor controls before this was called. It takes
/// too long for a start that shows nothing. Can be called again; never raises.
void PrepareCommonControls();

/// The same with list views, tool bars and tool tips, which the launcher does not need.
void PrepareListsAndBars();

}  // namespace tarvex
