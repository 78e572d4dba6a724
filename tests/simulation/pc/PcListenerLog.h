#pragma once

#include <string>
#include <vector>

#include "simulation/pc/DescribedPc.h"

namespace tarvex {

/// Keeps what it is told as lines: "? NAME" for what is not described, "+ NAME" for what is there,
/// "- NAME" for what is not, names of values with "\*" after their key, and "FOUND only, not ASKED"
/// with "(not read)" at the end where the launcher does not look.
class PcListenerLog : public PcListener {
public:
    void OnAsked(Asked kind, std::u16string_view what, Presence answer) override {
        std::u16string line = answer == Presence::There      ? u"+ "
                              : answer == Presence::NotThere ? u"- "
                                                             : u"? ";
        lines.push_back(line.append(what).append(kind == Asked::ValueNames ? u"\\*" : u""));
    }
    void OnOnlyInOtherView(std::u16string_view asked, std::u16string_view found,
                           bool used) override {
        std::u16string line(found);
        lines.push_back(
            line.append(u" only, not ").append(asked).append(used ? u"" : u" (not read)"));
    }

    std::vector<std::u16string> lines;
};

}  // namespace tarvex
