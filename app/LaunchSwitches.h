#pragma once

#include <string>
#include <string_view>

namespace tarvex {

/// The switches of the launcher's own command line.
struct LaunchSwitches {
    bool test = false;            ///< "/T": compose everything, start nothing, show the result
    bool info = false;            ///< "/D": show the diagnostic information instead of launching
    bool compact = false;         ///< "/Compact": have Access compact the database
    bool repair = false;          ///< "/Repair": have Access repair the database
    std::u16string infoPassword;  ///< first word after "/D"; empty when there is none
};

/// Reads the text after the program name. It is cut at each "/"; the first word of a piece is the
/// switch, in any case, the next words are its values. Text before the first "/" and unknown
/// switches have no effect. Quotation marks have no special meaning.
LaunchSwitches ParseLaunchSwitches(std::u16string_view arguments);

}  // namespace tarvex
