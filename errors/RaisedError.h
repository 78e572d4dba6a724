#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace tarvex {

/// The application's title: caption and source name wherever no configured name takes its place.
inline constexpr std::u16string_view kAppTitle = u"Tarvex";

/// The one exception type of the system: a numbered error on its way to the user.
struct RaisedError {
    std::int32_t number = 0;
    std::u16string source;  ///< places it passed, innermost first, separated by " | "; may be empty
    std::u16string description;  ///< German text for the user
    std::u16string helpFile;
    std::int32_t helpContext = 0;
    std::int32_t line = 0;  ///< of the failing statement, 0 when not known
};

/// Adds a place after the places named so far: "cuBrand: Save" or "first | second".
void ExtendSource(RaisedError& error, std::u16string_view place);

/// The exception being handled as a numbered error: a RaisedError as it is, a file failure or an
/// exception of the C++ library as the runtime error that it stands for. Call it inside a catch
/// block only.
RaisedError CurrentError();

/// Raises the exception being handled again, as a numbered error with `place` added to its source.
/// Call it inside a catch block only.
[[noreturn]] void RaiseAgain(std::u16string_view place);

/// Runs `body`; an error that leaves it is raised again, unchanged but for `place` (class name, ":
/// ", operation name) being added to its source. Every public operation of a class that the user's
/// error report shall name runs inside this.
template <class Body>
decltype(auto) AtPlace(std::u16string_view place, Body&& body) {
    try {
        return std::forward<Body>(body)();
    } catch (...) {
        RaiseAgain(place);
    }
}

}  // namespace tarvex
